// The whole program without its windows: builds every object in order and hands each its neighbours.
//
// Windows, tests and haldenctl drive it the same way: start_up once, then clicks by the control's name; what
// is to be seen stands in screen(). Timer ticks come from the platform.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "platform/platform.h"

namespace halden {

struct Screen;
class SettingsPanel;
class Window;
struct Program;

struct StartOptions {
  std::string work_folder = ".";     // holds language.pha and commport.dat
  std::string program_folder = ".";  // holds help/
  std::string temporary_folder;      // for recorded lines when the working folder cannot be written
  int first_port = 0;                // the port to start with where there is no commport.dat; 0 asks for one
};

class Companion {
 public:
  Companion(Platform platform, StartOptions options);
  ~Companion();
  Companion(const Companion&) = delete;
  Companion& operator=(const Companion&) = delete;

  // Runs the start-up procedure; it ends with the main window shown. Call through dispatch().
  void start_up();

  // A click on a menu entry or button of the main or the phasor window by its name ("port_number_3",
  // "get_hz"). Nothing happens when the control is disabled or hidden, or has no action.
  void click(std::string_view control);

  // Whether the program is talking to the meter: a setting, a status query, a tick of the live view.
  bool exchange_runs() const;

  // The main window was shown, or a change of its size has settled.
  void main_window_resized();

  // The user closed the main window by its frame, or the system asks the program to end: it ends at once.
  void main_window_closed();

  // The same for the phasor window, whose closing leaves the program alone.
  void phasor_form_resized();
  void phasor_form_closed();

  // Brings the status line up to date; cheap.
  void refresh_status_line();

  // Every window as values. A window on the screen writes edited boxes back here.
  Screen& screen();

  // The objects behind it, for haldenctl and tests.
  Program& program();

 private:
  void connect_actions();
  void connect_recording();
  void connect_phasors();
  const Window* window_of(std::string_view control) const;
  void add_exchange(const std::string& control, std::function<void()> exchange);
  void add_setting(const std::string& control, std::string_view caption, void (SettingsPanel::*send)());
  void choose_language(std::int16_t language);
  void show_language();
  void exit();
  void print_main_window();
  void tell_rescued();

  std::unique_ptr<Program> program_;
  StartOptions options_;
  std::map<std::string, std::function<void()>, std::less<>> actions_;
};

}  // namespace halden
