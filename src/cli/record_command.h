// `haldenctl record`: writes the readings of the meter to a data file, the same as the program with windows
// does. The view that runs decides what kind of file it is: power, harmonics or waveform.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "app/program.h"
#include "cli/command.h"
#include "cli/session.h"
#include "cli/view_choice.h"

namespace halden {

enum class OrderValues { percent, angle };

struct RecordOptions {
  std::string file;  // UTF-8
  ExistingFile existing = ExistingFile::refused;
  std::int16_t sample_s = 2;  // 2 to 32767; at least 4 for a waveform file
  ViewChoice view = ViewChoice::by_meter_mode;
  std::optional<OrderValues> orders;  // of a harmonics file; percent where nothing is given
  std::optional<int> records;         // end after that many
  std::optional<double> duration_s;   // end after that time
  Format format = Format::text;       // of the summary
};

class RecordRun : public LiveListener {
 public:
  // All outlive the run. Without a number of records and a duration it runs until finish().
  RecordRun(Program& program, const RecordOptions& options, Terminal& terminal);
  ~RecordRun() override { program_.live.monitor.remove_listener(*this); }
  RecordRun(const RecordRun&) = delete;
  RecordRun& operator=(const RecordRun&) = delete;

  // Starts recording. Fails when the values of the orders are chosen and the meter is in power mode, and when
  // the file cannot be written.
  void start();

  // Ends the recording and the command, and says how many records there are and where.
  void finish();

  // Called twice a second: ends when the duration is over. Says when lines begin or cease to wait or readings
  // begin or cease to be of another input, and once that the meter has been switched to its other mode.
  void check_progress();

  // Ends at the last record.
  void frame_shown() override;

 private:
  // What the user is told when it changes.
  struct Trouble {
    bool lines_wait = false;
    bool other_source = false;
    bool operator==(const Trouble&) const = default;
  };

  bool begin_file();
  void note_trouble();

  Program& program_;
  RecordOptions options_;
  Terminal& terminal_;
  bool runs_ = false;
  double began_s_ = 0;
  Trouble trouble_;
  bool other_mode_noted_ = false;
};

}  // namespace halden
