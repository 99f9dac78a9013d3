// The window that plays back harmonics and waveform data files, P_Harmo: one record at a time, chosen with a
// scroll bar.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "chart/chart.h"
#include "filetools/playback/playback_export.h"
#include "filetools/playback/playback_file.h"
#include "filetools/playback/playback_form.h"
#include "filetools/playback/played_record.h"
#include "filetools/reading_progress.h"
#include "link/link_state.h"
#include "link/meter_status.h"
#include "platform/platform.h"
#include "screen/windows.h"

namespace halden {

class PlaybackWindow {
 public:
  // All outlive the window. Connects the entries of the main window that open it. The meter's current range
  // and clamp also apply to recorded waveforms, which do not say theirs.
  PlaybackWindow(const Platform& platform, Windows& windows, Window& meter_rec, const LinkState& link,
                 const MeterStatus& status);
  PlaybackWindow(const PlaybackWindow&) = delete;
  PlaybackWindow& operator=(const PlaybackWindow&) = delete;

  // As if the user had chosen the entry of the main window for files of that kind.
  void show(WaveFileKind kind);

  // As if the user had chosen the file.
  void open_file(const std::string& path);

  // Called with the path of each file that has been read.
  void on_opened(std::function<void(const std::string& path)> handler) { opened_ = std::move(handler); }

 private:
  struct Wanted {
    std::string path;
    std::size_t record;
  };

  void connect();
  WaveFileKind kind() const;
  CurrentScale currents() const { return {status_.current_range, status_.current_scale}; }
  void choose_file();
  void choose_count(std::int16_t harmonics_shown);
  void plot(const std::string& path, std::size_t record);
  void refuse(const PlaybackOutcome& outcome);
  void take(std::shared_ptr<const PlaybackFile> file, std::size_t record);
  void show_record(std::size_t record);
  void show_texts(const PlayedRecord& record);
  void show_empty();
  void mark_choices();
  void print(ChartColours colours);
  void close();

  Platform platform_;
  const LinkState& link_;
  const MeterStatus& status_;
  Window window_ = make_playback_window();
  ReadingProgress reading_;
  std::int16_t plot_harmo_mode_ = 0;    // 0 harmonics, 2 waveforms
  std::int16_t harmonics_shown_ = 100;  // 100 or 51
  ChartColours colours_ = ChartColours::colour;
  std::uint32_t plots_ = 0;                   // how often a plot was begun
  std::shared_ptr<const PlaybackFile> file_;  // null while none is open
  std::optional<Wanted> next_;                // asked for while a file was being read
  std::function<void(const std::string& path)> opened_;
  PlayedRecord record_;  // the one shown
  PlaybackExport export_{platform_, link_.language, window_, record_, file_};
};

}  // namespace halden
