// The program with its windows: builds the platform on Qt, the logic that uses it, and the windows that show
// the logic's values.
#pragma once

#include <QIcon>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "screen/ui/theme.h"

namespace halden {

struct DesktopOptions {
  bool demo = false;                                 // COM 1 is the simulated meter
  std::vector<std::pair<int, std::string>> devices;  // devices for ports, instead of the usual ones
  std::string work_folder = ".";
  std::vector<std::string> open_files;  // stored files, opened after the start-up
  std::string screenshot;               // where to write a picture of the main window; empty for none
  double screenshot_after_s = 1.0;      // from the moment the main window shows
  std::optional<Look> look;             // that of the desktop where none is given
};

// Why no window can be shown, as one sentence for the user; empty when one can be.
std::string missing_display();

// The icon of every window.
QIcon program_icon();

// Runs the program until it ends. Returns its exit code: 0, or 1 when the picture asked for could not be
// written.
int run_desktop(int& argc, char** argv, const DesktopOptions& options);

}  // namespace halden
