#include "link/polling_pause.h"

#include <algorithm>

#include "screen/meter_rec/panels.h"

namespace halden {

void PollingPause::begin(Window& window) {
  if (recording_runs()) return;
  if (std::find(windows_.begin(), windows_.end(), &window) == windows_.end()) windows_.push_back(&window);
  window.set_visible(polling_note, true);
  apply();
}

void PollingPause::end(Window& window) {
  if (std::erase(windows_, &window) == 0) return;
  window.set_visible(polling_note, false);
  if (windows_.empty()) apply();
}

void PollingPause::end_all() {
  if (windows_.empty()) return;
  for (Window* const window : windows_) window->set_visible(polling_note, false);
  windows_.clear();
  apply();
}

// An exchange that runs is left to its end. While the datalogger is open, polling stands still anyway and
// goes on when that is closed.
void PollingPause::apply() {
  windows_.empty() ? polling_.end_pause() : polling_.pause();
  if (polling_.line_is_held()) return;
  gate_.run("polling pause", [this] { polling_.resume_polling(windows_.empty() ? 1 : 0); });
}

}  // namespace halden
