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

// Scaled so that the larger peak has the number of its text. Empty while that text is over range.
std::vector<double> scaled_samples(std::span<const std::int16_t> samples, std::string_view peak_plus,
                                   std::string_view peak_minus);

Chart waveform_chart(const std::vector<double>& scaled, int channel, const WaveTexts& texts,
                     Language language);

// Says in which unit the curve is drawn.
std::string scale_text(const WaveTexts& texts, Language language);

// That unit alone, and a scaled sample as it is read out: with the decimals of the peaks' texts.
std::string_view scale_unit(const WaveTexts& texts);
std::string sample_text(double scaled, const WaveTexts& texts);

}  // namespace halden
