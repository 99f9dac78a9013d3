// What the meter has recorded, byte for byte as it sends it. Power, harmonics and hardcopy files are 16-bit
// words, high byte first, two's complement, without header, separator or checksum. What does not fit becomes
// the nearest value that does.
//
//   power       per record and phase in use V I W P Q (the units of RawPhase): 10, 20 or 30 bytes a record
//   harmonics   64 words a record:
//                  0 RMS, 1 positive peak, 2 negative peak magnitude (raw units)
//                  3 to 53 orders 0 to 50 in hundredths of a percent of the fundamental
//                  54 THD-F in tenths of a percent, 55 frequency in tenths of a hertz
//                  58 first order of the shown range; all others 0
//   hardcopy    3840 words, each one byte of the picture (screen_picture.h)
#pragma once

#include <span>
#include <string>

#include "simulator/load.h"
#include "simulator/memory.h"

namespace halden::simulator {

std::string word_bytes(std::span<const int> words);

// Recorded with these settings from `start` on, one record every settings.sample_seconds. The load is that of
// the time of day.
StoredFile power_file(const Load& load, const MeterSettings& settings, const MeterClock& start, int records);
StoredFile harmonics_file(const Load& load, const MeterSettings& settings, const MeterClock& start,
                          int records);
StoredFile hardcopy_file(const Load& load, const MeterSettings& settings, const MeterClock& start);

struct TransientEvent {
  int elapsed_minutes = 0;  // since the start of recording
  int cycles = 0;           // 0..65535
  int condition = 1;        // sum of 1 too high, 2 too low, 4 failed
};

struct TransientRecording {
  MeterClock start;
  int pt_ratio = 1;
  int reference_raw = 2300;  // 0.1 V
  int threshold_percent = 10;
};

// Text whose lines end with carriage return and line feed. The first holds the start of recording with a year
// of two digits, PT ratio, reference and threshold, separated by commas; then one line per event: number
// (3 characters), days:hours:minutes, a blank, cycles (5 characters), a blank, condition (2 characters).
// The meter shows cycles as a signed number, so that more than 32767 have a sign and one character more:
//
//   "09,02,28,23,50,10,1,2300,10"
//   "  100:00:15   123  1"
//   "  200:01:30  -1000  2"
std::string transient_report(const TransientRecording& recording, std::span<const TransientEvent> events);

// A power file per wiring system, harmonics of V1 and of I1, a hardcopy and a transient report.
Memory example_memory();

// A file of each kind, each as short as a test needs it.
Memory small_memory();

}  // namespace halden::simulator
