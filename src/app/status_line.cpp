#include "app/status_line.h"

#include "app/refusal.h"
#include "platform/clock.h"
#include "readings/patterns.h"
#include "screen/captions.h"

namespace halden {

std::string_view StatusLine::in_language(std::string_view english_text, std::string_view chinese_text) const {
  return state_.language == chinese ? chinese_text : english_text;
}

void StatusLine::tell_port(int number) {
  number_ = number;
  hint_.clear();
}

void StatusLine::tell_refusal(int number, PortRefusal refusal) {
  std::string device = platform_.port.device_name(number);
  if (device.empty()) device = "COM " + std::to_string(number);
  hint_ = refusal_sentence(refusal, device, state_.language);
}

void StatusLine::tell_saved(bool saved) {
  hint_ = saved ? std::string_view()
                : in_language("The choice could not be kept: the working folder cannot be written.",
                              "無法寫入工作資料夾，此選擇未能保存。");
}

void StatusLine::tell_sending(std::string_view setting) {
  hint_ = std::string(in_language("Sending ", "正在傳送 ")) + std::string(setting) +
          std::string(in_language(" to the meter...", " 至電表…"));
}

// The tag tells the windows how the link fares: "ok", "lost" or "idle".
StatusLine::Link StatusLine::link() const {
  switch (platform_.port.state()) {
    case PortState::closed:
      return {in_language("no port", "未開啟連接埠"), "idle"};
    case PortState::vanished:
      return {in_language("adapter gone, waiting for it", "轉接器已移除，等待中"), "lost"};
    case PortState::open:
      break;
  }
  if (state_.link_lost == 1) return {in_language("no answer", "無回應"), "lost"};
  if (frame_rate_.per_second(platform_.clock.monotonic_s()) > 0)
    return {in_language("linked", "已連線"), "ok"};
  return {in_language("waiting for the meter", "等待電表"), "idle"};
}

void StatusLine::refresh() {
  const PortState port = platform_.port.state();
  const std::string device = platform_.port.device_name(number_);
  show("status_port", number_ == 0 || port == PortState::closed
                          ? std::string("COM -")
                          : "COM " + std::to_string(number_) + " (" + device + ")");
  const Link now = link();
  show("status_link", std::string(now.text));
  if (const Window& window = window_; window["status_link"].tag != now.tag)
    window_["status_link"].tag = now.tag;
  const double rate = frame_rate_.per_second(platform_.clock.monotonic_s());
  show("status_rate", format_pattern(rate, "#0.0") + std::string(in_language(" frames/s", " 筆/秒")));
  show("status_recording", recording_status_text(recording_.state(), recording_.file(), state_.language));
  show("status_hint", hint_);
}

void StatusLine::show(std::string_view control, std::string text) {
  if (const Window& window = window_; window[control].text == text) return;
  window_[control].text = std::move(text);
}

}  // namespace halden
