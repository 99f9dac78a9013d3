// Recording what the main window shows into a data file: creating it, starting, one line per sampling instant
// or per press of the button, ending.
//
//   no file           "Create Data File" is offered
//   file ready        "Start Recording" as well
//   recording         only "End Recording"; by hand with the record button shown
//
// A line that cannot be written stays in memory and is tried again with every further line. When lines still
// wait at the end of the recording, the user is asked for another file; without one they are rescued. Only
// when that fails as well and the user gives them up are they lost.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <utility>

#include "formats/data_file.h"
#include "link/exchange.h"
#include "link/link_state.h"
#include "live/live_view.h"
#include "live/recording/recording_texts.h"
#include "live/recording/rescue.h"
#include "live/sample_clock.h"
#include "platform/platform.h"
#include "readings/wiring.h"
#include "screen/window.h"

namespace halden {

class Recording : public LiveListener {
 public:
  // All outlive the recording. Connects the menu entries and the record button of the main window.
  Recording(const Platform& platform, const LinkState& link, Exchange& exchange, const LiveViews& views,
            SampleClock& sample_clock, Window& meter_rec, Window& notice, Rescue& rescue);
  Recording(const Recording&) = delete;
  Recording& operator=(const Recording&) = delete;

  // Tells the user which files hold the rescued lines of earlier recordings.
  void tell_rescued();

  // The user's actions. Creating and ending return what settle_waiting returns.
  std::string create_data_file();
  void begin_data_file(const std::string& path);  // the same once the file is chosen
  void start_automatic();
  void start_manual();
  void record_once();
  std::string end_recording();

  // Called when a recording has started: whoever has stopped polling lets it go on.
  void on_started(std::function<void()> handler) { started_ = std::move(handler); }

  // Records what is shown when a record is due.
  void frame_shown() override;

  // Writes at most one line per sampling instant.
  void no_communication() override;

  // Asks for another file until the waiting lines are written, rescued or given up by the user. Returns a
  // sentence that names the rescue file or says how many lines are lost; empty when all were written.
  std::string settle_waiting();

  // The program ends at once: waiting lines are written to the rescue file.
  void rescue_waiting();

  // Whether a recording runs, until its end.
  bool runs() const;

  RecordingStatus status() const;

  const DataFile& file() const { return file_; }

  // How many records were made since the data file was created, written or waiting.
  std::size_t records() const { return records_; }

 private:
  void connect();
  void set_create_caption();
  void no_file_chosen();
  bool may_append_to(const std::string& path);
  void raise_short_sampling_time();
  void start(std::int16_t manual);
  void set_recording_notice(std::int16_t flag);  // 1 shows the recording notice, 0 hides it

  Platform platform_;
  const LinkState& link_;
  const LiveViews& views_;
  SampleClock& sample_clock_;
  Window& window_;
  Window& notice_;
  Rescue& rescue_;
  std::function<void()> started_ = [] {};
  DataFile file_;
  std::int16_t data_file_ready_ = 0;
  std::int16_t manual_recording_ = 0;
  std::int16_t record_pending_ = 0;
  RecordSource source_;                   // of the data file
  bool sign_cut_ = false;                 // in a line of this file
  bool columns_changed_ = false;          // a line of this file has other columns than its header
  Wiring header_wiring_ = Wiring::w3p4w;  // whose columns the header line names
  std::size_t records_ = 0;
  std::size_t lost_lines_ = 0;  // no-communication lines
  std::string last_lost_time_;  // the sampling instant of the last no-communication line
};

}  // namespace halden
