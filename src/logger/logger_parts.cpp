#include "logger/logger_parts.h"

namespace halden {

namespace {

constexpr Text keeps_sending = {
    "The meter does not stop sending. Wait until it is ready, or switch it off and on.",
    "電表未停止傳送。請等待電表完成，或將電表關機後再開機。"};

}  // namespace

bool wait_for_silence(const LoggerParts& parts) {
  const Clock& clock = parts.platform.clock;
  const double began_s = clock.monotonic_s();
  if (parts.line.settle([&] { parts.panel.show_still_sending(clock.monotonic_s() - began_s); })) return true;
  parts.messages.say(keeps_sending.in(parts.link.state.language), Icon::exclamation);
  return false;
}

bool is_ready_for_request(const LoggerParts& parts) {
  return !parts.line.may_send_on() || !parts.line.has_bytes() || wait_for_silence(parts);
}

}  // namespace halden
