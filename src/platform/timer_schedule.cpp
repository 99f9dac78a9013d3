#include "platform/timer_schedule.h"

#include <algorithm>

namespace halden {

void TimerSchedule::set_enabled(bool enabled, std::int64_t now_us) {
  if (enabled && !enabled_) due_us_ = now_us + period_us();
  enabled_ = enabled;
}

void TimerSchedule::set_period_ms(int period_ms, std::int64_t now_us) {
  period_ms_ = std::max(period_ms, 1);
  due_us_ = now_us + period_us();
}

bool TimerSchedule::take_due(std::int64_t now_us) {
  if (!enabled_ || now_us < due_us_) return false;
  due_us_ += ((now_us - due_us_) / period_us() + 1) * period_us();
  return true;
}

}  // namespace halden
