#include "formats/wave_files.h"

#include "readings/patterns.h"

namespace halden {

namespace {

constexpr std::string_view all_orders = "0 to 99";

// A waveform file separates its fields by blanks.
std::string blank_field(std::string_view text) {
  std::string field = record_field(text);
  field.back() = ' ';
  return field;
}

}  // namespace

RecordLine harmonics_record(std::string_view date, std::string_view time, const WaveTexts& texts,
                            const std::array<float, harmonic_orders>& values) {
  RecordLine record;
  const auto add = [&record](std::string_view text) {
    record.text += record_field(text);
    record.sign_cut = record.sign_cut || loses_sign(text);
  };
  for (const std::string_view text :
       {date, time, std::string_view(texts.rms), std::string_view(texts.peak_plus),
        std::string_view(texts.peak_minus), std::string_view(texts.thd), std::string_view(texts.fundamental),
        std::string_view(texts.hz), all_orders})
    add(text);
  for (const float value : values) add(format_float(value, "##0.0"));
  return record;
}

RecordLine waveform_record(std::string_view date, std::string_view time,
                           std::span<const std::int16_t> samples, std::span<const std::string> fields) {
  RecordLine record = {blank_field(date) + blank_field(time) + "B "};
  for (const std::int16_t sample : samples) record.text += format_pattern(sample, "00000") + " ";
  for (std::size_t tag = 0; tag < fields.size(); ++tag)
    record.text += std::string(1, waveform_tags[tag]) + "=" + fields[tag];
  record.text += " E";
  return record;
}

}  // namespace halden
