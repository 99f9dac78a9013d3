#include "live/view_selection.h"

#include <array>
#include <span>
#include <string_view>
#include <utility>

#include "platform/dialogs.h"
#include "screen/meter_rec/panels.h"

namespace halden {

namespace {

constexpr double settle_s = 1.0;
constexpr float chart_gap = 8 * units_per_pixel;  // between the chart and what stands below it

constexpr HarmonicsOptions percent_of_fifty = {fifty_orders, 0};

constexpr std::array<std::pair<std::string_view, HarmonicsOptions>, 4> entries = {
    {{"show_50_harmonics", percent_of_fifty},
     {"show_99_harmonics", {all_orders, 0}},
     {"show_50_angles", {fifty_orders, 1}},
     {"show_99_angles", {all_orders, 1}}}};

void show_panels(Window& window, std::span<const Panel> panels, bool visible) {
  for (const Panel& panel : panels) {
    window.set_visible(panel.label, visible);
    window.set_visible(panel.value, visible);
  }
}

enum class Graph { none, spectrum, waveform };

void show_graph(Window& window, Graph graph) {
  for (const std::string_view name :
       {"Harmo_Graph1", "chart_reference", "chart_copy", "chart_copy_points", "chart_save"})
    window.set_visible(name, graph != Graph::none);
  for (const std::string_view name :
       {"HScroll1", "chart_percent", "chart_angle", "chart_50", "chart_99", "chart_without_largest"})
    window.set_visible(name, graph == Graph::spectrum);
  const Place& below = window[graph == Graph::spectrum ? "HScroll1" : "RMS_value"];
  Place chart = window["Harmo_Graph1"];
  chart.height = below.top - chart_gap - chart.top;
  window.set_place("Harmo_Graph1", chart);
}

// All of the summary but date and time, which appear with the first frame.
std::span<const Panel> summary_without_date() { return wave_summary_panels().first(6); }

}  // namespace

ViewSelection::ViewSelection(const Platform& platform, Link& link, const LiveViews& views,
                             HarmonicsOptions& options, Window& meter_rec)
    : platform_(platform), link_(link), views_(views), options_(options), window_(meter_rec) {
  connect();
}

void ViewSelection::connect() {
  for (const auto& [entry, options] : entries)
    link_.gate.connect(window_, entry, [this, &options = options] { open_harmonics(options); });
  link_.gate.connect(window_, "open_waveform", [this] { open_waveform(); });
  for (const std::string_view entry : {"close_harmonics", "close_waveform"})
    link_.gate.connect(window_, entry, [this] { close_view(); });
  link_.query.on_status_read([this] { follow_status(); });
}

bool ViewSelection::view_fits() const {
  return (link_.status.meter_mode == harmonics_mode) == (link_.state.display_mode != power_view);
}

void ViewSelection::select_by_meter_mode() {
  if (view_fits()) return;
  if (link_.status.meter_mode != harmonics_mode) return close_view();
  show_harmonics(percent_of_fifty);
  link_.polling.set_live_timer();
}

// A view that fits keeps its cursor, which the user has placed. Polling is stopped meanwhile; the exchange
// that has read the status resumes it and requests the first frame. A request here would be a second one,
// whose frame every later reading would lag behind.
void ViewSelection::follow_status() {
  if (view_fits()) {
    if (link_.state.display_mode == harmonics_view) show_frequency();
    return;
  }
  link_.status.meter_mode == harmonics_mode ? show_harmonics(percent_of_fifty) : show_power();
  link_.polling.set_live_period();
}

void ViewSelection::open_harmonics(const HarmonicsOptions& options) {
  open([&] {
    show_harmonics({options.harmonic_count, options.harmonic_option, options_.without_largest});
    show_panels(window_, wave_summary_panels(), true);
  });
}

void ViewSelection::open_waveform() {
  open([this] { show_waveform(); });
}

// One request, by the end of the exchange: every further one would keep all readings a frame behind.
void ViewSelection::open(const std::function<void()>& show) {
  link_.exchange.run([&] {
    link_.query.query_meter_status();
    if (!link_.query.succeeded()) return Afterwards::just_poll;
    if (link_.status.meter_mode != harmonics_mode) {
      platform_.dialogs.message({"Not in harmomic mode, please press the HARMO button", "", Icon::none});
      return Afterwards::just_poll;
    }
    show();
    link_.polling.set_live_period();
    link_.waits.timed_wait(settle_s, Yield::no);
    return Afterwards::just_poll;
  });
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
  show_graph(window_, Graph::none);
  show_panels(window_, harmonic_cursor_panels(), false);
  show_panels(window_, wave_summary_panels(), false);
}

void ViewSelection::show_harmonics(const HarmonicsOptions& options) {
  options_ = options;
  link_.state.display_mode = harmonics_view;
  show_graph(window_, Graph::spectrum);
  show_panels(window_, harmonic_cursor_panels(), true);
  show_panels(window_, summary_without_date(), true);
  if (link_.status.harmonic_order == 0) link_.status.harmonic_order = 1;
  show_options(options_, link_.status.harmonic_order, window_);
  show_frequency();
  views_.shown().begin();
}

void ViewSelection::show_frequency() {
  const bool frequency_known = link_.status.frequency_code != 0;
  window_.set_visible("har_hz_label", frequency_known);
  window_.set_visible("har_hz_value", frequency_known);
}

void ViewSelection::show_waveform() {
  link_.state.display_mode = waveform_view;
  show_graph(window_, Graph::waveform);
  show_panels(window_, harmonic_cursor_panels(), false);
  show_panels(window_, wave_summary_panels(), true);
  views_.shown().begin();
}

}  // namespace halden
