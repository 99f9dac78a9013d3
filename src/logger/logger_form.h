// The controls of the datalogger window Logger.
//
//   status panel     "DATALOGGER SETUP": how the selected stored file was recorded, and when it starts
//   downloads        a button for each kind, for all files, and for clearing the memory
//   transfer panel   shown while a download runs: what arrives, and Cancel
//   results          the files of this session, newest last, with the folder they are in
#pragma once

#include <array>
#include <span>
#include <string_view>

#include "screen/window.h"

namespace halden {

// A value and the caption above it.
struct LoggerPanel {
  std::string_view label;
  std::string_view value;
};

// The settings of the recording, then kind and number of the file, then its start. The last two are boxes the
// user may edit: they date the records of the next download.
std::span<const LoggerPanel> recorded_panels();  // 6
std::span<const LoggerPanel> selected_panels();  // 2
std::span<const LoggerPanel> start_boxes();      // 2

// What has arrived, how fast, since when, and how many records that makes.
std::span<const LoggerPanel> transfer_panels();  // 4

// The download buttons from left to right: power, harmonics, transient, hardcopy, all files; then Clear
// Memory.
std::span<const std::string_view> logger_buttons();  // 6

inline constexpr std::string_view read_status_button = "Read_Status";
inline constexpr std::string_view read_status_caption = "Label2";
inline constexpr std::string_view setup_title = "Panel3D2";
inline constexpr std::string_view stored_files = "stored_files";  // "9 files"
inline constexpr std::string_view download_title = "download_title";

// Shown during download-all: the name of the file that is written, and the number of stored files.
inline constexpr LoggerPanel download_name = {"dl_label", "dl_f_name"};
inline constexpr LoggerPanel total_files = {"total_files_label", "total_files_text"};
inline constexpr std::string_view file_of_total = "file_of_total";  // "file 4 of 9"

// Visible while a download runs; its text is that of the button ("Down Load Power Data").
inline constexpr std::string_view transfer_task = "transfer_task";
inline constexpr std::string_view transfer_progress =
    "transfer_progress";  // files of a run; no range: unknown
inline constexpr std::string_view transfer_note = "transfer_note";
inline constexpr std::string_view transfer_cancel = "transfer_cancel";

inline constexpr std::string_view results_title = "results_title";
inline constexpr std::string_view results = "results";  // a line for each file
inline constexpr std::string_view open_folder = "open_folder";

Window make_logger_window();

}  // namespace halden
