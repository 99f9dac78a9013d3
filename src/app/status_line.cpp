#include "app/status_line.h"

#include <string>

#include "platform/clock.h"
#include "readings/patterns.h"

namespace halden {

namespace {

constexpr Text frames_per_second = {"{} frames/s", "{} 筆/秒"};

}  // namespace

// The tag is the state of the link for the light beside the text: "ok", "lost" or "idle".
StatusLine::LinkField StatusLine::link_field(double frames_per_s) const {
  switch (platform_.port.state()) {
    case PortState::closed:
      return {{"no port", "未開啟連接埠"}, "idle"};
    case PortState::vanished:
      return {{"adapter gone, waiting for it", "轉接器已移除，等待中"}, "lost"};
    case PortState::open:
      break;
  }
  if (state_.link_lost == 1) return {{"no answer", "無回應"}, "lost"};
  if (frames_per_s > 0) return {{"linked", "已連線"}, "ok"};
  return {{"waiting for the meter", "等待電表"}, "idle"};
}

void StatusLine::refresh() {
  const bool open = number_ != 0 && platform_.port.state() != PortState::closed;
  window_.set_text("status_port",
                   open ? "COM " + std::to_string(number_) + " (" + platform_.port.device_name(number_) + ")"
                        : std::string("COM -"));
  const double rate = frame_rate_.per_second(platform_.clock.monotonic_s());
  const LinkField now = link_field(rate);
  window_.set_text("status_link", now.text.in(state_.language));
  window_.set_tag("status_link", now.tag);
  window_.set_text("status_rate", frames_per_second.with(state_.language, {format_pattern(rate, "#0.0")}));
  window_.set_text("status_recording",
                   recording_status_text(recording_.state(), recording_.file(), state_.language));
}

}  // namespace halden
