#include "filetools/hardcopy/hardcopy_window.h"

#include <algorithm>
#include <optional>

#include "filetools/file_name.h"
#include "filetools/open_failure.h"
#include "platform/dialogs.h"
#include "platform/printer.h"
#include "screen/failure_texts.h"
#include "screen/meter_rec/panels.h"

namespace halden {

namespace {

constexpr Text no_file_open = {"No file is open. Choose one with File.", "尚未開啟檔案，請按 File 選擇。"};
constexpr Text not_opened = {"Not opened: {}", "無法開啟：{}"};

}  // namespace

HardcopyWindow::HardcopyWindow(const Platform& platform, Windows& windows, Window& meter_rec, Window& notice,
                               Link& link)
    : platform_(platform), notice_(notice), link_(link) {
  windows.add(form_);
  meter_rec.on_click("show_plot_hardcopy", [this] { open(); });
  connect();
}

void HardcopyWindow::connect() {
  form_.on_click(open_entry, [this] { open_file_and_plot(); });
  form_.on_click(draw_button, [this] { draw(); });
  form_.on_click(next_entry, [this] { show_next(); });
  form_.on_click("read_again", [this] { read_again(); });
  form_.on_click("picture_copy",
                 [this] { with_picture([this](const DotPicture& p) { output_.copy_dots(p); }); });
  form_.on_click("picture_save", [this] {
    with_picture([this](const DotPicture& p) { output_.save_dots(p, suggested_name()); });
  });
  form_.on_click(printer_entry, [this] { print(); });
  form_.on_click(print_button, [this] { print(); });
  form_.on_close([this] { close(); });
  form_.on_language([this] { show_hint(); });
}

void HardcopyWindow::open() {
  link_.pause.begin(form_);
  show_hint();
  form_.show();
}

void HardcopyWindow::close() {
  form_.hide();
  link_.pause.end(form_);
}

void HardcopyWindow::open_file_and_plot() {
  link_.pause.begin(form_);
  const std::optional<std::string> path =
      platform_.dialogs.open_file({{{"txt Files(*.txt)", "*.txt"}, {"All Files (*.*)", "*.*"}}, ".txt", ""});
  if (path && !path->empty()) open_file(*path);
}

void HardcopyWindow::open_file(const std::string& path) {
  hc_file_name_ = path;
  draw();
}

void HardcopyWindow::draw() {
  link_.pause.begin(form_);
  clear();
  if (hc_file_name_.empty()) return show_hint();
  read();
  if (!file_.pictures.empty()) {
    if (opened_) opened_(hc_file_name_);
    return show_picture();
  }
  show_hint();
  platform_.dialogs.message({std::string(open_failure_message(file_.failure)), "", Icon::none});
}

void HardcopyWindow::clear() {
  file_ = {};
  shown_ = 0;
  for (const std::string_view name : {hardcopy_date, hardcopy_name, std::string_view(status_hint)})
    form_.set_text(name, "");
  form_.set_tooltip(hardcopy_name, "");
  form_.set_lines(hardcopy_picture, nullptr);
  form_.set_visible(next_entry, false);
}

// A notice that is shown already, that of a recording or of an exchange, stays as it is.
void HardcopyWindow::read() {
  const bool free = !notice_.visible();
  if (free) {
    notice_.set_caption("Status");
    notice_.set_text("Text1", "Working, please wait");
    notice_.set_range(notice_progress, 0, 0);
    notice_.show();
  }
  let_events_run(platform_.clock);
  file_ = read_hardcopies(platform_.files, hc_file_name_);
  if (free) notice_.hide();
}

void HardcopyWindow::show_picture() {
  const Hardcopy& picture = file_.pictures[shown_];
  form_.set_text(hardcopy_date, picture.date_line);
  form_.set_text(hardcopy_name, name_of_file(hc_file_name_));
  form_.set_tooltip(hardcopy_name, hc_file_name_);
  form_.set_lines(hardcopy_picture, dot_lines(picture));
  form_.set_visible(next_entry, file_.pictures.size() > 1);
  show_hint();
}

void HardcopyWindow::show_hint() {
  const Language language = link_.state.language;
  if (!file_.pictures.empty())
    form_.set_text(status_hint, hardcopy_hint(file_, shown_, language));
  else if (hc_file_name_.empty())
    form_.set_text(status_hint, no_file_open.in(language));
  else
    form_.set_text(status_hint, not_opened.with(language, {hc_file_name_}));
}

// Behind the last picture comes the first one.
void HardcopyWindow::show_next() {
  shown_ = (shown_ + 1) % file_.pictures.size();
  show_picture();
}

// Of a file that has grown or shrunk, the picture with the same number, or the last one.
void HardcopyWindow::read_again() {
  const std::size_t shown = shown_;
  draw();
  if (file_.pictures.empty() || shown == 0) return;
  shown_ = std::min(shown, file_.pictures.size() - 1);
  show_picture();
}

void HardcopyWindow::with_picture(const std::function<void(const DotPicture&)>& use) {
  if (file_.pictures.empty()) return output_.say_nothing_drawn();
  use(dot_picture(file_.pictures[shown_]));
}

// "screen", or "screen-2" in a file of several pictures.
std::string HardcopyWindow::suggested_name() const {
  const std::string_view name = name_of_file(hc_file_name_);
  const std::string stem(name.substr(0, name.find_last_of('.')));
  return file_.pictures.size() == 1 ? stem : stem + "-" + std::to_string(shown_ + 1);
}

void HardcopyWindow::print() {
  platform_.printer.set_orientation(Orientation::landscape);
  platform_.printer.print_window(form_.name());
  const PrintFailure failure = platform_.printer.finish();
  form_.set_text(status_hint, print_sentence(failure, platform_.printer.destination(), link_.state.language));
}

}  // namespace halden
