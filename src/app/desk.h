// What belongs to the program as a whole and to no view: its start and its end, the language, the help, and
// the print of the main window.
#pragma once

#include <string>

#include "app/configuration.h"
#include "app/port_choice.h"
#include "app/status_line.h"
#include "link/link.h"
#include "live/live_monitor.h"
#include "live/recording/recording.h"
#include "live/view_selection.h"
#include "platform/platform.h"
#include "screen/windows.h"

namespace halden {

struct StartOptions {
  std::string work_folder = ".";     // holds language.pha and commport.dat
  std::string program_folder = ".";  // holds help/
  std::string temporary_folder;      // for recorded lines when the working folder cannot be written
  int first_port = 0;                // the port to start with where there is no commport.dat; 0 asks for one
};

class Desk {
 public:
  // All outlive the desk. Connects the entries of the main window that no other room connects.
  Desk(const Platform& platform, StartOptions options, Windows& windows, Window& meter_rec, Window& notice,
       const LabelColumns& label_column_left, Link& link, SampleClock& sample_clock, LiveMonitor& monitor,
       ViewSelection& views, Recording& recording);
  Desk(const Desk&) = delete;
  Desk& operator=(const Desk&) = delete;

  // The start-up procedure; it ends with the main window shown. Call through dispatch().
  void start_up();

  // Brings the status line up to date; cheap.
  void refresh_status_line() { status_line_.refresh(); }

 private:
  void connect();
  void choose_language(Language language);
  void show_language();
  void exit();
  void print_main_window();

  Platform platform_;
  StartOptions options_;
  Windows& windows_;
  Window& meter_rec_;
  Window& notice_;
  const LabelColumns& label_column_left_;
  Link& link_;
  SampleClock& sample_clock_;
  ViewSelection& views_;
  Recording& recording_;
  Configuration configuration_;
  StatusLine status_line_;
  PortChoice port_choice_;
};

}  // namespace halden
