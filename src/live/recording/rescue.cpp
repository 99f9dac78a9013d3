#include "live/recording/rescue.h"

#include <array>
#include <string_view>
#include <utility>

namespace halden {

namespace {

// In the order of RecordKind.
constexpr std::array<std::string_view, 3> file_names = {
    "halden-rescued-power.csv", "halden-rescued-harmonics.csv", "halden-rescued-waveform.dat"};

std::string in_folder(const std::string& folder, std::string_view name) {
  std::string path = folder;
  path += '/';
  path += name;
  return path;
}

}  // namespace

Rescue::Rescue(Files& files, std::string work_folder, std::string temporary_folder) : files_(files) {
  for (std::string* folder : {&work_folder, &temporary_folder})
    if (!folder->empty()) folders_.push_back(std::move(*folder));
}

std::optional<std::string> Rescue::save(DataFile& file, RecordKind kind) {
  for (const std::string& folder : folders_) {
    std::string path = in_folder(folder, file_names[static_cast<std::size_t>(kind)]);
    if (file.write_waiting_to(path) == FileFailure::none) return path;
  }
  return std::nullopt;
}

std::vector<std::string> Rescue::found() {
  std::vector<std::string> paths;
  for (const std::string& folder : folders_) {
    for (const std::string_view name : file_names) {
      std::string path = in_folder(folder, name);
      if (files_.length(path).value_or(0) > 0) paths.push_back(std::move(path));
    }
  }
  return paths;
}

}  // namespace halden
