// A simulated Halden: it takes request bytes and gives reply bytes at the rate of the 9600 baud line. It is
// written from what the meter sends and shares no decoder with the rest of the program.
//
//   request           answer
//   " "               power mode: power frame; harmonics mode: harmonics frame
//   "W"               harmonics mode: waveform frame; power mode: none
//   "?"               status reply
//   C V F M S R       commands with a number, no answer (setting_commands.h); "R" selects a stored file
//   0x04              the bytes of the selected file; none while no file is stored
//   0x03 0x03         erases all stored files, no answer; a byte between them or more than 5 s calls it off
//   any other byte    ignored
//
// The transient report is sent without a request, when its button on the meter is pressed.
//
// A reply starts a latency after its request and follows the reply still being sent. While one reply is
// being sent, at most one further request is kept, because the memory of the meter is small. A
// meter with the fault "restarts" starts anew instead.
//
// Times are monotonic seconds given by the caller, from any starting point; they never go back.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "simulator/faults.h"
#include "simulator/load.h"
#include "simulator/memory.h"
#include "simulator/meter_settings.h"
#include "simulator/sending.h"
#include "simulator/setting_commands.h"

namespace halden::simulator {

struct ReceivedByte {
  double time_s = 0.0;
  char byte = '\0';
};

class Meter {
 public:
  explicit Meter(MeterSettings settings = {}) : settings_(settings) {}

  // The first call of receive or take_output is the moment of settings().clock_start, and 0 of the load's
  // time.
  void receive(std::string_view bytes, double now_s);

  // The user presses the button that sends the transient report.
  void press_transient(double now_s);

  // Everything that has arrived at the other end and was not taken yet; the newest 64 KiB of it, or as many
  // bytes as the longest reply has.
  std::string take_output(double now_s);
  std::size_t output_waiting(double now_s) const;

  // When the next byte arrives, later than now_s; infinity when none is on its way.
  double next_output_s(double now_s) const;

  MeterSettings& settings() { return settings_; }
  Load& load() { return load_; }
  Faults& faults() { return faults_; }

  // Once it holds a file, the status reply tells the selected file instead of settings().logger.
  Memory& memory() { return memory_; }

  // Called with each live frame that is going to be sent and the time of its request. The meter keeps no
  // list of what it sent; a test of a long run keeps its own.
  std::function<void(double time_s, const std::string& frame)> on_frame;

  // The bytes received so far with their times; of a long run the newest 90,000 to 100,000.
  const std::vector<ReceivedByte>& log() const { return log_; }

 private:
  void advance(double now_s);
  double uptime_s(double now_s) const { return now_s - switched_on_s_; }
  void log_byte(char byte, double now_s);
  void take_byte(char byte, double now_s);
  void take_erase_byte(double now_s);
  void answer(char request, double now_s);
  bool may_send() const;
  void send(Transmission reply);
  void send_file(const std::string& bytes, double now_s);
  std::string status(double now_s) const;
  std::string reply_to(char request, double now_s);
  std::string live_reply(char request, double now_s) const;

  MeterSettings settings_;
  Load load_;
  Faults faults_;
  Memory memory_;
  SettingCommands commands_;
  std::optional<double> first_erase_byte_s_;
  SendQueue replies_;
  EndlessStream stream_;
  std::vector<ReceivedByte> log_;
  bool switched_on_ = false;
  double switched_on_s_ = 0.0;
};

}  // namespace halden::simulator
