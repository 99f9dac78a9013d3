// Reads single lines of the harmonics and waveform data files, recorded live or converted from the meter's
// memory. Nothing is made up for what a line does not have.
//
// In both files the first two lines are header lines, and every line behind them counts as a record, also one
// that holds no readings: the line written while the meter was silent, the header lines of a continued
// recording, a line cut off by a power failure. Which of these a line is stands in its kind.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "formats/wave_files.h"
#include "readings/wave_texts.h"

namespace halden {

enum class WaveFileKind { harmonics, waveform };

// The texts of a settings line as they stand; empty where it does not have them.
struct WaveSettings {
  std::optional<WaveFileKind> kind;  // absent when this is no settings line of such a file
  std::string hz, md, sec, ct, vt;
  std::string input;  // "V1"
  std::string sys;    // "3P4W"
  int count = 0;      // of orders or samples
  char option = ' ';  // '%' percentages, 'D' phase angles
};

// "HARMO,Hz=60,MD=15,SEC=2,CT=1,VT=1,INPUT=V1,SYS=3P4W,,NO.=100 ,OPTION=%", the same with one comma and
// "NO.=51 " in a converted file, or "WAVE Hz=60 MD=15 ... SYS=3P4W, NO.=1024  OPTION=%".
WaveSettings read_wave_settings(std::string_view line);

// The number of a transformer ratio in a settings line; 1 where there is none or it does not fit.
std::int16_t ratio_of(const std::string& text);

enum class WaveLineKind {
  record,     // whole
  lost_link,  // written while the meter was silent
  header,     // a settings line or the line of the column names
  torn,       // begins like a record, but is not whole
  foreign     // anything else
};

// What every line has: the kind, and the date and the time at its start, without blanks around them. These
// are empty when they do not stand there.
struct WaveLine {
  WaveLineKind kind = WaveLineKind::foreign;
  std::string_view date, time;

  bool is_record() const { return kind == WaveLineKind::record; }
};

// A record of 109 fields of eleven characters, or of 60 in a converted file: nine texts and the orders. The
// texts are without blanks around them. All is empty when the line is no whole record. The views are those of
// the line that was given.
struct HarmonicsLine : WaveLine {
  std::string_view rms, peak_plus, peak_minus, thd, fundamental, hz, range;
  std::optional<int> first_order;  // 0 or 50, from the range; absent when that is another text
  std::size_t order_count = 0;     // 100 or 51
  std::string_view order_fields;

  // The ten characters of an order, counted from the record's first one.
  std::string_view order_field(std::size_t index) const {
    return order_fields.substr(index * (field_text_length + 1), field_text_length);
  }
};

HarmonicsLine read_harmonics_line(std::string_view line);

// A record has 1024 samples that are 16-bit numbers, and behind them the seven fields, which are numbers. All
// is empty when the line is no whole record.
struct WaveformLine : WaveLine {
  std::array<std::int16_t, waveform_samples> samples{};
  WaveFields fields;  // raw
};

WaveformLine read_waveform_line(std::string_view line);

}  // namespace halden
