// `haldenctl spectrum` and `haldenctl waveform`: draw one record of a harmonics or waveform data file into a
// picture. They need no meter and no display.
#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "chart/chart.h"
#include "cli/command.h"
#include "filetools/playback/played_record.h"
#include "platform/offscreen.h"

namespace halden {

struct PlaybackCommand {
  WaveFileKind kind = WaveFileKind::harmonics;
  std::string file;  // UTF-8
  std::size_t record = 1;
  PlaybackOptions shown;
  std::string picture;
};

// Either the chart, with file, record, date and time as its title, or in one sentence why there is none.
struct PlaybackChart {
  std::optional<Chart> chart;
  std::string failure;
};
PlaybackChart chart_of_record(Files& files, const PlaybackCommand& command);

// Adds both commands; they read from `files`, which outlive the run.
void add_playback_commands(CLI::App& app, Files& files, const OpenOffscreen& open_offscreen,
                           ChosenCommand& chosen);

}  // namespace halden
