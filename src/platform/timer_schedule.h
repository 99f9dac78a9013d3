// When a periodic timer is due; shared by the real and the virtual Timer so that both keep the same rules.
//
// Due moments lie on a grid of whole periods from the moment of (re)starting. A tick that could not be
// delivered in time is held back; however many grid points passed meanwhile, only one tick follows.
#pragma once

#include <cstdint>

namespace halden {

class TimerSchedule {
 public:
  bool enabled() const { return enabled_; }
  int period_ms() const { return period_ms_; }

  void set_enabled(bool enabled, std::int64_t now_us);
  void set_period_ms(int period_ms, std::int64_t now_us);

  // The next grid point; meaningful only while enabled.
  std::int64_t due_us() const { return due_us_; }

  // True once per due moment: moves on to the first grid point after now_us.
  bool take_due(std::int64_t now_us);

 private:
  std::int64_t period_us() const { return std::int64_t{period_ms_} * 1000; }

  bool enabled_ = false;
  int period_ms_ = 1000;
  std::int64_t due_us_ = 0;
};

}  // namespace halden
