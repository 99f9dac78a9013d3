#include "filetools/playback/playback_export.h"

#include <array>
#include <charconv>
#include <utility>

#include "chart/chart.h"
#include "chart/waves/waveform_chart.h"
#include "filetools/file_name.h"
#include "filetools/playback/playback_chart.h"
#include "filetools/playback/playback_form.h"

namespace halden {

namespace {

std::string_view unit_of_values(const PlayedRecord& record) {
  if (record.kind == WaveFileKind::waveform) return unit_of(scale_peak(record.values, record.texts));
  if (record.option == '%') return "%";
  return record.option == 'D' ? "°" : "";
}

}  // namespace

PlaybackExport::PlaybackExport(const Platform& platform, const Language& language, Window& window,
                               const PlayedRecord& record, const std::shared_ptr<const PlaybackFile>& file)
    : window_(window),
      language_(language),
      record_(record),
      file_(file),
      output_(platform, language, window) {
  connect("chart_copy", [this] { output_.copy_chart(titled_chart()); });
  connect("chart_copy_points", [this] { output_.copy_points(to_text(*window_[playback_chart_name].chart)); });
  connect("chart_save", [this] { output_.save_chart(titled_chart(), suggested_name()); });
  connect("save_points", [this] { output_.save_points(record_csv(record_), suggested_name() + "-points"); });
}

void PlaybackExport::connect(std::string_view entry, std::function<void()> hand_on) {
  window_.on_click(entry, [this, hand_on = std::move(hand_on)] {
    record_.values.empty() ? output_.say_nothing_drawn() : hand_on();
  });
}

Chart PlaybackExport::titled_chart() const {
  Chart chart = *window_[playback_chart_name].chart;
  chart.title = playback_title(*file_, record_, window_[playback_about_line].text, language_);
  return chart;
}

std::string PlaybackExport::suggested_name() const {
  const std::string name(name_of_file(file_->path));
  return name.substr(0, name.find_last_of('.')) + "-" + std::to_string(record_.number);
}

std::string record_csv(const PlayedRecord& record) {
  const bool is_spectrum = record.kind == WaveFileKind::harmonics;
  std::string lines = is_spectrum ? "order,value,unit\n" : "sample,value,unit\n";
  const std::string unit = "," + std::string(unit_of_values(record)) + "\n";
  int number = record.first_order.value_or(0);
  for (const double value : record.values) {
    lines += std::to_string(number++) + ",";
    std::array<char, 32> digits;
    if (!is_gap(value))
      lines.append(digits.data(), std::to_chars(digits.data(), digits.data() + 32, value).ptr);
    lines += unit;
  }
  return lines;
}

}  // namespace halden
