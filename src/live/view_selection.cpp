#include "live/view_selection.h"

#include <algorithm>
#include <span>

#include "screen/meter_rec/panels.h"

namespace halden {

namespace {

constexpr std::int16_t offered_orders = 51;

void show_panels(Window& window, std::span<const Panel> panels, bool visible) {
  for (const Panel& panel : panels) {
    window.set_visible(panel.label, visible);
    window.set_visible(panel.value, visible);
  }
}

void show_graph(Window& window, bool visible) {
  window.set_visible("HScroll1", visible);
  window.set_visible("Harmo_Graph1", visible);
}

// All of the summary but date and time, which appear with the first frame.
std::span<const Panel> summary_of_harmonics() { return wave_summary_panels().first(6); }

}  // namespace

bool ViewSelection::view_fits() const {
  return (link_.status.meter_mode == harmonics_mode) == (link_.state.display_mode != power_view);
}

void ViewSelection::select_by_meter_mode() {
  if (view_fits()) return;
  if (link_.status.meter_mode != harmonics_mode) return close_view();
  show_harmonics();
  link_.polling.set_live_timer();
}

// Polling is stopped meanwhile; the exchange that has read the status resumes it and requests the first
// frame. A request here would be a second one, whose frame every later reading would lag behind.
void ViewSelection::follow_status() {
  const bool harmonics = link_.status.meter_mode == harmonics_mode;
  if (view_fits()) {
    if (harmonics) show_cursor_and_frequency();
    return;
  }
  harmonics ? show_harmonics() : show_power();
  link_.polling.set_live_period();
}

void ViewSelection::close_view() {
  link_.exchange.run([this] {
    show_power();
    link_.polling.set_live_period();
    return Afterwards::just_poll;
  });
}

void ViewSelection::show_power() {
  link_.state.display_mode = power_view;
  show_graph(window_, false);
  show_panels(window_, harmonic_cursor_panels(), false);
  show_panels(window_, wave_summary_panels(), false);
}

void ViewSelection::show_harmonics() {
  options_ = {offered_orders, 0};
  link_.state.display_mode = harmonics_view;
  show_graph(window_, true);
  show_panels(window_, harmonic_cursor_panels(), true);
  show_panels(window_, summary_of_harmonics(), true);
  show_cursor_and_frequency();
}

void ViewSelection::show_cursor_and_frequency() {
  if (link_.status.harmonic_order == 0) link_.status.harmonic_order = 1;
  window_.set_range("HScroll1", 1, offered_orders);
  window_.set_value("HScroll1", std::clamp<std::int16_t>(link_.status.harmonic_order, 1, offered_orders));
  const bool frequency_known = link_.status.frequency_code != 0;
  window_.set_visible("har_hz_label", frequency_known);
  window_.set_visible("har_hz_value", frequency_known);
}

}  // namespace halden
