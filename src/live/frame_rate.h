// The rate of complete frames over the last seconds, for the status line.
#pragma once

#include <deque>

namespace halden {

class FrameRate {
 public:
  // A frame was complete at this monotonic time in seconds.
  void count(double now_s);

  // Frames per second over the last few seconds before `now_s`; 0 when none came.
  double per_second(double now_s) const;

  // The mean time between the last frames; 0 when there are less than two.
  double mean_gap_s() const;

 private:
  std::deque<double> times_s_;
};

}  // namespace halden
