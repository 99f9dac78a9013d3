#include "live/waveform/waveform_chart.h"

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

}  // namespace

std::vector<double> scaled_samples(std::span<const std::int16_t> samples, std::string_view peak_plus,
                                   std::string_view peak_minus) {
  const auto [lowest, highest] = std::ranges::minmax(samples);
  const bool by_plus = highest > -lowest;
  const std::string_view peak = by_plus ? peak_plus : peak_minus;
  if (is_overload(peak)) return {};
  const double divisor = by_plus ? highest : lowest;
  const double scale = divisor == 0 ? 0 : leading_number(peak) / divisor;
  std::vector<double> scaled;
  scaled.reserve(samples.size());
  for (const std::int16_t sample : samples) scaled.push_back(sample * scale);
  return scaled;
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
  chart.sets = {{make_points(scaled), name, static_cast<std::size_t>(std::clamp(channel, 0, 5)) / 2}};
  chart.label_every = label_every;
  chart.labels = texts_by([](std::size_t index) { return std::to_string(index); });
  chart.readouts = texts_by([points = chart.sets.front().points, unit = std::string(scale_unit(texts)),
                             language](std::size_t index) {
    const std::string value =
        index < points->size() ? format_pattern((*points)[index], "#0.000") : std::string();
    return readout.with(language, {std::to_string(index), value, unit});
  });
  return chart;
}

std::string_view scale_unit(const WaveTexts& texts) {
  return unit_of(is_overload(texts.peak_plus) ? std::string_view(texts.peak_minus)
                                              : std::string_view(texts.peak_plus));
}

std::string scale_text(const WaveTexts& texts, Language language) {
  return scale_in.with(language, {scale_unit(texts)});
}

}  // namespace halden
