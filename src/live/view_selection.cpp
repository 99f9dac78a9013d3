#include "live/view_selection.h"

#include <algorithm>
#include <span>

#include "screen/panels.h"

namespace halden {

namespace {

constexpr std::int16_t offered_orders = 51;

void show_panels(Window& window, std::span<const Panel> panels, bool visible) {
  for (const Panel& panel : panels) {
    window[panel.label].visible = visible;
    window[panel.value].visible = visible;
  }
}

void show_graph(Window& window, bool visible) {
  window["HScroll1"].visible = visible;
  window["Harmo_Graph1"].visible = visible;
}

// Of the summary block without date and time, which come with the first frame.
std::span<const Panel> summary_of_harmonics() { return wave_summary_panels().first(6); }

}  // namespace

void ViewSelection::select_by_meter_mode() {
  if (status_.meter_mode == harmonics_mode)
    open_harmonics();
  else if (state_.display_mode != power_view)
    close_view();
}

void ViewSelection::close_view() {
  state_.display_mode = power_view;
  polling_.stop_polling();
  show_graph(window_, false);
  show_panels(window_, harmonic_cursor_panels(), false);
  show_panels(window_, wave_summary_panels(), false);
  polling_.set_live_timer();
  polling_.resume_polling(1);
}

void ViewSelection::open_harmonics() {
  view_ = {offered_orders, 0};
  state_.display_mode = harmonics_view;
  if (status_.harmonic_order == 0) status_.harmonic_order = 1;
  Control& cursor = window_["HScroll1"];
  cursor.minimum = 1;
  cursor.maximum = offered_orders;
  cursor.value = std::clamp<std::int16_t>(status_.harmonic_order, 1, offered_orders);
  show_graph(window_, true);
  show_panels(window_, harmonic_cursor_panels(), true);
  show_panels(window_, summary_of_harmonics(), true);
  const bool frequency_known = status_.frequency_code != 0;
  window_["har_hz_label"].visible = frequency_known;
  window_["har_hz_value"].visible = frequency_known;
  polling_.set_live_timer();
}

}  // namespace halden
