#include "app/status_line.h"

#include "platform/clock.h"
#include "readings/patterns.h"
#include "screen/meter_rec/main_window.h"

namespace halden {

namespace {

constexpr Text frames_per_second = {"{} frames/s", "{} 筆/秒"};
constexpr Text slower_than_sampling = {"sampling every {} s, frames every {} s",
                                       "每 {} 秒取樣，每 {} 秒一筆"};
constexpr Text one_damaged = {", {} damaged frame", "，{} 筆受損"};
constexpr Text damaged = {", {} damaged frames", "，{} 筆受損"};

constexpr Text no_port = {"no port", "未開啟連接埠"};
constexpr Text adapter_gone = {"adapter gone, waiting for it", "轉接器已移除，等待中"};
constexpr Text held = {"paused while the datalogger is open", "記錄器視窗開啟中，暫停讀取"};
constexpr Text no_answer = {"no answer", "無回應"};
constexpr Text no_answer_since = {"no answer since {}", "自 {} 起無回應"};
constexpr Text no_waveform_since = {
    "no answer since {}: in power mode the meter sends no waveform, press Update Now",
    "自 {} 起無回應：電力模式下電表不傳送波形，請按「讀取設定」"};
constexpr Text no_reading_since = {"no reading since {}", "自 {} 起無讀值"};
constexpr Text no_whole_reading = {"no whole reading", "無完整讀值"};
constexpr Text no_whole_reading_since = {"no whole reading since {}", "自 {} 起無完整讀值"};
constexpr Text linked = {"linked", "已連線"};
constexpr Text waiting = {"waiting for the meter", "等待電表"};

constexpr Text in_harmonics_mode = {"The meter is in harmonics mode: press Update Now",
                                    "電表處於諧波模式：請按「讀取設定」"};
constexpr Text in_power_mode = {"The meter is in power mode: press Update Now",
                                "電表處於電力模式：請按「讀取設定」"};
constexpr Text sends_one_phase = {"The meter sends {} phase, {} was set: press Update Now",
                                  "電表傳送 {} 相，設定為 {}：請按「讀取設定」"};
constexpr Text sends_phases = {"The meter sends {} phases, {} was set: press Update Now",
                               "電表傳送 {} 相，設定為 {}：請按「讀取設定」"};

constexpr double silent_after_s = 2.0;

constexpr Text not_current = {"not current", "非目前值"};

}  // namespace

// What is known and what to do when the meter sends something else than what is set.
std::optional<std::string> StatusLine::misfit_text() const {
  const Misfit misfit = views_.shown().misfit();
  const Language language = link_.state.language;
  if (misfit.other_mode)
    return std::string(
        (link_.state.display_mode == power_view ? in_harmonics_mode : in_power_mode).in(language));
  if (misfit.phases_sent == 0) return std::nullopt;
  const Text& text = misfit.phases_sent == 1 ? sends_one_phase : sends_phases;
  return text.with(language, {std::to_string(misfit.phases_sent), window_["power_system"].text});
}

// The tag is the state of the link for the light beside the text: "ok", "lost" or "idle".
StatusLine::LinkField StatusLine::link_field() const {
  const Language language = link_.state.language;
  const auto field = [language](const Text& text, std::string_view tag) {
    return LinkField{std::string(text.in(language)), tag};
  };
  if (platform_.port.state() == PortState::closed) return field(no_port, "idle");
  if (platform_.port.state() == PortState::vanished) return field(adapter_gone, "lost");
  if (link_.polling.line_is_held()) return field(held, "idle");
  const bool silent = platform_.clock.monotonic_s() - link_.waits.last_arrival_s() >= silent_after_s;
  if (const auto misfit = misfit_text(); misfit && !silent) return {*misfit, "idle"};
  const auto old_s = monitor_.old_since_s();
  const std::string since = old_s ? time_of_day_text(*old_s) : std::string();
  const bool lost = link_.state.link_lost == 1;
  if (old_s) {
    const Text& no_answer_at_all =
        link_.state.display_mode == waveform_view ? no_waveform_since : no_answer_since;
    const Text& text = !silent ? no_whole_reading_since : lost ? no_answer_at_all : no_reading_since;
    return {text.with(language, {since}), lost ? "lost" : "idle"};
  }
  if (lost) return field(silent ? no_answer : no_whole_reading, "lost");
  return monitor_.has_whole_frame() ? field(linked, "ok") : field(waiting, "idle");
}

// Where frames take longer than the sampling time, some sampling instants have no record of their own.
std::string StatusLine::rate_text() const {
  const Language language = link_.state.language;
  const FrameRate& rate = monitor_.frame_rate();
  const double per_second = rate.per_second(platform_.clock.monotonic_s());
  std::string text = frames_per_second.with(language, {format_pattern(per_second, "#0.0")});
  const double gap_s = rate.mean_gap_s(), sampling_s = sample_clock_.sample_time_s();
  if (link_.state.display_mode != power_view && per_second > 0 && gap_s > sampling_s)
    text = slower_than_sampling.with(language,
                                     {format_pattern(sampling_s, "#0"), format_pattern(gap_s, "#0.0")});
  const int count = monitor_.damaged_frames();
  if (count > 0) text += (count == 1 ? one_damaged : damaged).with(language, {std::to_string(count)});
  return text;
}

void StatusLine::refresh() {
  const Language language = link_.state.language;
  const bool open = number_ != 0 && platform_.port.state() != PortState::closed;
  window_.set_text("status_port",
                   open ? "COM " + std::to_string(number_) + " (" + platform_.port.device_name(number_) + ")"
                        : std::string("COM -"));
  const LinkField now = link_field();
  window_.set_text("status_link", now.text);
  window_.set_tag("status_link", now.tag);
  window_.set_text("status_rate", rate_text());
  window_.set_visible("status_rate", !misfit_text());  // frames come, but none that counts
  window_.set_text("status_recording",
                   recording_status_text(recording_.status(), recording_.file(), language));
  window_.set_tooltip("status_recording", recording_.file().path());
  mark_readings();
}

// Old readings look old, and assistive technology is told as well.
void StatusLine::mark_readings() {
  const bool old = monitor_.old_since_s().has_value();
  if (old == marked_old_ && (!old || marked_in_ == link_.state.language)) return;
  marked_old_ = old;
  marked_in_ = link_.state.language;
  const std::string_view description = old ? not_current.in(marked_in_) : std::string_view();
  for (const DesignedControl& designed : main_window_design()) {
    if (designed.kind != ControlKind::value) continue;
    window_.set_old(designed.name, old);
    window_.set_description(designed.name, description);
  }
  phasors_.mark_old(old, description);
}

}  // namespace halden
