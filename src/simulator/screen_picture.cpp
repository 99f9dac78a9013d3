#include "simulator/screen_picture.h"

#include <algorithm>
#include <cmath>

#include "simulator/spectrum.h"

namespace halden::simulator {

namespace {

constexpr int letter_step = 6;
constexpr int line_step = 10;
constexpr int margin = 4;

constexpr int curve_middle = 88;
constexpr int curve_height = 36;  // of the highest peak above the middle

struct Glyph {
  char letter;
  std::array<unsigned char, 5> columns;  // from the left; the least significant bit is the top dot
};

constexpr std::array<Glyph, 20> glyphs = {
    {{'0', {0x3E, 0x51, 0x49, 0x45, 0x3E}}, {'1', {0x00, 0x42, 0x7F, 0x40, 0x00}},
     {'2', {0x42, 0x61, 0x51, 0x49, 0x46}}, {'3', {0x21, 0x41, 0x45, 0x4B, 0x31}},
     {'4', {0x18, 0x14, 0x12, 0x7F, 0x10}}, {'5', {0x27, 0x45, 0x45, 0x45, 0x39}},
     {'6', {0x3C, 0x4A, 0x49, 0x49, 0x30}}, {'7', {0x01, 0x71, 0x09, 0x05, 0x03}},
     {'8', {0x36, 0x49, 0x49, 0x49, 0x36}}, {'9', {0x06, 0x49, 0x49, 0x29, 0x1E}},
     {'.', {0x00, 0x60, 0x60, 0x00, 0x00}}, {':', {0x00, 0x36, 0x36, 0x00, 0x00}},
     {'-', {0x08, 0x08, 0x08, 0x08, 0x08}}, {'=', {0x14, 0x14, 0x14, 0x14, 0x14}},
     {'A', {0x7E, 0x11, 0x11, 0x11, 0x7E}}, {'I', {0x00, 0x41, 0x7F, 0x41, 0x00}},
     {'L', {0x7F, 0x40, 0x40, 0x40, 0x40}}, {'O', {0x3E, 0x41, 0x41, 0x41, 0x3E}},
     {'V', {0x1F, 0x20, 0x40, 0x20, 0x1F}}, {'W', {0x3F, 0x40, 0x38, 0x40, 0x3F}}}};

std::string two_digits(int value) { return (value < 10 ? "0" : "") + std::to_string(value); }

std::string date_and_time(const MeterClock& at) {
  return std::to_string(at.year) + "-" + two_digits(at.month) + "-" + two_digits(at.day) + "  " +
         two_digits(at.hour) + ":" + two_digits(at.minute) + ":" + two_digits(at.second);
}

// At least one digit before the point: 5 with three decimals is "0.005".
std::string with_decimals(long value, std::size_t decimals) {
  std::string digits = std::to_string(value);
  if (digits.size() <= decimals) digits.insert(0, decimals + 1 - digits.size(), '0');
  return digits.insert(digits.size() - decimals, ".");
}

std::string phase_text(int phase, const RawPhase& raw, int current_range) {
  const std::string digit = std::to_string(phase);
  const long milliampere = std::lround(raw.i * raw_current_unit_a(current_range) * 1000.0);
  return "V" + digit + "= " + with_decimals(raw.v, 1) + "V  I" + digit + "= " +
         (raw.i < 0 ? "OL" : with_decimals(milliampere, 3) + "A");
}

void draw_curve(ScreenPicture& picture, const std::array<int, sample_count>& samples) {
  int peak = 1;
  for (const int sample : samples) peak = std::max(peak, std::abs(sample));
  int last_y = curve_middle;
  for (int x = 0; x < screen_width; ++x) {
    const std::size_t index = static_cast<std::size_t>(x) * sample_count / screen_width;
    const int y = curve_middle - samples[index] * curve_height / peak;
    picture.draw_line(x, x == 0 ? y : last_y, y);
    last_y = y;
  }
}

}  // namespace

void ScreenPicture::draw_dot(int x, int y) {
  if (x < 0 || x >= screen_width || y < 0 || y >= screen_height) return;
  char& byte = dots_[static_cast<std::size_t>(y * (screen_width / 8) + x / 8)];
  byte = static_cast<char>(byte | 1 << x % 8);
}

void ScreenPicture::draw_line(int x, int from_y, int to_y) {
  for (int y = std::min(from_y, to_y); y <= std::max(from_y, to_y); ++y) draw_dot(x, y);
}

void ScreenPicture::draw_text(int x, int y, std::string_view text) {
  for (const char letter : text) {
    for (const Glyph& glyph : glyphs)
      for (int dot = 0; glyph.letter == letter && dot < 5 * 8; ++dot)
        if (glyph.columns[static_cast<std::size_t>(dot / 8)] >> dot % 8 & 1)
          draw_dot(x + dot / 8, y + dot % 8);
    x += letter_step;
  }
}

ScreenPicture screen_picture(const Load& load, const MeterSettings& settings, const MeterClock& at,
                             double uptime_s) {
  ScreenPicture picture;
  picture.draw_text(margin, margin, date_and_time(at));
  for (int phase = 1; phase <= phases_in_use(settings.wiring); ++phase)
    picture.draw_text(margin, margin + line_step * phase,
                      phase_text(phase, load.raw(phase, settings, uptime_s), settings.current_range));
  for (int x = 0; x < screen_width; x += 2) picture.draw_dot(x, curve_middle);
  draw_curve(picture, waveform(measured_spectrum(load, settings, uptime_s)));
  return picture;
}

}  // namespace halden::simulator
