// The print dialog PrintFile: prints a text file, or the lines that are selected in the viewer, on a printer
// or into a PDF file.
#pragma once

#include <optional>
#include <string>

#include "filetools/printing/print_form.h"
#include "filetools/printing/text_printing.h"
#include "filetools/text_to_print.h"
#include "link/link_state.h"
#include "platform/platform.h"
#include "platform/printer.h"
#include "screen/windows.h"

namespace halden {

class PrintWindow {
 public:
  // All outlive the window.
  PrintWindow(const Platform& platform, Windows& windows, const LinkState& link);
  PrintWindow(const PrintWindow&) = delete;
  PrintWindow& operator=(const PrintWindow&) = delete;

  // The status line of the other window, which outlives this one, says what became of the print.
  void open(const TextToPrint& text, Window& asked_by);

 private:
  enum class Choice { whole_file, selected_data };

  void connect();
  void choose(Choice choice);
  void offer_printers();
  void ok();
  void close();

  std::optional<PrintTarget> wanted_target();
  std::optional<PrintTarget> ask_for_pdf();
  void show_printing(bool printing);
  PrintedText print();
  bool begin_page(std::size_t page);
  void report(const PrintedText& printed);

  Platform platform_;
  const LinkState& link_;
  Window form_ = make_print_form();
  Choice print_choice_ = Choice::whole_file;
  TextToPrint text_;
  Window* asked_by_ = nullptr;
  std::vector<std::string> printers_;
  bool printing_ = false;
  bool cancelled_ = false;
};

}  // namespace halden
