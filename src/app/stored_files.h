// Opens stored files in the window that shows their kind: files dropped on a window, files named when the
// program was started, and those opened last, which the File menu offers.
#pragma once

#include <array>
#include <functional>
#include <string>
#include <string_view>

#include "app/file_kind.h"
#include "app/recent_files.h"
#include "platform/files.h"
#include "screen/windows.h"

namespace halden {

class StoredFiles {
 public:
  // All outlive this. Every window in the list takes dropped files from now on.
  StoredFiles(Files& files, Windows& windows, Window& meter_rec, std::string list_path);
  StoredFiles(const StoredFiles&) = delete;
  StoredFiles& operator=(const StoredFiles&) = delete;

  // `tool` shows files of that kind; `entry` of the main window opens it. The tool outlives this.
  template <typename Tool>
  void connect(FileKind kind, std::string_view entry, Tool& tool) {
    openers_[static_cast<std::size_t>(kind)] = [this, entry, &tool](const std::string& path) {
      meter_rec_.click(entry);
      tool.open_file(path);
    };
    tool.on_opened([this, kind](const std::string& path) { took(kind, path); });
  }

  // Fills the menu with the files of former runs.
  void read_recent();

  void open(const std::string& path);

 private:
  void open_as(FileKind kind, const std::string& path);
  void took(FileKind kind, const std::string& path);
  void show_recent();

  Files& files_;
  Window& meter_rec_;
  RecentFiles recent_;
  std::array<std::function<void(const std::string& path)>, file_kinds.size()> openers_;
};

}  // namespace halden
