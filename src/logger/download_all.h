// The download of all stored files in one run, each under a name made of its start, its number and its kind:
//
//   20090512153003P.csv    year, month, day, hour, minute, two digits of the number; P, H or C
//
// A file carries the ending ".part" until it is whole, so that what has its own name is whole. Such a file is
// not downloaded again: a second run fetches what is missing.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "logger/download_result.h"
#include "logger/logger_parts.h"
#include "logger/stored_kind.h"
#include "screen/window.h"

namespace halden {

inline constexpr std::string_view part_ending = ".part";

// "20090512153003" of the selected file.
std::string stored_file_stamp(const MeterStatus& status);

enum class StatusRead { read, nothing_stored, failed };

enum class FileFate { downloaded, not_whole, was_there };

struct FileOfRun {
  std::string name;
  const StoredKind* kind = nullptr;
  FileFate fate = FileFate::not_whole;
  DownloadResult result{};  // of a download
};

enum class RunEnd { complete, nothing_stored, cancelled, failed };

struct RunResult {
  RunEnd end = RunEnd::failed;
  std::vector<FileOfRun> files{};
  std::vector<std::string> messages{};  // told during the run
};

class DownloadAll {
 public:
  using ReadStatus = std::function<StatusRead()>;

  // The parts and the datalogger window outlive the run.
  DownloadAll(const LoggerParts& parts, Window& logger, ReadStatus read_status)
      : parts_(parts), window_(logger), read_status_(std::move(read_status)) {}

  // Into the folder. `file_done` is called after each file.
  RunResult run(const std::string& folder, const std::function<void(const FileOfRun&)>& file_done);

  // The closed window forgets the name of the last file.
  void clear_base_name() { logger_file_base_name_.clear(); }

 private:
  class Active;

  RunEnd end_of(StatusRead read) const;
  RunEnd run_over_files(const std::string& folder, const std::function<void(const FileOfRun&)>& file_done);
  StatusRead select(std::string_view digits);
  bool is_selected(int number) const;
  FileOfRun download(const std::string& folder);
  void give_whole_name(const std::string& part, const std::string& path, FileOfRun& file) const;
  void show_file(int number);

  const LoggerParts& parts_;
  Window& window_;
  ReadStatus read_status_;
  std::string logger_file_base_name_;
};

}  // namespace halden
