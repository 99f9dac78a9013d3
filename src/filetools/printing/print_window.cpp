#include "filetools/printing/print_window.h"

#include <memory>
#include <utility>

#include "filetools/file_name.h"
#include "filetools/printing/printing_texts.h"
#include "platform/clock.h"
#include "platform/dialogs.h"
#include "screen/meter_rec/panels.h"

namespace halden {

namespace {

constexpr Text pdf_file = {"PDF file...", "PDF 檔案..."};
constexpr Text replace_file = {"{} exists already. Replace it?", "{} 已存在，要取代嗎？"};

std::string pdf_name(const std::string& path) {
  const std::string_view name = name_of_file(path);
  return std::string(name.substr(0, name.find_last_of('.'))) + ".pdf";
}

}  // namespace

PrintWindow::PrintWindow(const Platform& platform, Windows& windows, const LinkState& link)
    : platform_(platform), link_(link) {
  windows.add(form_);
  connect();
}

void PrintWindow::connect() {
  form_.on_click(whole_file_option, [this] { choose(Choice::whole_file); });
  form_.on_click(selected_data_option, [this] { choose(Choice::selected_data); });
  form_.on_click(print_ok, [this] { ok(); });
  form_.on_click(print_close, [this] { close(); });
  form_.on_click(print_cancel, [this] { cancelled_ = true; });
  form_.on_close([this] { close(); });
}

void PrintWindow::open(const TextToPrint& text, Window& asked_by) {
  if (printing_) return form_.show();
  text_ = text;
  asked_by_ = &asked_by;
  form_.set_text(status_hint, "");
  offer_printers();
  form_.show();
}

// The choice made before stays, unless that printer is gone.
void PrintWindow::offer_printers() {
  std::vector<std::string> printers = platform_.printer.printers();
  if (printers != std::exchange(printers_, printers)) form_.set_value(printer_choice, 0);
  printers.emplace_back(pdf_file.in(link_.language));
  form_.set_lines(printer_choice, std::make_shared<const Lines>(std::move(printers)));
}

void PrintWindow::choose(Choice choice) {
  print_choice_ = choice;
  form_.set_checked(whole_file_option, choice == Choice::whole_file);
  form_.set_checked(selected_data_option, choice == Choice::selected_data);
}

// While a document is printed, only that ends.
void PrintWindow::close() {
  cancelled_ = true;
  if (!printing_) form_.hide();
}

// ---- printing ----

// A second Enter may come when the dialog is hidden already.
void PrintWindow::ok() {
  if (printing_ || !form_.visible()) return;
  form_.set_text(status_hint, "");
  const std::optional<PrintTarget> target = wanted_target();
  if (!target) return;
  show_printing(true);
  platform_.clock.pause(Yield::no, 0.0);
  platform_.printer.set_target(*target);
  const PrintedText printed = print();
  platform_.printer.set_target({});
  show_printing(false);
  report(printed);
}

std::optional<PrintTarget> PrintWindow::wanted_target() {
  const auto chosen = static_cast<std::size_t>(form_[printer_choice].value);
  if (chosen < printers_.size()) return PrintTarget{.printer = printers_[chosen], .pdf_path = ""};
  return ask_for_pdf();
}

std::optional<PrintTarget> PrintWindow::ask_for_pdf() {
  const auto path = platform_.dialogs.save_file({{{"PDF (*.pdf)", "*.pdf"}}, ".pdf", pdf_name(text_.path)});
  if (!path || path->empty()) return {};
  const std::string question = replace_file.with(link_.language, {*path});
  if (platform_.files.exists(*path) && !platform_.dialogs.confirm({question, "", Icon::question, Preset::no}))
    return {};
  return PrintTarget{.printer = "", .pdf_path = *path};
}

void PrintWindow::show_printing(bool printing) {
  printing_ = printing;
  cancelled_ = false;
  form_.set_text(print_pages, "");
  for (const std::string_view name : {printing_panel, print_pages, print_cancel})
    form_.set_visible(name, printing);
  for (const std::string_view name :
       {whole_file_option, selected_data_option, printer_choice, print_ok, print_close})
    form_.set_enabled(name, !printing);
}

PrintedText PrintWindow::print() {
  const PrintProgress progress = [this](std::size_t page) { return begin_page(page); };
  return print_choice_ == Choice::whole_file
             ? print_file(platform_.printer, platform_.files, text_.path, progress)
             : print_lines(platform_.printer, text_.selected, progress);
}

// Before the first page no document has begun: another print that the user starts would go into it.
bool PrintWindow::begin_page(std::size_t page) {
  form_.set_text(print_pages, printing_text(page, link_.language));
  if (page > 1) let_events_run(platform_.clock);
  return !cancelled_;
}

// After a failure of the printer the dialog stays, so that the user can choose another one.
void PrintWindow::report(const PrintedText& printed) {
  const std::string text = printed_text(printed, platform_.printer.destination(), link_.language);
  if (printed.printer != PrintFailure::none) return form_.set_text(status_hint, text);
  form_.hide();
  if (printed.file == FileFailure::none)
    asked_by_->set_text(status_hint, text);
  else
    platform_.dialogs.message({text, "", Icon::none});
}

}  // namespace halden
