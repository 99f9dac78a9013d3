// Recording what the main window shows into a data file: creating it, starting, one line per sampling instant
// or per press of the button, ending.
//
//   no file           "Create Data File" is offered
//   file ready        "Start Recording" as well
//   recording         only "End Recording"; by hand with the record button shown
//
// A line that cannot be written stays in memory and is tried again with every next one (formats/data_file.h);
// what still waits when a recording ends is offered to the user for another file, and rescued otherwise.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "formats/data_file.h"
#include "link/link_state.h"
#include "link/meter_status.h"
#include "live/recording_texts.h"
#include "live/rescue.h"
#include "live/sample_clock.h"
#include "live/view_selection.h"
#include "platform/platform.h"
#include "screen/main_window.h"

namespace halden {

// The program-wide values a recording reads.
struct RecordingSources {
  const LinkState& link;
  const MeterStatus& status;
  const HarmonicsView& view;
  const std::string& last_sample_time;  // the sampling instant the live poll saw last
};

class Recording {
 public:
  Recording(const Platform& platform, RecordingSources sources, SampleClock& sample_clock, Screen& screen,
            Rescue& rescue);

  // The user's actions. Creating and ending say where the lines lie that could not be written to their data
  // file; empty when there are none.
  std::string create_data_file();
  void begin_data_file(const std::string& path);  // the same once the file is chosen
  void start_automatic();
  void start_manual();
  void record_once();
  std::string end_recording();

  // After each completed live reading. The caller updates last_sample_time afterwards.
  void recording_step();

  // At every tick while the meter does not answer: at most one line per sampling instant.
  void no_communication_step();

  // Fills header_line for the current wiring system; an unknown one leaves it as it is.
  void write_header();

  // Fills data_record with the texts the main window shows; empty for an unknown wiring system.
  void save_sys_data();

  // 1 shows the recording notice, 0 hides it.
  void set_recording_notice(std::int16_t flag);

  // Asks where the lines shall go that still wait, until they are written or the user gives them up. Where
  // they lie when that is no file of the user's choice.
  std::string settle_waiting();

  // The program ends at once: what still waits goes to the rescue file.
  void rescue_waiting();

  // Whether a recording runs, until its end.
  bool runs() const;

  RecordingState state() const;

  const DataFile& file() const { return file_; }

  // How many records were made since the data file was created, written or waiting.
  std::size_t records() const { return records_; }

  std::string data_file_name;
  std::int16_t data_file_ready = 0;
  std::int16_t manual_recording = 0;
  std::int16_t record_pending = 0;
  std::string data_record;
  std::string header_line;

 private:
  void no_file_chosen();
  RecordKind kind_of_view() const;
  bool may_append_to(const std::string& path);
  void raise_short_sampling_time();
  std::string header();
  void start(std::int16_t manual);
  const std::string& sampling_instant() const;

  Platform platform_;
  RecordingSources from_;
  SampleClock& sample_clock_;
  Window& window_;
  Window& notice_;
  Rescue& rescue_;
  DataFile file_;
  RecordKind kind_ = RecordKind::power;
  std::size_t records_ = 0;
  std::string last_lost_time_;  // the sampling instant of the last no-communication line
};

}  // namespace halden
