// One record of a harmonics or waveform data file as it is shown: the texts of the panels, the lines of the
// list, and the values of the chart.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "filetools/playback/playback_file.h"
#include "readings/raw_values.h"
#include "readings/wave_texts.h"
#include "screen/window.h"

namespace halden {

// What no file says about currents: the meter's range, and the factor of the clamp.
struct CurrentScale {
  std::int16_t range = 0;
  float clamp = 1.0F;
};

struct PlaybackOptions {
  std::int16_t harmonics_shown = 100;  // at most so many orders
  CurrentScale currents;               // of waveforms, which are stored as raw numbers
};

// Of a line that is no record all texts and values are empty.
struct PlayedRecord {
  std::size_t number = 1;
  WaveFileKind kind = WaveFileKind::harmonics;
  std::optional<WaveLineKind> line;  // absent when the file could not be read
  std::string input;                 // "V1"
  char option = ' ';                 // '%' percentages, 'D' phase angles
  std::string date, time;
  WaveTexts texts;
  std::vector<double> values;      // of the orders, or of the samples in the unit of the peaks' texts
  std::optional<int> first_order;  // of harmonics; absent when the record does not say its range
  std::shared_ptr<const Lines> list;

  bool is_record() const { return line == WaveLineKind::record; }
};

// Records count from 1. With an unknown range of orders a record has its texts and no values.
PlayedRecord play_record(Files& files, const PlaybackFile& file, std::size_t number,
                         const PlaybackOptions& options);

}  // namespace halden
