// The datalogger window on the screen: what it shows while nothing runs and during a transfer, that it is
// clipped nowhere, and that what the user does reaches the logic.

#include <QCoreApplication>
#include <QLineEdit>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <QShortcut>
#include <array>

#include "app/ui/notice_window.h"
#include "form_fixture.h"
#include "logger/logger_form.h"
#include "logger/ui/logger_form_design.h"
#include "screen/meter_rec/panels.h"
#include "screen/windows.h"

namespace halden {
namespace {

using Names = std::vector<std::string>;

struct NoticeHolder {
  Window notice = make_notice_window();
};

struct LoggerFormTest : NoticeHolder, FormTest {
  LoggerFormTest() : FormTest(make_logger_window(), logger_form_design(notice)) {}

  void show_transfer(bool shown) {
    for (const std::string_view name : {transfer_task, transfer_progress, transfer_note, transfer_cancel})
      values.set_visible(name, shown);
    for (const LoggerPanel& figure : transfer_panels())
      for (const std::string_view name : {figure.label, figure.value}) values.set_visible(name, shown);
    form.show_changes();
  }

  void say(const char* caption, const char* text) {
    notice.set_caption(caption);
    notice.set_text("Text1", text);
    notice.show();
    form.show_changes();
  }

  void type(const char* box, const QString& text) {
    auto* const field = static_cast<QLineEdit*>(widget(box));
    field->selectAll();
    field->insert(text);
  }

