// The chart of a spectrum: one bar per order, in percent of the largest order or as phase angles.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "chart/chart.h"
#include "live/harmonics_options.h"
#include "readings/harmonics.h"
#include "screen/language.h"

namespace halden {

struct SpectrumOfInput {
  const HarmonicValues& values;
  int channel;
  std::string_view fundamental;  // as it is shown
  std::string_view hz;
};

// Orders 0 to harmonic_count, that of the cursor marked. The percent axis goes from 0 to 100, or as far as
// the other orders need when the largest is left out.
Chart spectrum_chart(const SpectrumOfInput& spectrum, const HarmonicsOptions& options, std::size_t marked,
                     Language language);

// Says which order is 100 %; empty while all are 0.
std::string reference_text(const HarmonicValues& values, Language language);

// Hertz of an order: "250" of order 5 at "50Hz"; "AUTO" where the meter follows the frequency.
std::string hertz_text(std::size_t order, std::string_view hz);

}  // namespace halden
