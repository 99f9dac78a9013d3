// `haldenctl record`: writes the readings of the meter's power mode to a data file, the same as the program
// with windows does.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "app/program.h"
#include "cli/command.h"
#include "cli/session.h"

namespace halden {

enum class ExistingFile { refused, appended_to };

struct RecordOptions {
  std::string file;  // UTF-8
  ExistingFile existing = ExistingFile::refused;
  std::int16_t sample_s = 2;         // 2 to 32767
  std::optional<int> records;        // end after that many
  std::optional<double> duration_s;  // end after that time
  Format format = Format::text;      // of the summary
};

class RecordRun : public LiveListener {
 public:
  // All outlive the run. Without a number of records and a duration it runs until finish().
  RecordRun(Program& program, const RecordOptions& options, Terminal& terminal);
  ~RecordRun() override { program_.live.monitor.remove_listener(*this); }
  RecordRun(const RecordRun&) = delete;
  RecordRun& operator=(const RecordRun&) = delete;

  // Starts recording; fails in harmonics mode and when the file cannot be written.
  void start();

  // Ends the recording and the command, and says how many records there are and where.
  void finish();

  // Called twice a second: ends when the duration is over, and says when lines begin or cease to wait.
  void check_progress();

  // Ends at the last record.
  void frame_shown() override;

 private:
  Program& program_;
  RecordOptions options_;
  Terminal& terminal_;
  bool runs_ = false;
  double began_s_ = 0;
  bool lines_wait_ = false;
};

}  // namespace halden
