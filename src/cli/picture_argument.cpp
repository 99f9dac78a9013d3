#include "cli/picture_argument.h"

#include <CLI/CLI.hpp>

#include "cli/command.h"
#include "cli/session.h"
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

int end_with_picture(Files& files, const OpenOffscreen& open_offscreen, const std::string& path,
                     const std::function<FileFailure(Pictures&)>& save) {
  const OffscreenStart start = open_offscreen(files);
  if (!start.offscreen) return end_with_failure(start.failure);
  const FileFailure failure = save(start.offscreen->pictures());
  if (failure == FileFailure::none) return exit_done;
  return end_with_failure(path + ": " + std::string(write_failure_text(failure, Language::english)) + ".");
}

}  // namespace halden
