#include "simulator/harmonics_frames.h"

#include "simulator/padded.h"
#include "simulator/spectrum.h"

namespace halden::simulator {

namespace {

constexpr std::size_t component_width = 7;

std::string order_fields(const Spectrum& spectrum) {
  std::string fields;
  for (std::size_t k = 0; k < order_count; ++k)
    fields += " " + zero_padded(static_cast<int>(k), 2) + " " +
              zero_padded(spectrum.cos[k], component_width) + " " +
              zero_padded(spectrum.sin[k], component_width);
  return fields;
}

std::string sample_bytes(const Spectrum& spectrum) {
  std::string bytes;
  for (const int sample : waveform(spectrum)) {
    const auto bits = static_cast<unsigned>(sample);
    bytes += static_cast<char>(bits >> 8 & 0xFFU);
    bytes += static_cast<char>(bits & 0xFFU);
  }
  return bytes;
}

}  // namespace

std::string harmonics_frame(const Load& load, const MeterSettings& settings, double uptime_s) {
  const Spectrum spectrum = measured_spectrum(load, settings, uptime_s);
  const Summary summary = summarize(spectrum);
  return "BO=" + blank_padded(settings.channel, 5) + "R=" + blank_padded(summary.rms, 6) +
         "P=" + blank_padded(summary.peak_plus, 6) + "N=" + blank_padded(summary.peak_minus, 6) +
         "H=" + blank_padded(settings.frequency_code, 6) + order_fields(spectrum) +
         "T=" + blank_padded(summary.thd_tenths, 6) + "V=" + blank_padded(summary.fundamental, 6) + "E";
}

std::string waveform_frame(const Load& load, const MeterSettings& settings, double uptime_s) {
  struct Field {
    char tag;
    int value;
  };
  const Spectrum spectrum = measured_spectrum(load, settings, uptime_s);
  const Summary summary = summarize(spectrum);
  const std::array<Field, 7> fields = {{{'O', settings.channel},
                                        {'R', summary.rms},
                                        {'P', summary.peak_plus},
                                        {'N', summary.peak_minus},
                                        {'H', settings.frequency_code},
                                        {'T', summary.thd_tenths},
                                        {'V', summary.fundamental}}};
  std::string frame = "B " + sample_bytes(spectrum);
  for (const Field& field : fields)
    frame += std::string(" ") + field.tag + "=" + blank_padded(field.value, 5);
  return frame + " E";
}

}  // namespace halden::simulator
