#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPrinterInfo>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>

#include "platform/qt/core/qt_clock.h"
#include "platform/qt/core/qt_world.h"
#include "platform/qt/desktop/qt_dialogs.h"
#include "platform/qt/desktop/qt_printer.h"
#include "platform/qt/desktop/wait_cursor.h"

namespace halden {
namespace {

// Calls `act` with the next modal box of this type, as soon as it is on the screen.
template <typename Box>
void when_open(std::function<void(Box&)> act) {
  auto* look = new QTimer(qApp);
  QObject::connect(look, &QTimer::timeout, look, [look, act] {
    auto* box = qobject_cast<Box*>(QApplication::activeModalWidget());
    if (box == nullptr || !box->isVisible()) return;
    look->stop();
    look->deleteLater();
    act(*box);
  });
  look->start(1);
}

class QtDialogsTest : public testing::Test {
 protected:
  ~QtDialogsTest() override { world_.end_program(); }

  QMessageBox* notice(const QString& text) const {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
      auto* box = qobject_cast<QMessageBox*>(widget);
      if (box != nullptr && box->isVisible() && box->text() == text) return box;
    }
    return nullptr;
  }

  QtWorld world_;
  QtDialogs dialogs_{world_};
};

// Title, text and icon: 0 is none, 1 information, 2 a warning.
TEST_F(QtDialogsTest, AMessageShowsExactlyItsText) {
  const std::pair<Message, const char*> rows[] = {
      {{"Press <b>HARMO</b> & wait\n\nagain", "", Icon::none}, "Halden|Press <b>HARMO</b> & wait\n\nagain|0"},
      {{"電力", "About", Icon::exclamation}, "About|電力|2"}};
  for (const auto& [message, expected] : rows) {
    QString seen;
    when_open<QMessageBox>([&seen](QMessageBox& box) {
      EXPECT_EQ(box.textFormat(), Qt::PlainText);
      seen = QStringLiteral("%1|%2|%3").arg(box.windowTitle(), box.text()).arg(box.icon());
      box.button(QMessageBox::Ok)->click();
    });
    dialogs_.message(message);
    EXPECT_EQ(seen.toStdString(), expected);
  }
}

TEST_F(QtDialogsTest, TellingDoesNotWaitAndShowsOneBoxPerText) {
  const QString full = QStringLiteral("disk full");
  const auto tell = [this](const char* text) { dialogs_.tell({text, "", Icon::exclamation}); };
  tell("disk full");
  QMessageBox* const first = notice(full);
  ASSERT_NE(first, nullptr);
  EXPECT_FALSE(first->isModal());
  tell("disk full");
  EXPECT_EQ(notice(full), first);
  first->button(QMessageBox::Ok)->click();
  EXPECT_EQ(notice(full), nullptr);
  tell("disk full");
  EXPECT_NE(notice(full), nullptr);
  world_.end_program();
  EXPECT_EQ(notice(full), nullptr);
}

TEST_F(QtDialogsTest, WhatIsToldBesideAQuestionComesAfterItsAnswer) {
  when_open<QMessageBox>([this](QMessageBox& box) {
    for (int time = 0; time < 2; ++time) dialogs_.tell({"disk full", "", Icon::exclamation});
    EXPECT_EQ(notice(QStringLiteral("disk full")), nullptr);
    box.button(QMessageBox::Yes)->click();
  });
  EXPECT_TRUE(dialogs_.confirm({"Go on?", "", Icon::question}));
  EXPECT_NE(notice(QStringLiteral("disk full")), nullptr);
}

TEST_F(QtDialogsTest, InputGivesTheEditedText) {
  when_open<QDialog>([](QDialog& box) {
    auto* const edit = box.findChild<QLineEdit*>(QStringLiteral("input_value"));
    EXPECT_EQ(edit->text(), QStringLiteral("100"));
    edit->setText(QStringLiteral(" 250 "));
    box.accept();
  });
  EXPECT_EQ(dialogs_.input("CT ratio", "CT", "100"), " 250 ");
}

// The logic asks about an existing file in its own words; a second question would hang this test.
TEST_F(QtDialogsTest, ANameThatIsNotAFileYetGetsTheDefaultExtension) {
  const QTemporaryDir folder;
  const auto path = [&](const char* name) { return folder.filePath(QString::fromUtf8(name)); };
  ASSERT_TRUE(QFile(path("old one")).open(QIODevice::WriteOnly));
  for (const auto& [typed, chosen] :
       {std::pair("load.txt", "load.txt"), {"紀錄", "紀錄.csv"}, {"old one", "old one"}}) {
    when_open<QFileDialog>([&folder, name = QString::fromUtf8(typed)](QFileDialog& box) {
      const auto* const types = box.findChild<QComboBox*>(QStringLiteral("fileTypeCombo"));
      EXPECT_EQ(types->itemText(0).toStdString(), "csv Files(*.csv)");
      EXPECT_EQ(types->itemText(1).toStdString(), "All Files (*.*)");
      EXPECT_TRUE(box.nameFilters().last().endsWith(QLatin1String("(*)"))) << "names without a dot as well";
      box.setDirectory(folder.path());
      box.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(name);
      QMetaObject::invokeMethod(&box, "accept", Qt::QueuedConnection);
    });
    const FileQuestion question = {
        {{"csv Files(*.csv)", "*.csv"}, {"All Files (*.*)", "*.*"}}, ".csv", "20260131"};
    EXPECT_EQ(dialogs_.save_file(question), path(chosen).toStdString()) << typed;
  }
  const auto in_folder = with_default_extension(QStringLiteral("/site.v2/load"), QStringLiteral(".csv"));
  EXPECT_EQ(in_folder, QStringLiteral("/site.v2/load.csv"));
}

// A picture was a PNG whatever kind of file the user had chosen.
TEST_F(QtDialogsTest, ANameGetsTheExtensionOfTheChosenKindOfFile) {
  const QTemporaryDir folder;
  when_open<QFileDialog>([&folder](QFileDialog& box) {
    box.setDirectory(folder.path());
    box.selectNameFilter(box.nameFilters().at(1));
    box.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(QStringLiteral("chart"));
    QMetaObject::invokeMethod(&box, "accept", Qt::QueuedConnection);
  });
  const FileQuestion question = {{{"PNG (*.png)", "*.png"}, {"SVG (*.svg)", "*.svg"}}, ".png", ""};
  EXPECT_EQ(dialogs_.save_file(question), folder.filePath(QStringLiteral("chart.svg")).toStdString());
}

// The system ends the session while a box is open: the box goes, and so does the handler that waits for it.
TEST(QtDialogsEnd, AClosedBoxAnswersNothingAndTheEndOfTheProgramUnwindsIt) {
  const Message text{"Wait", "", Icon::none};
  const std::function<bool(Dialogs&)> rows[] = {
      [&](Dialogs& dialogs) { return dialogs.message(text), false; },
      [&](Dialogs& dialogs) { return dialogs.confirm(text); },
      [](Dialogs& dialogs) { return dialogs.input("CT", "", "100") != ""; },
      [](Dialogs& dialogs) { return dialogs.open_file({}).has_value(); },
      [](Dialogs& dialogs) { return dialogs.save_file({}).has_value(); }};
  for (const auto& answered : rows) {
    SCOPED_TRACE(&answered - rows);
    QtWorld world;
    QtDialogs dialogs(world);
    when_open<QDialog>([](QDialog& box) { box.reject(); });
    EXPECT_FALSE(answered(dialogs));
    bool went_on = false;
    when_open<QDialog>([&](QDialog&) { world.end_program(); });
    EXPECT_FALSE(world.run([&] { went_on = answered(dialogs) || true; })) << "not complete";
    EXPECT_FALSE(went_on);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
  }
}

TEST_F(QtDialogsTest, TheWaitCursorShowsLongWaitsOnlyAndNeverABox) {
  const WaitCursor cursor(world_);
  QtClock clock(world_);
  const auto wait = [&](double duration_s) {
    const double end_s = clock.monotonic_s() + duration_s;
    while (clock.monotonic_s() < end_s) clock.pause(Yield::no, 0.005);
  };
  world_.run([&] {
    wait(0.1);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    wait(0.4);
    ASSERT_NE(QApplication::overrideCursor(), nullptr);
    EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
    when_open<QMessageBox>([](QMessageBox& box) {
      EXPECT_EQ(QApplication::overrideCursor(), nullptr);
      box.accept();
    });
    dialogs_.message({"no answer", "", Icon::none});
    wait(0.5);
    EXPECT_NE(QApplication::overrideCursor(), nullptr);
  });
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

class QtPrinterTest : public testing::Test {
 protected:
  QtPrinterTest() { print_into(pdf_); }

  void print_into(const QString& pdf) { printer_.set_target({.printer = "", .pdf_path = pdf.toStdString()}); }

  void expect_printed(int pages, int images) {
    EXPECT_EQ(printer_.finish(), PrintFailure::none);
    QFile file(pdf_);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray pdf = file.readAll();
    EXPECT_TRUE(pdf.startsWith("%PDF"));
    EXPECT_EQ(pdf.count("/Type /Page\n"), pages);
    EXPECT_EQ(pdf.count("/Subtype /Image"), images);
  }

  QTemporaryDir folder_;
  QString pdf_ = folder_.filePath(QStringLiteral("paper.pdf"));
  QtPrinter printer_;
};

TEST_F(QtPrinterTest, PrintsLinesAndWindowsOnPages) {
  QImage image(400, 300, QImage::Format_RGB32);
  image.fill(Qt::white);
  printer_.add_window("MeterRec", [&] { return image; });
  printer_.add_window("Empty", [] { return QImage(); });
  printer_.set_orientation(Orientation::landscape);
  printer_.set_font({"Courier New", 10.0, true});
  printer_.print_line(600, 600, "V12 電壓 230.1");
  printer_.print_window("MeterRec");
  EXPECT_EQ(printer_.finish(), PrintFailure::busy) << "a document of lines is not done yet";
  printer_.new_page();
  expect_printed(2, 0);
  printer_.print_window("MeterRec");
  expect_printed(1, 1);
  EXPECT_EQ(printer_.destination(), pdf_.toStdString());
  for (const char* name : {"Empty", "no such window"}) {
    printer_.print_window(name);
    EXPECT_EQ(printer_.finish(), PrintFailure::failed) << name;
  }
}

// The paper is A4 or US Letter: 8.27 x 11.69 or 8.5 x 11 inch of 1440 units each.
TEST_F(QtPrinterTest, MeasuresInUnitsOf1440ToTheInch) {
  const PageSize portrait = printer_.page_size();
  EXPECT_NEAR(portrait.width, 8.3 * 1440, 0.3 * 1440);
  EXPECT_NEAR(portrait.height, 11.3 * 1440, 0.5 * 1440);
  printer_.set_orientation(Orientation::landscape);
  EXPECT_NEAR(printer_.page_size().width, portrait.height, 20);
  EXPECT_NEAR(printer_.page_size().height, portrait.width, 20);
}

TEST_F(QtPrinterTest, AfterAFailureAndAfterACancelledDocumentTheNextOneIsPrinted) {
  print_into(folder_.filePath(QStringLiteral("no/such/folder.pdf")));
  printer_.print_line(0, 0, "lost");
  EXPECT_FALSE(printer_.new_page());
  EXPECT_EQ(printer_.finish(), PrintFailure::failed);
  print_into(pdf_);
  EXPECT_TRUE(printer_.new_page());
  printer_.discard();
  EXPECT_FALSE(QFile::exists(pdf_));
  printer_.print_line(0, 0, "printed");
  expect_printed(1, 0);
}

TEST_F(QtPrinterTest, AnotherFontOfFixedPitchTakesThePlaceOfAMissingOne) {
  printer_.set_font({.family = "no such font", .points = 10.0, .fixed_pitch = true});
  EXPECT_NEAR(printer_.text_width("iiiiiiiiii"), printer_.text_width("WWWWWWWWWW"), 1.0);
  EXPECT_NEAR(printer_.line_height(), 250, 50);
}

TEST_F(QtPrinterTest, WithoutAPrinterASentenceSaysSo) {
  if (!QPrinterInfo::availablePrinterNames().isEmpty()) GTEST_SKIP() << "this computer has a printer";
  print_into({});
  printer_.print_line(600, 600, "line");
  EXPECT_GT(printer_.page_size().width, 0);
  EXPECT_EQ(printer_.finish(), PrintFailure::no_printer);
  EXPECT_EQ(printer_.finish(), PrintFailure::none);
}

}  // namespace
}  // namespace halden
