#include "filetools/playback/played_record.h"

#include <algorithm>
#include <limits>
#include <string_view>
#include <utility>

#include "chart/waves/waveform_chart.h"
#include "formats/field_reading.h"
#include "readings/numbers.h"

namespace halden {

namespace {

constexpr double gap = std::numeric_limits<double>::quiet_NaN();

// The smallest of what the record has, what the file says it has, and what is wanted.
std::size_t bars_of(const HarmonicsLine& line, const WaveSettings& settings, std::int16_t harmonics_shown) {
  const std::size_t wanted = std::min(line.order_count, static_cast<std::size_t>(harmonics_shown));
  return settings.count > 0 ? std::min(wanted, static_cast<std::size_t>(settings.count)) : wanted;
}

void take_orders(const HarmonicsLine& line, std::size_t count, PlayedRecord& record) {
  if (!record.first_order) return;
  Lines list;
  for (std::size_t k = 0; k < count; ++k) {
    const std::string_view field = line.order_field(k);
    const std::optional<FieldReading> reading = read_field(field);
    record.values.push_back(reading ? value_in(*reading, 0) : gap);
    list.push_back("H" + std::to_string(*record.first_order + static_cast<int>(k)) + std::string(field) +
                   record.option);
  }
  record.list = std::make_shared<const Lines>(std::move(list));
}

// Whether the line is a record.
bool take_start(const WaveLine& line, PlayedRecord& record) {
  record.line = line.kind;
  if (!line.is_record()) return false;
  record.date = line.date;
  record.time = line.time;
  return true;
}

void take_harmonics(std::string_view text, const WaveSettings& settings, std::int16_t harmonics_shown,
                    PlayedRecord& record) {
  const HarmonicsLine line = read_harmonics_line(text);
  if (!take_start(line, record)) return;
  record.texts = {std::string(line.rms),        std::string(line.peak_plus),
                  std::string(line.peak_minus), crest_factor_text(line.peak_plus, line.rms),
                  std::string(line.thd),        std::string(line.fundamental),
                  std::string(line.hz)};
  record.first_order = line.first_order;
  take_orders(line, bars_of(line, settings, harmonics_shown), record);
}

// There is no earlier text that a value without room could keep, so nothing is limited.
Scaling scaling_of(const WaveSettings& settings, const CurrentScale& currents) {
  Scaling scaling;
  scaling.ct_ratio = ratio_of(settings.ct);
  scaling.pt_ratio = ratio_of(settings.vt);
  scaling.current_scale = currents.clamp;
  scaling.current_range = currents.range;
  scaling.product_limit = ProductLimit::none;
  return scaling;
}

void take_waveform(std::string_view text, const WaveSettings& settings, const CurrentScale& currents,
                   PlayedRecord& record) {
  const WaveformLine line = read_waveform_line(text);
  if (!take_start(line, record)) return;
  if (const auto name = input_name(line.fields.channel); !name.empty()) record.input = name;
  update_wave_texts(scaling_of(settings, currents), line.fields, record.texts);
  record.values = scaled_samples(line.samples, record.texts.peak_plus, record.texts.peak_minus);
}

}  // namespace

PlayedRecord play_record(Files& files, const PlaybackFile& file, std::size_t number,
                         const PlaybackOptions& options) {
  const WaveSettings& settings = file.settings_of(number);
  PlayedRecord record;
  record.number = number;
  record.kind = file.kind;
  record.input = settings.input;
  record.option = settings.option;
  const std::optional<std::string> line = read_record_line(files, file, number);
  if (!line) return record;
  if (file.kind == WaveFileKind::harmonics)
    take_harmonics(*line, settings, options.harmonics_shown, record);
  else
    take_waveform(*line, settings, options.currents, record);
  return record;
}

}  // namespace halden
