// The meter's display as a picture: date and time, the readings of the phases in use, and the waveform of the
// selected input.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "simulator/load.h"

namespace halden::simulator {

inline constexpr int screen_width = 240;
inline constexpr int screen_height = 128;

// A monochrome picture, 8 dots in a byte: 30 bytes a row, row by row from the top; the least significant bit
// is the leftmost dot, a set bit a black dot.
class ScreenPicture {
 public:
  // Dots outside of the picture are not drawn.
  void draw_dot(int x, int y);
  void draw_line(int x, int from_y, int to_y);  // upright, both ends drawn, in either order

  // Letters of 5 x 7 dots in steps of 6, (x, y) being the upper left dot. A letter that the meter does not
  // have leaves a gap.
  void draw_text(int x, int y, std::string_view text);

  std::string bytes() const { return {dots_.begin(), dots_.end()}; }

 private:
  std::array<char, screen_width / 8 * screen_height> dots_{};
};

ScreenPicture screen_picture(const Load& load, const MeterSettings& settings, const MeterClock& at,
                             double uptime_s);

}  // namespace halden::simulator
