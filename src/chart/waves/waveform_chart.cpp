#include "chart/waves/waveform_chart.h"

#include <algorithm>

#include "readings/numbers.h"
#include "readings/patterns.h"

namespace halden {

namespace {

constexpr std::size_t label_every = 128;

constexpr Text scale_in = {"Scale in {}", "刻度單位 {}"};
constexpr Text over_range_hint = {"The input is over range", "輸入超出量程"};
constexpr Text readout = {"Sample {}: {} {}", "第 {} 點：{} {}"};
constexpr Text waveform_of = {"Waveform of {}. RMS {}, peaks {} and {}, crest factor {}, fundamental {}",
                              "{} 的波形。有效值 {}，峰值 {} 與 {}，波峰因數 {}，基本波 {}"};

// Whether the positive peak gives the scale. Scaled samples answer as the received ones do.
template <typename Samples>
bool scaled_by_plus(const Samples& samples) {
  const auto [lowest, highest] = std::ranges::minmax(samples);
  return highest > -lowest;
}

// As many decimals as the meter gives for the peak.
std::string pattern_of(std::string_view peak) {
  const std::size_t point = peak.find('.');
  if (point == std::string_view::npos) return "#0";
  const std::size_t end = std::min(peak.find_first_not_of("0123456789", point + 1), peak.size());
  return "#0." + std::string(end - point - 1, '0');
}

}  // namespace

std::vector<double> scaled_samples(std::span<const std::int16_t> samples, std::string_view peak_plus,
                                   std::string_view peak_minus) {
  if (is_overload(peak_plus) || is_overload(peak_minus)) return {};
  const auto [lowest, highest] = std::ranges::minmax(samples);
  const bool by_plus = scaled_by_plus(samples);
  const double divisor = by_plus ? highest : lowest;
  const double scale = divisor == 0 ? 0 : leading_number(by_plus ? peak_plus : peak_minus) / divisor;
  std::vector<double> scaled;
  scaled.reserve(samples.size());
  for (const std::int16_t sample : samples) scaled.push_back(sample * scale);
  return scaled;
}

std::string_view scale_peak(const std::vector<double>& scaled, const WaveTexts& texts) {
  if (scaled.empty()) return {};
  return scaled_by_plus(scaled) ? texts.peak_plus : texts.peak_minus;
}

std::string sample_text(double sample, std::string_view scale_peak) {
  return format_pattern(sample, pattern_of(scale_peak));
}

Chart waveform_chart(const std::vector<double>& scaled, int channel, const WaveTexts& texts,
                     Language language) {
  const std::string name(input_name(channel));
  Chart chart;
  chart.x_title = "Time -->";
  chart.y_title = name;
  chart.hint = over_range_hint.in(language);
  chart.description = waveform_of.with(
      language, {name, texts.rms, texts.peak_plus, texts.peak_minus, texts.crest_factor, texts.fundamental});
  chart.sets = {{make_points(scaled), name, phase_of_input(channel)}};
  chart.label_every = label_every;
  chart.labels = texts_by([](std::size_t index) { return std::to_string(index); });
  chart.readouts = texts_by([points = chart.sets.front().points,
                             peak = std::string(scale_peak(scaled, texts)), language](std::size_t index) {
    if (index >= points->size()) return std::string();
    return readout.with(language,
                        {std::to_string(index), sample_text((*points)[index], peak), unit_of(peak)});
  });
  return chart;
}

std::string scale_text(const std::vector<double>& scaled, const WaveTexts& texts, Language language) {
  return scaled.empty() ? std::string() : scale_in.with(language, {unit_of(scale_peak(scaled, texts))});
}

}  // namespace halden
