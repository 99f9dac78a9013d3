// The chart of a waveform: the samples in the unit of the meter's peak values.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "chart/chart.h"
#include "readings/wave_texts.h"
#include "screen/language.h"

namespace halden {

// Scaled so that the larger peak has the number of its text. Empty while a peak is over range.
std::vector<double> scaled_samples(std::span<const std::int16_t> samples, std::string_view peak_plus,
                                   std::string_view peak_minus);

Chart waveform_chart(const std::vector<double>& scaled, int channel, const WaveTexts& texts,
                     Language language);

// Says in which unit the curve is drawn; empty while there is none.
std::string scale_text(const std::vector<double>& scaled, const WaveTexts& texts, Language language);

// The text of the peak that gives the scale; empty without a curve.
std::string_view scale_peak(const std::vector<double>& scaled, const WaveTexts& texts);

// A scaled sample as it is read out: with the decimals of that peak.
std::string sample_text(double sample, std::string_view scale_peak);

}  // namespace halden
