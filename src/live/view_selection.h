// Which live view the main window shows: it follows the meter's mode, after every status query and whenever
// the window is shown or resized. A view that fits the mode stays.
#pragma once

#include <cstdint>

#include "link/link.h"
#include "screen/window.h"

namespace halden {

struct HarmonicsOptions {
  std::int16_t harmonic_count = 99;  // highest order offered: 51 or 99
  std::int16_t harmonic_option = 0;  // 0 percentages, 1 phase angles
};

class ViewSelection {
 public:
  // All outlive this.
  ViewSelection(Link& link, HarmonicsOptions& options, Window& meter_rec)
      : link_(link), options_(options), window_(meter_rec) {
    link_.query.on_status_read([this] { follow_status(); });
  }
  ViewSelection(const ViewSelection&) = delete;
  ViewSelection& operator=(const ViewSelection&) = delete;

  // A meter in power mode closes the harmonics or waveform view; one in harmonics mode opens the harmonics
  // view with 51 orders in percent.
  void select_by_meter_mode();

  // Back to the power view, with everything of the harmonics and waveform views hidden.
  void close_view();

 private:
  bool view_fits() const;
  void follow_status();
  void show_harmonics();
  void show_cursor_and_frequency();
  void show_power();

  Link& link_;
  HarmonicsOptions& options_;
  Window& window_;
};

}  // namespace halden
