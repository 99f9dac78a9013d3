#include "cli/picture_argument.h"

#include <CLI/CLI.hpp>

#include "cli/process_io.h"
#include "cli/session.h"
#include "platform/pictures.h"
#include "screen/failure_texts.h"

namespace halden {

namespace {

std::string check_ending(const std::string& path) {
  return picture_kind(path) ? std::string()
                            : "expected a file that ends in .png, .svg or .pdf, not \"" + path + "\"";
}

}  // namespace

void add_picture_option(CLI::App& command, std::string& path) {
  command.add_option("--out", path, "The picture: .png, .svg or .pdf")
      ->type_name("FILE")
      ->required()
      ->check(check_ending);
}

int end_with_picture(FileFailure failure, const std::string& path) {
  if (failure == FileFailure::none) return exit_done;
  write_remark(path + ": " + std::string(write_failure_text(failure, Language::english)) + ".\n");
  return exit_failed;
}

}  // namespace halden
