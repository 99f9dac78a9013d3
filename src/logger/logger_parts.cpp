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
  const bool silent =
      parts.line.settle([&] { parts.panel.show_still_sending(clock.monotonic_s() - began_s); });
  parts.panel.hide_still_sending();
  if (!silent) parts.messages.say(keeps_sending.in(parts.link.state.language), Icon::exclamation);
  return silent;
}

bool is_ready_for_request(const LoggerParts& parts) {
  return !parts.line.file_comes() || wait_for_silence(parts);
}

bool query_stored_file(const LoggerParts& parts) {
  StatusQuery& query = parts.link.query;
  do {
    if (!is_ready_for_request(parts)) return false;
  } while (!query.query_unless_file_comes());
  if (query.succeeded() && !query.told_stored_file()) parts.messages.say(StatusQuery::failed_message);
  return query.told_stored_file();
}

}  // namespace halden
