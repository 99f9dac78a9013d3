#include "filetools/playback/playback_chart.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "chart/waves/order_chart.h"
#include "chart/waves/waveform_chart.h"
#include "filetools/file_name.h"
#include "readings/harmonics.h"
#include "readings/numbers.h"
#include "readings/patterns.h"

namespace halden {

namespace {

constexpr double highest_percent = 100;
constexpr std::size_t label_every_bar = 5;
constexpr char percentages = '%';
constexpr char angles = 'D';

// In the order of WaveLineKind.
constexpr std::array<Text, 5> line_notes = {{{"", ""},
                                             {"record {}: lost link", "第 {} 筆：連線中斷"},
                                             {"record {}: header line", "第 {} 筆：標題列"},
                                             {"record {}: not whole", "第 {} 筆：紀錄不完整"},
                                             {"record {}: not a record", "第 {} 筆：不是紀錄"}}};
constexpr Text unreadable = {"record {}: cannot be read", "第 {} 筆：無法讀取"};
constexpr Text unknown_range = {"record {}: range of its orders unknown", "第 {} 筆：次數範圍不明"};

constexpr Text of_order = {"Order {}: {}", "第 {} 次：{}"};
constexpr Text spectrum_of = {"Harmonics of {}. RMS {}, fundamental {}", "{} 的諧波。有效值 {}，基本波 {}"};
constexpr Text record_of = {"record {} of {}", "第 {} 筆，共 {} 筆"};
constexpr Text phase_angles = {"phase angles in °", "相位角（°）"};
constexpr Text currents_now = {"range {} and clamp {} (not in the file)", "檔位 {} 與鉗表 {}（檔案未記錄）"};

std::string hertz_of(std::size_t order, std::string_view hz) {
  const double hertz = leading_number(hz) * static_cast<double>(order);
  if (hertz == 0) return {};
  return ", " + format_pattern(hertz, hz.find('.') == std::string_view::npos ? "###0" : "###0.0") + " Hz";
}

std::string value_text(double value, char option) {
  if (is_gap(value)) return "-";
  const std::string number = format_pattern(value, "##0.0");
  if (option == percentages) return number + " %";
  return option == angles ? number + "°" : number;
}

PointTexts readouts_of(const PlayedRecord& record, Language language) {
  return texts_by([values = record.values, first = static_cast<std::size_t>(*record.first_order),
                   option = record.option, hz = record.texts.hz, language](std::size_t bar) {
    if (bar >= values.size()) return std::string();
    const std::size_t order = first + bar;
    return of_order.with(language, {std::to_string(order), value_text(values[bar], option)}) +
           hertz_of(order, hz);
  });
}

Chart spectrum(const PlayedRecord& record, Language language) {
  const std::optional<int> channel = channel_of(record.input);
  const auto phase = channel ? std::optional(phase_of_input(*channel)) : std::nullopt;
  Chart chart = order_chart({record.input, phase, record.values,
                             static_cast<std::size_t>(record.first_order.value_or(0)), label_every_bar});
  if (!record.first_order) return chart;
  chart.description = spectrum_of.with(language, {record.input, record.texts.rms, record.texts.fundamental});
  chart.readouts = readouts_of(record, language);
  if (record.option != percentages) return chart;
  chart.y_low = 0;
  // The meter's own percentages may be above 100.
  if (std::ranges::none_of(record.values, [](double value) { return value > highest_percent; }))
    chart.y_high = highest_percent;
  return chart;
}

Chart waveform(const PlayedRecord& record, Language language) {
  Chart chart = waveform_chart(record.values, channel_of(record.input).value_or(0), record.texts, language);
  chart.x_title = "TIME -->";
  chart.y_title = record.input;
  return chart;
}

void add(std::string& line, std::string_view part) {
  if (!part.empty()) line.append(line.empty() ? "" : " · ").append(part);
}

}  // namespace

Chart playback_chart(const PlayedRecord& record, Language language) {
  Chart chart =
      record.kind == WaveFileKind::harmonics ? spectrum(record, language) : waveform(record, language);
  if (const std::string note = playback_note(record, language); !note.empty())
    chart.hint = chart.description = note;
  return chart;
}

std::string playback_note(const PlayedRecord& record, Language language) {
  const std::string number = std::to_string(record.number);
  if (!record.line) return unreadable.with(language, {number});
  if (!record.is_record()) return line_notes[static_cast<std::size_t>(*record.line)].with(language, {number});
  const bool no_range = record.kind == WaveFileKind::harmonics && !record.first_order;
  return no_range ? unknown_range.with(language, {number}) : std::string();
}

std::string playback_about(const PlaybackFile& file, const PlayedRecord& record, const CurrentScale& currents,
                           Language language) {
  const WaveSettings& settings = file.settings_of(record.number);
  std::string line(name_of_file(file.path));
  add(line, settings.input);
  const bool is_spectrum = file.kind == WaveFileKind::harmonics;
  if (is_spectrum && settings.option == percentages) add(line, "%");
  if (is_spectrum && settings.option == angles) add(line, phase_angles.in(language));
  if (!settings.ct.empty()) add(line, "CT " + settings.ct);
  if (!settings.vt.empty()) add(line, "VT " + settings.vt);
  if (is_spectrum) return line;
  add(line,
      currents_now.with(language, {std::to_string(currents.range), format_float(currents.clamp, "0.0")}));
  add(line, scale_text(record.values, record.texts, language));
  return line;
}

std::string playback_title(const PlaybackFile& file, const PlayedRecord& record, std::string about,
                           Language language) {
  add(about, record_of.with(language, {std::to_string(record.number), std::to_string(file.record_count())}));
  if (record.is_record()) add(about, record.date + " " + record.time);
  return about;
}

}  // namespace halden
