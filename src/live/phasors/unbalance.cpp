#include "live/phasors/unbalance.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "readings/numbers.h"
#include "readings/patterns.h"
#include "readings/raw_values.h"
#include "readings/scaled_text.h"

namespace halden {

namespace {

constexpr const char* no_ratio_text = "OL %";
constexpr double third_turn = 1200;

std::string ratio_text(double ratio) {
  return ratio < 1 ? format_pattern(ratio, "#0.00%") : std::string(no_ratio_text);
}

// The largest distance from the mean as a part of it.
template <typename Number>
std::string deviation_text(const PerPhase<Number>& values, double mean) {
  if (mean == 0) return no_ratio_text;
  double largest = 0;
  for (const Number value : values) largest = std::max(largest, std::abs(static_cast<double>(value) - mean));
  return ratio_text(largest / mean);
}

// |a + b turned by offset_2 + c turned by offset_3|
double sum_of_phasors(const PerPhase<double>& sizes, const PerPhase<double>& angles, double offset_2,
                      double offset_3) {
  const PerPhase<double> offsets = {0, offset_2, offset_3};
  double re = 0, im = 0;
  for (std::size_t p = 0; p < phase_count; ++p) {
    const double radians = (angles[p] + offsets[p]) * tenths_to_radians;
    re += sizes[p] * std::cos(radians);
    im += sizes[p] * std::sin(radians);
  }
  return std::sqrt(re * re + im * im);
}

// Three times each component.
struct Sequences {
  Sequences(const PerPhase<double>& sizes, const PerPhase<double>& angles)
      : zero(sum_of_phasors(sizes, angles, 0, 0)),
        positive(sum_of_phasors(sizes, angles, third_turn, 2 * third_turn)),
        negative(sum_of_phasors(sizes, angles, 2 * third_turn, third_turn)) {}

  std::string zero_text() const { return positive == 0 ? no_ratio_text : ratio_text(zero / positive); }
  std::string negative_text() const {
    if (positive == 0) return no_ratio_text;
    return ratio_text(static_cast<double>(static_cast<float>(negative / positive)));
  }

  double zero, positive, negative;
};

}  // namespace

void calculate_unbalance(const PowerReadings& raw, const PhasorAngles& angles, const Scaling& scaling,
                         Window& meter_rec, Window& phasor_form) {
  const auto& lines = raw.line_raw;
  const double line_mean =
      (static_cast<double>(lines[0]) + static_cast<double>(lines[1]) + static_cast<double>(lines[2])) / 3;
  meter_rec.set_text("VUR_value", deviation_text(lines, line_mean));
  const Sequences v(raw.v_raw, angles.v_phasor_angle);
  if (const auto text = voltage_text_of(scaling, v.zero)) phasor_form.set_text("Vn_value", *text);
  meter_rec.set_text("d0_v_value", v.zero_text());
  meter_rec.set_text("d2_v_value", v.negative_text());
  const auto current_average = to_int32((raw.i_raw[0] + raw.i_raw[1] + raw.i_raw[2]) / 3);
  meter_rec.set_text("IUR_value", deviation_text(raw.i_raw, current_average.value_or(0)));
  const Sequences i(raw.i_raw, angles.i_phasor_angle);
  if (const auto text = current_text_of(scaling, i.zero)) phasor_form.set_text("In_value", *text);
  meter_rec.set_text("d0_i_value", i.zero_text());
  meter_rec.set_text("d2_i_value", i.negative_text());
}

}  // namespace halden
