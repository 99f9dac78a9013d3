#include "live/spectrum/spectrum_chart.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>
#include <span>
#include <utility>
#include <vector>

#include "chart/waves/order_chart.h"
#include "readings/patterns.h"
#include "readings/wave_texts.h"

namespace halden {

namespace {

constexpr double highest_percent = 100;
constexpr std::size_t described_orders = 5;

constexpr Text order_is_100 = {"100 % is order {}", "100 % 為第 {} 次"};
constexpr Text readout = {"Order {}: {} %, {}°", "第 {} 次：{} %，{}°"};
constexpr Text percent_of = {"Harmonics of {} in percent. Fundamental {}. Largest orders: {}",
                             "{} 的諧波百分比。基本波 {}。最大的次數：{}"};
constexpr Text angles_of = {"Phase angles of the harmonics of {}. Fundamental {}. Largest orders: {}",
                            "{} 的諧波相位角。基本波 {}。最大的次數：{}"};

// "1 (100.0 %), 5 (2.3 %), ..."
std::string largest_orders(const HarmonicValues& values) {
  std::vector<std::size_t> orders(harmonic_orders - 1);
  std::iota(orders.begin(), orders.end(), 1);
  const auto larger = [&](std::size_t a, std::size_t b) { return values.percent[a] > values.percent[b]; };
  std::ranges::stable_sort(orders, larger);
  std::string text;
  for (const std::size_t order : std::span(orders).first(described_orders)) {
    if (values.percent[order] == 0) break;
    if (!text.empty()) text += ", ";
    text += std::to_string(order) + " (" + format_float(values.percent[order], "##0.0") + " %)";
  }
  return text.empty() ? "-" : text;
}

std::vector<double> bars(const HarmonicValues& values, const HarmonicsOptions& options) {
  const auto& all = options.harmonic_option == 1 ? values.angle : values.percent;
  std::vector<double> shown(all.begin(), all.begin() + options.harmonic_count + 1);
  const bool left_out = options.without_largest && values.reference < shown.size();
  if (left_out) shown[values.reference] = std::numeric_limits<double>::quiet_NaN();
  return shown;
}

}  // namespace

Chart spectrum_chart(const SpectrumOfInput& spectrum, const HarmonicsOptions& options, std::size_t marked,
                     Language language) {
  const bool angles = options.harmonic_option == 1;
  const std::string name(input_name(spectrum.channel));
  Chart chart = order_chart({name, phase_of_input(spectrum.channel), bars(spectrum.values, options), 0,
                             options.harmonic_count == all_orders ? std::size_t{10} : std::size_t{5}});
  chart.description = (angles ? angles_of : percent_of)
                          .with(language, {name, spectrum.fundamental, largest_orders(spectrum.values)});
  chart.readouts =
      texts_by([values = spectrum.values, hz = std::string(spectrum.hz), language](std::size_t order) {
        const std::string hertz = hertz_text(order, hz);
        return readout.with(language, {std::to_string(order), format_float(values.percent[order], "#0.0"),
                                       format_float(values.angle[order], "#0.0")}) +
               (hertz == "AUTO" ? std::string() : ", " + hertz + " Hz");
      });
  chart.marked = marked;
  if (!angles) chart.y_low = 0;
  if (!angles && !options.without_largest) chart.y_high = highest_percent;
  return chart;
}

std::string reference_text(const HarmonicValues& values, Language language) {
  if (values.reference == 0) return {};
  return order_is_100.with(language, {std::to_string(values.reference)});
}

std::string hertz_text(std::size_t order, std::string_view hz) {
  const auto number = static_cast<double>(order);
  if (hz == "50Hz") return format_pattern(number * 50, "###0");
  return hz == "60Hz" ? format_pattern(number * 60, "###0") : std::string("AUTO");
}

}  // namespace halden
