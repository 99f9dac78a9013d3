// `haldenctl live`: prints the readings of every frame, as the main window shows them: power readings, or in
// harmonics mode the spectrum or the waveform. On a terminal power readings and spectrum are one table that
// every frame replaces.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "app/program.h"
#include "cli/command.h"
#include "cli/live_table.h"
#include "cli/session.h"
#include "platform/clock.h"
#include "readings/wiring.h"
#include "screen/window.h"

namespace halden {

struct LiveOptions {
  std::optional<int> count;  // ends after that many frames; without, it never ends by itself
  Format format = Format::text;
};

// With a count, the command fails after that long without a frame.
inline constexpr double longest_silence_s = 30.0;

// Prints what the view that runs shows after each frame. The program has been started up and polls the meter.
class LiveReport : public LiveListener {
 public:
  // All outlive the report.
  LiveReport(Program& program, const LiveOptions& options, Terminal& terminal);
  ~LiveReport() override { program_.live.monitor.remove_listener(*this); }
  LiveReport(const LiveReport&) = delete;
  LiveReport& operator=(const LiveReport&) = delete;

  // From now on frames are printed.
  void start();

  // Says once that no readings come, and fails when none have come for too long; called twice a second.
  void check_silence();

  // Ends the command; the terminal is left with the last table and the cursor below it.
  void finish();

  void frame_shown() override;

 private:
  std::string silence_remark(double silent_s) const;
  std::vector<std::vector<std::string>> tables(const std::string& time) const;
  Record record(const std::string& time) const;
  bool print_table(const std::string& time);
  void print_block(const std::string& time);

  Program& program_;
  LiveOptions options_;
  Terminal& terminal_;
  RedrawnLines table_;
  bool started_ = false;
  int frames_ = 0;
  double last_frame_s_ = 0.0;
  bool silence_noted_ = false;
};

// "time", and the texts of the visible phase, line, system and unbalance panels under the panels' names.
Record live_record(const Window& meter_rec, const std::string& time);

// Adds the angles of the vectors in use, "v2_phasor_angle" and so on, in degrees.
void add_phasor_angles(const PhasorAngles& angles, Wiring wiring_system, Record& record);

// The clock's local time as "2026-11-22T12:30:44.250".
std::string local_time_text(const Clock& clock);

}  // namespace halden
