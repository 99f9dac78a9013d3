#include <QAbstractButton>
#include <QAction>
#include <QComboBox>
#include <QGuiApplication>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QWindow>

#include "filetools/printing/print_form.h"
#include "filetools/printing/ui/print_form_design.h"
#include "filetools/viewer/ui/viewer_form_design.h"
#include "filetools/viewer/viewer_form.h"
#include "form_fixture.h"
#include "screen/ui/line_list.h"

namespace halden {
namespace {

std::shared_ptr<const Lines> numbered(std::size_t count) {
  Lines lines;
  for (std::size_t number = 1; number <= count; ++number) lines.push_back(std::to_string(number));
  return std::make_shared<const Lines>(std::move(lines));
}

struct ViewerFormTest : FormTest {
  ViewerFormTest() : FormTest(make_viewer_form(), viewer_form_design()) {}

  LineList& list() { return *form.findChild<LineList*>(); }
  const ListView& seen() const { return values[view_list].list; }
  void show(std::size_t count) {
    values.set_lines(view_list, numbered(count));
    form.show_changes();
    QCoreApplication::processEvents();  // the list places its lines later
  }
  void select(int row, QItemSelectionModel::SelectionFlags how) {
    list().selectionModel()->select(list().model()->index(row, 0), how);
  }
  std::string selected() const {
    std::string text;
    for (const LineRange& range : seen().selected)
      text += std::to_string(range.first) + "-" + std::to_string(range.last) + " ";
    return text;
  }
};

TEST_F(ViewerFormTest, TheListTellsWhatIsVisibleAndSelected) {
  resize(800, 500);
  show(32767);
  EXPECT_TRUE(seen().room > 5 && seen().room < 30) << seen().room;
  list().verticalScrollBar()->setValue(1000);
  EXPECT_EQ(seen().top, 1000U);
  EXPECT_EQ(changes.size(), 0U) << "scrolling selects nothing";
  select(7, QItemSelectionModel::Select);
  select(5, QItemSelectionModel::Select);
  select(6, QItemSelectionModel::Select);
  select(2, QItemSelectionModel::Select);
  EXPECT_EQ(selected(), "2-2 5-7 ");
  EXPECT_EQ(changes.size(), 4U);
  show(32768);
  EXPECT_EQ(selected() + std::to_string(list().verticalScrollBar()->value()), "2-2 5-7 1000")
      << "a file that grows";
  show(3);
  EXPECT_EQ(selected() + std::to_string(seen().top), "2-2 0") << "a file that shrinks";
  values.set_list(view_list, {});
  form.show_changes();
  EXPECT_FALSE(list().selectionModel()->hasSelection());
  const QPointF middle = list().visualRect(list().model()->index(1, 0)).center();
  for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
    QMouseEvent event(type, middle, list().viewport()->mapToGlobal(middle), Qt::LeftButton, Qt::LeftButton,
                      {});
    QCoreApplication::sendEvent(list().viewport(), &event);
  }
  EXPECT_EQ(selected(), "1-1 ");
  EXPECT_EQ(clicks, std::vector<std::string>{"List1"});
}

TEST_F(ViewerFormTest, EveryEntryAndButtonIsAClickAndNothingIsClipped) {
  for (const std::string_view name : {view_shift, view_align_note, previous_block_button, more_blocks_button})
    values.set_visible(name, true);
  for (const std::string_view name : {print_list_entry, view_again_entry}) values.set_enabled(name, true);
  resize(640, 440);
  for (const MenuEntry& entry : viewer_menu().subspan(1)) action(entry.name)->trigger();
  for (const std::string_view button : {previous_block_button, more_blocks_button})
    static_cast<QAbstractButton*>(widget(button))->click();
  EXPECT_EQ(clicks, (std::vector<std::string>{"OpenViewFile", "PrintList", "long_lines", "read_again",
                                              "ExitFile", "Command1_0", "Command1_1"}));
  static_cast<QScrollBar*>(widget(view_shift))->setRange(1, 90);
  static_cast<QScrollBar*>(widget(view_shift))->setValue(12);
  EXPECT_EQ(values[view_shift].value, 12);
  for (const std::string_view name : {view_align_note, previous_block_button, more_blocks_button})
    expect_fits(widget(name), std::string(name));
  for (const ViewerPanel& panel : viewer_panels) {
    values.set_text(panel.value, "32768-32769");
    form.show_changes();
    for (const std::string_view name : {panel.label, panel.value})
      expect_fits(widget(name), std::string(name));
  }
  EXPECT_EQ(nameless_in_focus(form), "");
}

struct PrintFormTest : FormTest {
  PrintFormTest() : FormTest(make_print_form(), print_form_design()) {}
};

TEST_F(PrintFormTest, OptionsPrintersAndKeys) {
  values.set_lines(printer_choice, std::make_shared<const Lines>(Lines{"Laser", "PDF file..."}));
  form.show_changes();
  auto* const box = static_cast<QComboBox*>(widget(printer_choice));
  EXPECT_EQ(box->currentText(), QStringLiteral("Laser"));
  QKeyEvent down(QEvent::KeyPress, Qt::Key_Down, Qt::NoModifier);
  QCoreApplication::sendEvent(box, &down);
  EXPECT_EQ(values[printer_choice].value, 1);
  static_cast<QAbstractButton*>(widget(selected_data_option))->click();
  EXPECT_EQ(clicks, std::vector<std::string>{"Option3D1_2"});
  EXPECT_EQ(nameless_in_focus(form), "");
  for (const std::string_view name : {printing_panel, print_pages, print_cancel})
    values.set_visible(name, true);
  values.set_text(print_pages, "Printing page 22222");
  form.show_changes();
  for (const std::string_view name : {whole_file_option, selected_data_option, printing_panel, print_pages,
                                      print_cancel, print_ok, print_close})
    expect_fits(widget(name), std::string(name));
}

TEST(PrintDialog, TheViewerTakesNoInputBehindIt) {
  DirectInput input;
  Window viewer = make_viewer_form();
  Window print = make_print_form();
  FormWindow behind(viewer, input, viewer_form_design(), Look::light);
  FormWindow dialog(print, input, print_form_design(), Look::light);
  dialog.stand_before(behind);
  for (const auto& [window, form] : {std::pair{&viewer, &behind}, std::pair{&print, &dialog}}) {
    window->show();
    form->show_changes();
  }
  EXPECT_EQ(QGuiApplication::modalWindow(), dialog.windowHandle());
  EXPECT_EQ(dialog.windowHandle()->transientParent(), behind.windowHandle());
}

}  // namespace
}  // namespace halden
