// `haldenctl logger`: what the meter has stored, its downloads, and clearing its memory.

#include <CLI/CLI.hpp>
#include <memory>
#include <utility>

#include "cli/command.h"
#include "cli/logger_progress.h"
#include "cli/logger_run.h"

namespace halden {

namespace {

constexpr int progress_period_ms = 500;
constexpr int highest_number = 99;  // it has two digits

struct Typed {
  CommonOptions common;
  std::string file;
  ExistingFile existing = ExistingFile::refused;
  std::optional<int> number;
  std::string folder;
  bool sure = false;
};

using Work = std::function<void(LoggerRun& run, const Typed& typed)>;

int run_logger(const OpenSession& open, const Typed& typed, const Work& work) {
  const auto session = open(typed.common.port, Interruption::is_failure, FileAccess::disk_and_private_folder);
  Program& program = session->program();
  if (!typed.file.empty() && is_refused(program.platform.files, typed.file, typed.existing))
    return exit_failed;
  LoggerRun run(
      program, [&] { return session->last_message(); }, typed.common.format, *session);
  LoggerProgress progress(program.shared.windows["Logger"], program.shared.notice, *session);
  session->every(progress_period_ms, [&] { progress.show(); });
  return session->run([&] {
    session->on_each_interruption([&] { run.interrupt(); });
    work(run, typed);
  });
}

using TypedOptions = std::shared_ptr<Typed>;

// One of the commands behind "logger", with the options that all of them have.
CLI::App& add_command(CLI::App& logger, const char* name, const char* description, const TypedOptions& typed,
                      ChosenCommand& chosen, Work work) {
  CLI::App* const command = logger.add_subcommand(name, description);
  add_common_options(*command, typed->common);
  command->callback([typed, &chosen, work = std::move(work)] {
    chosen = [typed, work](const OpenSession& open) { return run_logger(open, *typed, work); };
  });
  return *command;
}

void add_list(CLI::App& logger, ChosenCommand& chosen) {
  add_command(logger, "list",
              "Print how each stored file was recorded; the meter takes about twenty seconds for each",
              std::make_shared<Typed>(), chosen, [](LoggerRun& run, const Typed&) { run.list(); });
}

void add_download(CLI::App& logger, ChosenCommand& chosen) {
  const auto typed = std::make_shared<Typed>();
  CLI::App& command =
      add_command(logger, "download", "Download the selected file, or that with the number given", typed,
                  chosen, [](LoggerRun& run, const Typed& with) { run.download(with.file, with.number); });
  add_output_options(command, "The file to write", typed->file, typed->existing);
  command.add_option("--index", typed->number, "The number of the file, from 0; it stays selected")
      ->type_name("K")
      ->check(CLI::Range(0, highest_number).description(""));
}

void add_download_all(CLI::App& logger, ChosenCommand& chosen) {
  const auto typed = std::make_shared<Typed>();
  CLI::App& command =
      add_command(logger, "download-all", "Download all files that are not yet whole in a folder", typed,
                  chosen, [](LoggerRun& run, const Typed& with) { run.download_all(with.folder); });
  command.add_option("--dir", typed->folder, "The folder, which must exist")
      ->type_name("DIR")
      ->required()
      ->check(CLI::ExistingDirectory.description(""));
}

void add_transient(CLI::App& logger, ChosenCommand& chosen) {
  const auto typed = std::make_shared<Typed>();
  CLI::App& command = add_command(
      logger, "transient", "Wait for the TRANSIENT button of the meter, then take its report", typed, chosen,
      [](LoggerRun& run, const Typed& with) { run.download_transient(with.file); });
  add_output_options(command, "The file to write", typed->file, typed->existing);
}

void add_clear(CLI::App& logger, ChosenCommand& chosen) {
  const auto typed = std::make_shared<Typed>();
  CLI::App& command = add_command(logger, "clear", "Erase all stored files", typed, chosen,
                                  [](LoggerRun& run, const Typed&) { run.clear(); });
  command.add_flag("--yes", typed->sure, "They are not needed any more");
  command.parse_complete_callback([typed] {
    if (!typed->sure)
      throw CLI::ValidationError("clear", "all files in the meter would be erased; give --yes to do that");
  });
}

}  // namespace

void add_logger_command(CLI::App& app, ChosenCommand& chosen) {
  CLI::App* const logger = app.add_subcommand("logger", "List, download and clear what the meter has stored");
  logger->require_subcommand(1);
  add_list(*logger, chosen);
  add_download(*logger, chosen);
  add_download_all(*logger, chosen);
  add_transient(*logger, chosen);
  add_clear(*logger, chosen);
}

}  // namespace halden
