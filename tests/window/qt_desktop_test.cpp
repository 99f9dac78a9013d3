#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QDir>
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
#include "platform/qt/desktop/qt_shell.h"
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
      {{"COM 3 not available", "Port", Icon::exclamation}, "Port|COM 3 not available|2"},
      {{"電力", "About", Icon::information}, "About|電力|1"}};
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

TEST_F(QtDialogsTest, AConfirmationIsYesOrNo) {
  const Message question{"File  a.csv  exists, add data to it", "", Icon::question};
  for (const auto& [button, answer] :
       {std::pair(QMessageBox::Yes, true), std::pair(QMessageBox::No, false)}) {
    when_open<QMessageBox>([button = button](QMessageBox& box) { box.button(button)->click(); });
    EXPECT_EQ(dialogs_.confirm(question), answer);
  }
  when_open<QMessageBox>([](QMessageBox& box) { box.close(); });
  EXPECT_FALSE(dialogs_.confirm(question));
}

TEST_F(QtDialogsTest, TellingDoesNotWaitAndShowsOneBoxPerText) {
  const QString full = QStringLiteral("disk full");
  const auto tell = [this](const char* text) { dialogs_.tell({text, "", Icon::exclamation}); };
  tell("disk full");
  QMessageBox* const first = notice(full);
  ASSERT_NE(first, nullptr);
  EXPECT_FALSE(first->isModal());
  tell("disk full");
  tell("no answer");
  EXPECT_EQ(notice(full), first);
  EXPECT_NE(notice(QStringLiteral("no answer")), nullptr);
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

TEST_F(QtDialogsTest, InputGivesTheEditedTextOrNothing) {
  for (const bool accepted : {true, false}) {
    when_open<QDialog>([&](QDialog& box) {
      EXPECT_EQ(box.windowTitle(), QStringLiteral("CT"));
      auto* edit = box.findChild<QLineEdit*>(QStringLiteral("input_value"));
      ASSERT_NE(edit, nullptr);
      EXPECT_EQ(edit->text(), QStringLiteral("100"));
      edit->setText(QStringLiteral(" 250 "));
      accepted ? box.accept() : box.reject();
    });
    EXPECT_EQ(dialogs_.input("CT ratio", "CT", "100"), accepted ? " 250 " : "");
  }
}

// The logic asks about an existing file in its own words; a second question would hang this test.
TEST_F(QtDialogsTest, ANameThatIsNotAFileYetGetsTheDefaultExtension) {
  const QTemporaryDir folder;
  const auto path = [&](const char* name) { return folder.filePath(QString::fromUtf8(name)); };
  for (const char* name : {"old.csv", "without_extension"})
    ASSERT_TRUE(QFile(path(name)).open(QIODevice::WriteOnly));
  const std::pair<const char*, const char*> rows[] = {{"load.txt", "load.txt"},
                                                      {"two words", "two words.csv"},
                                                      {"紀錄", "紀錄.csv"},
                                                      {"old.csv", "old.csv"},
                                                      {"without_extension", "without_extension"}};
  for (const auto& [typed, chosen] : rows) {
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

TEST_F(QtDialogsTest, CancellingAFileQuestionGivesNothing) {
  for (const bool saving : {true, false}) {
    when_open<QFileDialog>([](QFileDialog& box) { box.reject(); });
    EXPECT_EQ(saving ? dialogs_.save_file({}) : dialogs_.open_file({}), std::nullopt);
  }
}

// The system ends the session while a box is open: the box goes, and so does the handler that waits for it.
TEST(QtDialogsEnd, EndingTheProgramClosesBoxesAndUnwinds) {
  const Message text{"Wait", "", Icon::none};
  const std::pair<const char*, std::function<void(Dialogs&)>> rows[] = {
      {"message", [&](Dialogs& dialogs) { dialogs.message(text); }},
      {"confirm", [&](Dialogs& dialogs) { dialogs.confirm(text); }},
      {"input", [](Dialogs& dialogs) { dialogs.input("CT", "", ""); }},
      {"open_file", [](Dialogs& dialogs) { dialogs.open_file({}); }},
      {"save_file", [](Dialogs& dialogs) { dialogs.save_file({}); }}};
  for (const auto& [name, ask] : rows) {
    QtWorld world;
    QtDialogs dialogs(world);
    bool went_on = false;
    when_open<QDialog>([&](QDialog&) { world.end_program(); });
    const bool complete = world.run([&, &ask = ask] {
      ask(dialogs);
      went_on = true;
    });
    EXPECT_FALSE(complete) << name;
    EXPECT_FALSE(went_on) << name;
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr) << name;
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
  QtPrinterTest() { printer_.set_output_pdf(pdf_); }

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
  printer_.new_page();
  printer_.print_window("MeterRec");
  expect_printed(2, 1);
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

  // 72 points are an inch; a row of ten capital Ms is between 5 and 12 times as wide as the font is high.
  printer_.set_font({"", 72.0, false});
  const double width = printer_.text_width("MMMMMMMMMM");
  EXPECT_GT(width, 5 * 1440);
  EXPECT_LT(width, 12 * 1440);
  printer_.set_font({"", 36.0, false});
  EXPECT_NEAR(printer_.text_width("MMMMMMMMMM"), width / 2, width / 50);
}

TEST_F(QtPrinterTest, AFailureIsToldOnceAndTheNextDocumentIsPrinted) {
  printer_.set_output_pdf(folder_.filePath(QStringLiteral("no/such/folder.pdf")));
  printer_.print_line(0, 0, "lost");
  printer_.new_page();
  printer_.print_line(0, 0, "lost");
  EXPECT_EQ(printer_.finish(), PrintFailure::failed);
  printer_.set_output_pdf(pdf_);
  printer_.print_line(0, 0, "printed");
  expect_printed(1, 0);
}

TEST_F(QtPrinterTest, WithoutAPrinterASentenceSaysSo) {
  if (!QPrinterInfo::availablePrinterNames().isEmpty()) GTEST_SKIP() << "this computer has a printer";
  printer_.set_output_pdf({});
  printer_.print_line(600, 600, "line");
  EXPECT_GT(printer_.page_size().width, 0);
  EXPECT_EQ(printer_.finish(), PrintFailure::no_printer);
  EXPECT_EQ(printer_.finish(), PrintFailure::none);
}

TEST(QtShell, OpensExistingFilesOnlyAndEndsTheProgram) {
  QtWorld world;
  QtShell shell(world);
  for (const std::string& path :
       {std::string("/no/manual.pdf"), QDir::tempPath().toStdString(), std::string()})
    EXPECT_FALSE(shell.open_document(path)) << path;
  shell.end_program();
  EXPECT_TRUE(world.ending());
}

}  // namespace
}  // namespace halden
