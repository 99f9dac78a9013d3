#include "cli/hardcopy_command.h"

#include <CLI/CLI.hpp>
#include <memory>
#include <optional>

#include "cli/picture_argument.h"
#include "cli/process_io.h"
#include "filetools/hardcopy/hardcopy_file.h"
#include "filetools/open_failure.h"

namespace halden {

namespace {

constexpr std::size_t most_pictures = 1'000'000;

struct Typed {
  std::string file;
  std::optional<std::size_t> number;  // of the picture in the file, from 1 on
  std::string picture;
};

// In one sentence why there is no such picture; empty when there is.
std::string failure_of(const HardcopyFile& file, std::size_t number) {
  const std::size_t count = file.pictures.size();
  if (count == 0) return std::string(open_failure_message(file.failure));
  if (number > count)
    return count == 1 ? "The file has only one picture."
                      : "The file has only " + std::to_string(count) + " pictures.";
  return file.pictures[number - 1].bytes.empty() ? "The file has no picture." : "";
}

// Which picture it is needs no words when the user has named it.
void tell_about(const HardcopyFile& file, std::size_t number, bool named) {
  const std::string hint = hardcopy_hint(file, number - 1, Language::english);
  if (!hint.empty() && (!named || file.pictures[number - 1].missing_bytes() > 0)) write_remark(hint + "\n");
}

int run_hardcopy(Files& files, const OpenOffscreen& open_offscreen, const Typed& typed) {
  const HardcopyFile file = read_hardcopies(files, typed.file);
  const std::size_t number = typed.number.value_or(1);
  if (const std::string failure = failure_of(file, number); !failure.empty())
    return end_with_failure(failure);
  tell_about(file, number, typed.number.has_value());
  return end_with_picture(files, open_offscreen, typed.picture, [&](Pictures& pictures) {
    return pictures.save_dots(dot_picture(file.pictures[number - 1]), typed.picture);
  });
}

}  // namespace

void add_hardcopy_command(CLI::App& app, Files& files, const OpenOffscreen& open_offscreen,
                          ChosenCommand& chosen) {
  const auto typed = std::make_shared<Typed>();
  CLI::App* const command =
      app.add_subcommand("hardcopy", "Draw a stored picture of the meter's display into a picture file");
  command->add_option("file", typed->file, "The file of the hardcopy download")
      ->type_name("FILE")
      ->required();
  command->add_option("--picture", typed->number, "Which one, in a file of several; the first if not given")
      ->type_name("N")
      ->check(CLI::Range(std::size_t{1}, most_pictures).description(""));
  add_picture_option(*command, typed->picture);
  command->callback([typed, &files, open_offscreen, &chosen] {
    chosen = [typed, &files, open_offscreen](const OpenSession&) {
      return run_hardcopy(files, open_offscreen, *typed);
    };
  });
}

}  // namespace halden
