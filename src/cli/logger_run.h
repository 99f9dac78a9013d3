// What the commands of `haldenctl logger` do with the meter's memory. Each of them stops live polling, and
// ends the command.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "app/program.h"
#include "cli/command.h"
#include "cli/session.h"
#include "logger/result_texts.h"

namespace halden {

class LoggerRun {
 public:
  // All outlive the run. `last_message` gives the program's last message, empty when there was none.
  LoggerRun(Program& program, std::function<std::string()> last_message, Format format, Terminal& terminal);

  // Prints a record for each stored file. The meter tells only about the selected one: every other one is
  // selected in turn, and the former one again at the end.
  void list();

  // Of the selected file, or of the one with that number. What had arrived of a transfer that was cut is in
  // the file; the command has failed then.
  void download(const std::string& file, std::optional<int> number);

  // Prints a record for each file as soon as it is dealt with. Fails unless all are whole.
  void download_all(const std::string& folder);

  // The user presses the button on the meter.
  void download_transient(const std::string& file);

  // Fails unless the meter says afterwards that it holds no files.
  void clear();

  // Ends a transfer, then the wait for the meter's silence. The third interruption ends the command at once,
  // because the meter may have been asked for its status, which takes nine seconds.
  void interrupt();

 private:
  std::optional<int> count_stored_files();
  bool select(int number);
  bool stopped();
  void note_messages(const std::string& before);
  void tell_result(Record record, const std::string& file, const DownloadResult& result);
  void print_file(const FileOfRun& file, const std::string& folder);
  void end_run(const RunResult& run, const std::string& folder);

  Program& program_;
  const MeterStatus& status_;
  Datalogger& datalogger_;
  std::function<std::string()> last_message_;
  const Format format_;
  Terminal& terminal_;
  int interruptions_ = 0;
};

}  // namespace halden
