// Which live view the main window shows: the user opens and closes them from the menu; a view that does not
// fit the meter's mode gives way, after every status query and whenever the window is shown or resized.
#pragma once

#include <functional>

#include "link/link.h"
#include "live/harmonics_options.h"
#include "live/live_view.h"
#include "platform/platform.h"
#include "screen/window.h"

namespace halden {

class ViewSelection {
 public:
  // All outlive this. Connects the entries of the menus Harmonics and Waveform.
  ViewSelection(const Platform& platform, Link& link, const LiveViews& views, HarmonicsOptions& options,
                Window& meter_rec);
  ViewSelection(const ViewSelection&) = delete;
  ViewSelection& operator=(const ViewSelection&) = delete;

  // A meter in power mode closes the harmonics or waveform view; one in harmonics mode opens the harmonics
  // view with 51 orders in percent. A view that fits the mode stays.
  void select_by_meter_mode();

  // The menu entries: ask the meter for its status, which takes about 14 s. A meter in power mode leaves the
  // view as it is, and the user is told.
  void open_harmonics(const HarmonicsOptions& options);
  void open_waveform();

  // Back to the power view, with everything of the harmonics and waveform views hidden.
  void close_view();

 private:
  void connect();
  bool view_fits() const;
  void follow_status();
  void open(const std::function<void()>& show);
  void show_harmonics(const HarmonicsOptions& options);
  void show_frequency();
  void show_waveform();
  void show_power();

  Platform platform_;
  Link& link_;
  const LiveViews& views_;
  HarmonicsOptions& options_;
  Window& window_;
};

}  // namespace halden