  QWidget& panel() { return *widget("transfer_area"); }
};

TEST_F(LoggerFormTest, PassesOnWhatTheUserDoes) {
  values.apply_captions(Language::chinese);
  values.set_visible(results, true);
  values.set_visible(open_folder, true);
  show_transfer(true);
  EXPECT_EQ(widget("Read_Status")->accessibleName(), QStringLiteral("讀取記錄器設定"));
  EXPECT_EQ(widget("received_value")->accessibleName(), QStringLiteral("已接收"));
  EXPECT_EQ(nameless_in_focus(form), "");
  std::string tab_order;
  for (QWidget* next = form.nextInFocusChain(); next != &form; next = next->nextInFocusChain())
    if (next->focusPolicy() & Qt::TabFocus && next->isVisible())
      tab_order += from_qt(next->objectName()) + " ";
  EXPECT_EQ(tab_order,
            "Read_Status Text1_1 Text1_2 Read_All Command2 Command3 DL_HC DL_All Command1 transfer_cancel "
            "open_folder results ");
  Names expected(logger_buttons().begin(), logger_buttons().end());
  expected.insert(expected.end(), {"Read_Status", "transfer_cancel", "open_folder"});
  for (const std::string& button : expected) static_cast<QPushButton*>(widget(button))->click();
  EXPECT_EQ(clicks, expected);
  type("Text1_1", QStringLiteral("2026-11-18"));
  type("Text1_2", QStringLiteral("08:00:00"));
  EXPECT_EQ(values["Text1_1"].text + " " + values["Text1_2"].text, "2026-11-18 08:00:00");
  EXPECT_EQ(changes, (Names{"Text1_1", "Text1_2"}));
  values.set_enabled("Read_Status", false);
  values.set_enabled("Command1", false);
  form.show_changes();
  for (const char* button : {"Read_Status", "Command1"}) static_cast<QPushButton*>(widget(button))->click();
  EXPECT_EQ(clicks, expected);
}

// The buttons had the smallest text until the window was resized.
TEST_F(LoggerFormTest, TextsHaveTheirSizeWhenTheWindowIsFirstShown) {
  const QSize start = form.size();
  const int first = widget("DL_All")->font().pixelSize();
  resize(start.width() + 1, start.height() + 1);
  resize(start.width(), start.height());
  EXPECT_EQ(widget("DL_All")->font().pixelSize(), first);
}

TEST_F(LoggerFormTest, EscapeCancelsATransferAndOtherwiseClosesTheWindow) {
  auto* const escape = form.findChild<QShortcut*>();
  show_transfer(true);
  Q_EMIT escape->activated();
  EXPECT_EQ(clicks, Names{"transfer_cancel"});
  EXPECT_EQ(closes, 0);
  show_transfer(false);
  Q_EMIT escape->activated();
  EXPECT_EQ(clicks, Names{"transfer_cancel"});
  EXPECT_EQ(closes, 1);
}

// The floating notice would cover the panel.
TEST_F(LoggerFormTest, TheNoticeShowsInsideThePanelAndMovesNothing) {
  NoticeWindow floating(notice, form, Look::light);
  floating.give_way_to(form);
  const QRect before = widget("results")->parentWidget()->geometry();
  EXPECT_FALSE(panel().isVisible());
  notice.set_range(notice_progress, 0, 100);
  notice.set_value(notice_progress, 38);
  say("Status", "  Waiting");
  floating.show_changes();
  EXPECT_TRUE(panel().isVisible());
  EXPECT_FALSE(floating.isVisible());
  EXPECT_EQ(static_cast<QLineEdit*>(widget("Text1"))->text(), QStringLiteral("  Waiting"));
  EXPECT_EQ(spoken(form, widget("Text1")), "Status: ");
  EXPECT_EQ(static_cast<QProgressBar*>(widget(notice_progress))->value(), 38);
  notice.set_range(notice_progress, 0, 0);
  say("Status", "58420    ");
  EXPECT_EQ(static_cast<QLineEdit*>(widget("Text1"))->text(), QStringLiteral("58420    "));
  EXPECT_FALSE(widget(notice_progress)->isVisible());
  show_transfer(true);
  notice.hide();
  form.show_changes();
  EXPECT_TRUE(panel().isVisible());
  EXPECT_FALSE(widget("Text1")->isVisible());
  EXPECT_EQ(widget("results")->parentWidget()->geometry(), before);
  show_transfer(false);
  say("", "Recording (12:30:44)");
  EXPECT_FALSE(panel().isVisible()) << "the notice of a recording stays for long";
  values.hide();
  form.show_changes();
  say("Status", "  Waiting");
  floating.show_changes();
  EXPECT_TRUE(floating.isVisible());
}

TEST_F(LoggerFormTest, AddedFilesKeepTheSelection) {
  const auto show = [this](Lines lines) {
    values.set_lines(results, std::make_shared<Lines>(std::move(lines)));
    form.show_changes();
  };
  values.set_visible(results, true);
  show({"one", "two"});
  auto* const list = static_cast<QListWidget*>(widget(results));
  list->setCurrentRow(1);
  show({"one", "two", "three"});
  EXPECT_EQ(list->count(), 3);
  EXPECT_EQ(list->currentItem()->text(), QStringLiteral("two"));
  EXPECT_EQ(list->item(2)->text(), QStringLiteral("three"));
  show({"one"});
  EXPECT_EQ(list->count(), 1);
}

TEST_F(LoggerFormTest, NothingIsClippedAtAnySizeInEitherLanguage) {
  const std::pair<std::string_view, const char*> widest[] = {{"SYS_REC_value", "3P4W"},
                                                             {"HZ_REC_value", "AUTO"},
                                                             {"CT_REC_value", "32767"},
                                                             {"Harmo_or_Power_0", "Harmonics"},
                                                             {"Text1_1", "2026-11-28"},
                                                             {"Text1_2", "08:00:00"},
                                                             {stored_files, "99 files"},
                                                             {transfer_task, "Down Load Power Data"},
                                                             {"received_value", "1,158,420 bytes"},
                                                             {"rate_value", "953 bytes/s"},
                                                             {"elapsed_value", "101 min 01 s"},
                                                             {"records_value", "115,842"},
                                                             {"total_files_text", "99"},
                                                             {file_of_total, "file 44 of 99"}};
  show_transfer(true);
  for (const auto& [name, text] : widest) values.set_text(name, text);
  for (const std::string_view name : {results_title, open_folder, results}) values.set_visible(name, true);
  for (const LoggerPanel& texts : {download_name, total_files})
    for (const std::string_view name : {texts.label, texts.value}) values.set_visible(name, true);
  values.set_visible(file_of_total, true);
  for (const Language language : {Language::english, Language::chinese}) {
    values.apply_captions(language);
    values.set_text("Harmo_or_Power_0", language == Language::chinese ? "諧波記錄" : "Harmonics");
    say("Status", "1158420    ");
    for (const QSize size : {QSize(720, 470), QSize(952, 500), QSize(1024, 660), QSize(3840, 2160)}) {
      resize(size.width(), size.height());
      for (const auto& [name, control] : values.controls())
        if (name != results && name != status_hint && name != polling_note && name != "dl_f_name" &&
            name != read_status_caption)
          expect_fits(widget(name), name + " " + std::to_string(size.width()));
      expect_fits(widget("Text1"), "notice");
      EXPECT_GE(widget(results)->height(), 40);
      EXPECT_LE(widget(results)->mapTo(&form, QPoint(0, widget(results)->height())).y(),
                widget(status_hint)->mapTo(&form, QPoint()).y());
    }
  }
}

}  // namespace
}  // namespace halden
