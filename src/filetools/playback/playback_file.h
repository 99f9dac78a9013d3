// A harmonics or waveform data file while it is played back: where each of its records stands, so that any
// record is read without those before it. That takes eight bytes a record.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "filetools/reading_progress.h"
#include "formats/wave_reader.h"
#include "platform/dialogs.h"
#include "platform/files.h"

namespace halden {

struct PlaybackFile {
  // The settings line of a recording, and the record it stands before. One file may hold several, because a
  // recording can be continued.
  struct Header {
    std::size_t before_record = 1;
    WaveSettings settings;
  };

  std::string path;
  WaveFileKind kind = WaveFileKind::harmonics;
  std::vector<std::uint64_t> starts;  // of the records in the file, in bytes, and behind the last one its end
  std::vector<Header> headers;        // the first one is that of the file

  std::size_t record_count() const { return starts.size() - 1; }

  // Of the nearest header above the record. Records count from 1.
  const WaveSettings& settings_of(std::size_t record) const;
};

// Either a file, or what the user is told instead, or neither after a cancel.
struct PlaybackOutcome {
  std::shared_ptr<const PlaybackFile> file{};
  Message refusal{};
  bool is_other_kind = false;  // refused, but the other plot shows it
};

PlaybackOutcome open_playback(Files& files, const std::string& path, WaveFileKind kind,
                              const FileProgress& progress = {});

// The line of a record without its line end; nothing when the file cannot be read any more.
std::optional<std::string> read_record_line(Files& files, const PlaybackFile& file, std::size_t record);

}  // namespace halden
