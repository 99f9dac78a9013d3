#include "live/frame_rate.h"

namespace halden {

namespace {

constexpr double window_s = 5.0;

}  // namespace

void FrameRate::count(double now_s) {
  times_s_.push_back(now_s);
  while (now_s - times_s_.front() > window_s) times_s_.pop_front();
}

// There are n - 1 gaps between n frames. When the time since the last frame exceeds two mean gaps it counts
// as a gap too, so the rate falls while the meter is silent.
double FrameRate::per_second(double now_s) const {
  double first_s = now_s;
  int frames = 0;
  for (const double time_s : times_s_) {
    if (now_s - time_s > window_s) continue;
    if (frames == 0) first_s = time_s;
    ++frames;
  }
  if (frames < 2) return 0.0;
  const double last_s = times_s_.back();
  const double mean_gap_s = (last_s - first_s) / (frames - 1);
  return now_s - last_s > 2 * mean_gap_s ? frames / (now_s - first_s) : 1.0 / mean_gap_s;
}

double FrameRate::mean_gap_s() const {
  if (times_s_.size() < 2) return 0.0;
  return (times_s_.back() - times_s_.front()) / static_cast<double>(times_s_.size() - 1);
}

}  // namespace halden
