#include "live/phasors/unbalance.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <optional>
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
std::string deviation_text(const PerPhase<double>& values, double mean) {
  if (mean == 0) return no_ratio_text;
  double largest = 0;
  for (const double value : values) largest = std::max(largest, std::abs(value - mean));
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

bool over_range_among(const PerPhase<double>& raw) { return any_over_range({raw[0], raw[1], raw[2]}); }

std::string line_unbalance_text(const PerPhase<std::optional<std::int32_t>>& lines) {
  PerPhase<double> values{};
  for (std::size_t p = 0; p < phase_count; ++p) {
    if (!lines[p]) return no_ratio_text;
    values[p] = *lines[p];
  }
  return deviation_text(values, (values[0] + values[1] + values[2]) / 3);
}

std::string current_unbalance_text(const PerPhase<double>& raw) {
  if (over_range_among(raw)) return no_ratio_text;
  return deviation_text(raw, to_int32((raw[0] + raw[1] + raw[2]) / 3).value_or(0));
}

// The text of the sum is missing where it does not fit.
struct Figures {
  std::string zero, negative;
  std::optional<std::string> sum;
};

Figures figures_of(const PerPhase<double>& raw, const PerPhase<double>& angles, const Scaling& scaling,
                   std::optional<std::string> (*text_of)(const Scaling&, double)) {
  if (over_range_among(raw)) return {no_ratio_text, no_ratio_text, std::string(overload_text)};
  const Sequences sequences(raw, angles);
  return {sequences.zero_text(), sequences.negative_text(), text_of(scaling, sequences.zero)};
}

}  // namespace

void calculate_unbalance(const PowerReadings& raw, const PhasorAngles& angles, const Scaling& scaling,
                         Window& meter_rec, Window& phasor_form) {
  meter_rec.set_text("VUR_value", line_unbalance_text(raw.line_raw));
  const Figures v = figures_of(raw.v_raw, angles.v_phasor_angle, scaling, voltage_text_of);
  meter_rec.set_text("d0_v_value", v.zero);
  meter_rec.set_text("d2_v_value", v.negative);
  if (v.sum) phasor_form.set_text("Vn_value", *v.sum);
  meter_rec.set_text("IUR_value", current_unbalance_text(raw.i_raw));
  const Figures i = figures_of(raw.i_raw, angles.i_phasor_angle, scaling, current_text_of);
  meter_rec.set_text("d0_i_value", i.zero);
  meter_rec.set_text("d2_i_value", i.negative);
  if (i.sum) phasor_form.set_text("In_value", *i.sum);
}

}  // namespace halden
