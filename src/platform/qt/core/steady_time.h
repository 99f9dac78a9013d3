// The one monotonic time base of the Qt side, so that clock and timers agree.
#pragma once

#include <chrono>
#include <cstdint>

namespace halden {

inline std::int64_t steady_us() {
  using std::chrono::duration_cast, std::chrono::microseconds, std::chrono::steady_clock;
  return duration_cast<microseconds>(steady_clock::now().time_since_epoch()).count();
}

inline double steady_s() { return static_cast<double>(steady_us()) / 1e6; }

}  // namespace halden
