// Everything that belongs to the program as a whole and to no view: start and end, the language, the help,
// and the print of the main window.
#pragma once

#include "app/configuration.h"
#include "app/live.h"
#include "app/port_choice.h"
#include "app/shared.h"
#include "app/start_options.h"
#include "app/status_line.h"
#include "link/link.h"
#include "platform/platform.h"

namespace halden {

class Application {
 public:
  // All outlive this. Connects the menu entries and buttons that no other room connects.
  Application(const Platform& platform, const StartOptions& options, Shared& shared, Link& link, Live& live);
  Application(const Application&) = delete;
  Application& operator=(const Application&) = delete;

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

  const Platform& platform_;
  const StartOptions& options_;
  Shared& shared_;
  Window& meter_rec_;
  Link& link_;
  Live& live_;
  Configuration configuration_;
  StatusLine status_line_;
  PortChoice port_choice_;
};

}  // namespace halden
