#include "live/spectrum/spectrum_view.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <string_view>

#include "formats/wave_files.h"
#include "live/setting_texts.h"
#include "live/spectrum/spectrum_chart.h"
#include "live/waiting_chart.h"
#include "readings/patterns.h"
#include "screen/meter_rec/panels.h"

namespace halden {

namespace {

constexpr double tag_wait_s = 0.3;
constexpr int most_waits = 10;  // a frame takes 2.1 s

}  // namespace

SpectrumView::SpectrumView(const Platform& platform, Link& link, HarmonicsOptions& options,
                           const SampleClock& sample_clock, Window& meter_rec)
    : link_(link),
      options_(options),
      window_(meter_rec),
      summary_(link.status, sample_clock, meter_rec),
      messages_(platform) {
  connect();
}

void SpectrumView::connect() {
  window_.on_change("HScroll1", [this] {
    show_cursor();
    show_chart();
  });
  const auto connect_switch = [this](std::string_view name, auto change) {
    window_.on_click(name, [this, change] {
      change(options_);
      show_options(options_, window_["HScroll1"].value, window_);
      show_cursor();
      show_chart();
    });
  };
  connect_switch("chart_percent", [](HarmonicsOptions& options) { options.harmonic_option = 0; });
  connect_switch("chart_angle", [](HarmonicsOptions& options) { options.harmonic_option = 1; });
  connect_switch("chart_50", [](HarmonicsOptions& options) { options.harmonic_count = fifty_orders; });
  connect_switch("chart_99", [](HarmonicsOptions& options) { options.harmonic_count = all_orders; });
  connect_switch("chart_without_largest",
                 [](HarmonicsOptions& options) { options.without_largest = !options.without_largest; });
  link_.query.on_status_read([this] { sent_power_frames_ = false; });
}

void SpectrumView::begin() {
  has_frame_ = false;
  values_ = {};
  summary_.clear();
  for (const Panel& panel : harmonic_cursor_panels()) window_.set_text(panel.value, "");
  show_cursor();
  show_waiting_chart(window_, link_.state.language);
}

FrameOutcome SpectrumView::take_frame() {
  sent_power_frames_ = false;
  std::string& buffer = link_.state.poll_buffer;
  if (newest_spectrum_frame(buffer).end == 0) return FrameOutcome::incomplete;
  const SpectrumFrame frame = read_newest();
  if (frame.fault != SpectrumFault::none) return discard(frame.fault);
  buffer.erase(0, newest_spectrum_frame(buffer).end);
  // A rest with a "B" is the head of the next frame; a request would start it anew.
  if (buffer.find('B') == std::string::npos) {
    buffer.clear();
    link_.polling.send_live_request();
  }
  channel_ = frame.fields.channel;
  has_frame_ = true;
  values_ = harmonic_values(frame.components);
  summary_.show(frame.fields);
  show_chart();
  show_cursor();
  window_.set_text("har_hz_value", hertz_text(marked_order(), summary_.texts().hz));
  return FrameOutcome::complete;
}

// An "E" may be a changed digit of a frame that is still arriving.
SpectrumFrame SpectrumView::read_newest() {
  std::string& buffer = link_.state.poll_buffer;
  for (int waits = 0;; ++waits) {
    const FramePlace place = newest_spectrum_frame(buffer);
    SpectrumFrame frame =
        read_spectrum_frame(std::string_view(buffer).substr(place.begin, place.end - place.begin));
    const bool may_be_arriving = frame.fault != SpectrumFault::none && waits < most_waits;
    if (!may_be_arriving || !link_.waits.drain_next(tag_wait_s, buffer)) return frame;
  }
}

FrameOutcome SpectrumView::discard(SpectrumFault fault) {
  if (fault == SpectrumFault::no_channel) messages_.tell("Communication Error (Harmonics 1)");
  if (fault == SpectrumFault::order_out_of_place) messages_.tell("Communication Error (Harmonics 2)");
  return FrameOutcome::discarded;
}

void SpectrumView::show_chart() {
  if (!has_frame_ || link_.state.display_mode != harmonics_view) return;
  const SpectrumOfInput spectrum = {values_, channel_, summary_.texts().fundamental, summary_.texts().hz};
  window_.set_chart("Harmo_Graph1", std::make_shared<const Chart>(spectrum_chart(
                                        spectrum, options_, marked_order(), link_.state.language)));
  window_.set_text("chart_reference", reference_text(values_, link_.state.language));
}

std::size_t SpectrumView::marked_order() const {
  return static_cast<std::size_t>(std::clamp<int>(window_["HScroll1"].value, 0, all_orders));
}

void SpectrumView::show_cursor() {
  const std::size_t order = marked_order();
  window_.set_text("har_index_value", format_pattern(static_cast<double>(order), "#0"));
  if (!has_frame_) return;
  window_.set_text("har_percent_value", format_float(values_.percent[order], "#0.0"));
  window_.set_text("har_angle_value", format_float(values_.angle[order], "#0.0"));
}

Misfit SpectrumView::misfit() const { return {sent_power_frames_ || holds_power_frame(), 0}; }

// A frame of the power mode has labels with a phase digit, which no tag of a harmonics frame has.
bool SpectrumView::holds_power_frame() const {
  const std::string& buffer = link_.state.poll_buffer;
  return buffer.find("V1") != std::string::npos && buffer.find("Q1") != std::string::npos;
}

RecordSource SpectrumView::source() const {
  return {RecordKind::harmonics, has_frame_ ? channel_ : link_.status.harmonic_channel,
          options_.harmonic_option};
}

std::string SpectrumView::header() {
  const WaveSource from = {link_.status.wiring_system, static_cast<std::int16_t>(source().channel),
                           options_.harmonic_option};
  return header_lines(harmonics_settings_line(from, setting_texts(window_)), harmonics_column_line());
}

RecordLine SpectrumView::record() const {
  return harmonics_record(summary_.date(), summary_.time(), summary_.texts(),
                          options_.harmonic_option == 0 ? values_.percent : values_.angle);
}

}  // namespace halden
