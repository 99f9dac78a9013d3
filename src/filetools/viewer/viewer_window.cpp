#include "filetools/viewer/viewer_window.h"

#include <algorithm>
#include <optional>

#include "filetools/file_name.h"
#include "filetools/open_failure.h"
#include "filetools/viewer/viewer_texts.h"
#include "platform/clock.h"
#include "platform/dialogs.h"
#include "screen/meter_rec/panels.h"

namespace halden {

ViewerWindow::ViewerWindow(const Platform& platform, Windows& windows, Window& meter_rec, Link& link)
    : platform_(platform), link_(link), file_(platform.files) {
  windows.add(form_);
  meter_rec.on_click("ViewFile", [this] { open(); });
  connect();
}

void ViewerWindow::connect() {
  form_.on_click(open_view_entry, [this] { choose_file(); });
  form_.on_click(print_list_entry, [this] { print(); });
  form_.on_click(view_again_entry, [this] { read_again(); });
  form_.on_click(long_lines_entry, [this] { toggle_long_lines(); });
  form_.on_click(exit_view_entry, [this] { close(); });
  form_.on_click(more_blocks_button, [this] {
    if (read([this] { return file_.more_blocks(); }) == ViewRefusal::none) show_from_the_top();
  });
  form_.on_click(previous_block_button, [this] {
    if (read([this] { return file_.previous_block(); }) == ViewRefusal::none) show_from_the_top();
  });
  form_.on_click(view_list, [this] { shift(file_.column()); });
  form_.on_change(view_list, [this] { show_selection(); });
  form_.on_change(view_shift, [this] { shift(form_[view_shift].value); });
  form_.on_language([this] {
    form_.set_text(status_hint,
                   file_.path().empty() ? no_file_to_view(link_.state.language) : std::string_view());
  });
  form_.on_close([this] { close(); });
}

void ViewerWindow::open() {
  link_.pause.begin(form_);
  if (file_.path().empty()) form_.set_text(status_hint, no_file_to_view(link_.state.language));
  form_.show();
}

void ViewerWindow::close() {
  form_.hide();
  link_.pause.end(form_);
}

// ---- files ----

void ViewerWindow::choose_file() {
  const std::optional<std::string> path = platform_.dialogs.open_file({{{"All Files (*.*)", "*.*"}}, "", ""});
  if (path && !path->empty()) open_file(*path);
}

void ViewerWindow::open_file(const std::string& path) {
  if (!form_.visible()) open();
  const ViewRefusal refusal = read([this, &path] { return file_.open(path); });
  if (refusal == ViewRefusal::unreadable) return;
  show_from_the_top();
  if (opened_) opened_(path);
}

// What is visible and selected stays.
void ViewerWindow::read_again() {
  read([this] { return file_.read_again(); });
}

// A file that was refused is shown at once.
void ViewerWindow::toggle_long_lines() {
  long_lines_ = !long_lines_;
  form_.set_checked(long_lines_entry, long_lines_);
  file_.set_long_lines(long_lines_ ? LongLines::allowed : LongLines::refused);
  if (long_lines_ && !file_.is_shown()) read_again();
}

// Nothing that the user starts runs in between: the wait takes no input.
ViewRefusal ViewerWindow::read(const std::function<ViewRefusal()>& step) {
  form_.set_text(status_hint, "");
  form_.set_visible(view_reading, true);
  platform_.clock.pause(Yield::no, 0.0);
  const ViewRefusal refusal = step();
  form_.set_visible(view_reading, false);
  show_file();
  tell(refusal);
  return refusal;
}

void ViewerWindow::tell(ViewRefusal refusal) {
  const RefusalTexts texts = refusal_texts(refusal, file_, link_.state.language);
  form_.set_text(status_hint, texts.hint);
  if (!texts.message.empty()) platform_.dialogs.message({std::string(texts.message), "", Icon::none});
}

// ---- what is shown ----

void ViewerWindow::show_file() {
  const bool shown = file_.is_shown();
  form_.set_lines(view_list, file_.list());
  form_.set_text(view_heading, file_.heading());
  form_.set_text(view_name, name_of_file(file_.path()));
  form_.set_visible(view_align_note, shown);
  form_.set_visible(view_shift, file_.column_maximum() >= 1);
  form_.set_range(view_shift, 1, std::max(file_.column_maximum(), 1));
  form_.set_value(view_shift, file_.column());
  form_.set_visible(previous_block_button, file_.offers_previous_block());
  form_.set_visible(more_blocks_button, file_.offers_more_blocks());
  for (const std::string_view entry : {print_list_entry, view_again_entry})
    form_.set_enabled(entry, !file_.path().empty());
  const auto show_figure = [this, shown](std::string_view panel, std::size_t figure) {
    form_.set_text(panel, shown ? std::to_string(figure) : "");
  };
  show_figure("current_block_value", file_.current_block());
  show_figure("chars_per_record_value", file_.chars_per_record());
  show_figure("records_read_value", file_.records_read());
  show_figure("blocks_read_value", file_.blocks_read());
  show_selection();
}

void ViewerWindow::show_from_the_top() {
  form_.set_list(view_list, {.top = 0, .room = form_[view_list].list.room, .selected = {}});
  show_selection();
}

void ViewerWindow::show_selection() {
  form_.set_text("selected_record_value", selected_records(form_[view_list].list.selected, file_));
}

VisibleLines ViewerWindow::visible_lines() const {
  const ListView& list = form_[view_list].list;
  return {.top = list.top, .count = list.room};
}

// No box is opened, because the user may be dragging the scroll bar.
void ViewerWindow::shift(int column) {
  if (!file_.is_shown()) return;
  const FileFailure failure = file_.shift(column, visible_lines());
  form_.set_text(status_hint, failure == FileFailure::none ? "" : open_failure_message(failure));
  form_.set_lines(view_list, file_.list());
  form_.set_value(view_shift, file_.column());
}

// ---- printing ----

// Lines that were not visible when the user shifted the list are aligned first; when the file cannot be read
// any more, they are printed as the list shows them.
void ViewerWindow::print() {
  const std::vector<LineRange>& selected = form_[view_list].list.selected;
  if (!selected.empty()) {
    file_.align({.top = 0, .count = file_.records_read()});
    form_.set_lines(view_list, file_.list());
  }
  TextToPrint text{file_.path(), {}};
  for (const LineRange& range : selected)
    for (std::size_t line = range.first; line <= range.last && line < file_.records_read(); ++line)
      text.selected.push_back((*file_.list())[line]);
  print_(text, form_);
}

}  // namespace halden
