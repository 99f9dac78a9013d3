#include "cli/print_command.h"

#include <CLI/CLI.hpp>
#include <memory>
#include <string>

#include "cli/process_io.h"
#include "cli/session.h"
#include "filetools/open_failure.h"
#include "filetools/printing/printing_texts.h"
#include "filetools/printing/text_printing.h"
#include "platform/pictures.h"

namespace halden {

namespace {

struct Typed {
  std::string file;
  std::string pdf;
};

std::string check_ending(const std::string& path) {
  return picture_kind(path) == PictureKind::pdf ? std::string()
                                                : "expected a file that ends in .pdf, not \"" + path + "\"";
}

// A file that cannot be opened must not replace a PDF file that is there already.
int run_print(Files& files, const OpenOffscreen& open_offscreen, const Typed& typed) {
  if (const OpenedFile opened = files.open(typed.file); opened.failure != FileFailure::none)
    return end_with_failure(std::string(open_failure_message(opened.failure)));
  const OffscreenStart start = open_offscreen(files);
  if (!start.offscreen) return end_with_failure(start.failure);
  Printer& printer = start.offscreen->printer(typed.pdf);
  note_interruptions();
  const PrintedText printed =
      print_file(printer, files, typed.file, [](std::size_t) { return !interrupted(); });
  const std::string sentence = printed_text(printed, printer.destination(), Language::english);
  const bool done = printed.pages > 0 && !printed.cancelled && printed.file == FileFailure::none &&
                    printed.printer == PrintFailure::none;
  if (!done) return end_with_failure(sentence);
  write_remark(sentence + "\n");
  return exit_done;
}

}  // namespace

void add_print_command(CLI::App& app, Files& files, const OpenOffscreen& open_offscreen,
                       ChosenCommand& chosen) {
  const auto typed = std::make_shared<Typed>();
  CLI::App* const command = app.add_subcommand("print", "Print the lines of a text file into a PDF file");
  command->add_option("file", typed->file, "The text file")->type_name("FILE")->required();
  command->add_option("--out", typed->pdf, "The PDF file; one that is there is replaced")
      ->type_name("FILE.pdf")
      ->required()
      ->check(check_ending);
  command->callback([typed, &files, open_offscreen, &chosen] {
    chosen = [typed, &files, open_offscreen](const OpenSession&) {
      return run_print(files, open_offscreen, *typed);
    };
  });
}

}  // namespace halden
