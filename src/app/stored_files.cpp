#include "app/stored_files.h"

#include <algorithm>
#include <utility>

#include "filetools/file_name.h"
#include "screen/meter_rec/menus.h"

namespace halden {

namespace {

// "&1 day.csv": the tenth has the key 0. An "&" of the name is no key.
std::string entry_text(std::size_t index, const std::string& path) {
  std::string text = index + 1 == most_recent_files ? "1&0 " : "&" + std::to_string(index + 1) + " ";
  for (const char c : name_of_file(path)) text.append(c == '&' ? 2 : 1, c);
  return text;
}

std::string entry_of(FileKind kind, std::size_t index) {
  return element(recent_menu(kind_name(kind)), static_cast<int>(index));
}

}  // namespace

StoredFiles::StoredFiles(Files& files, Windows& windows, Window& meter_rec, std::string list_path)
    : files_(files), meter_rec_(meter_rec), recent_(files, std::move(list_path)) {
  for (Window* window : windows.all())
    window->on_drop([this](const Lines& paths) {
      for (const std::string& path : paths) open(path);
    });
  for (const FileKind kind : file_kinds)
    for (std::size_t index = 0; index < most_recent_files; ++index)
      meter_rec.on_click(entry_of(kind, index),
                         [this, kind, index] { open_as(kind, std::string(recent_.of(kind)[index])); });
  show_recent();
}

void StoredFiles::read_recent() {
  recent_.read();
  show_recent();
}

void StoredFiles::open(const std::string& path) { open_as(kind_of_file(files_, path), path); }

void StoredFiles::open_as(FileKind kind, const std::string& path) {
  if (const auto& opener = openers_[static_cast<std::size_t>(kind)]) opener(path);
}

// One window shows spectra and waveforms.
void StoredFiles::took(FileKind kind, const std::string& path) {
  const bool is_wave = kind == FileKind::harmonics || kind == FileKind::waveform;
  recent_.add(is_wave ? kind_of_file(files_, path) : kind, path);
  show_recent();
}

void StoredFiles::show_recent() {
  bool some = false;
  for (const FileKind kind : file_kinds) {
    const Lines& paths = recent_.of(kind);
    some = some || !paths.empty();
    meter_rec_.set_enabled(recent_menu(kind_name(kind)), !paths.empty());
    for (std::size_t index = 0; index < most_recent_files; ++index) {
      const std::string entry = entry_of(kind, index);
      const bool used = index < paths.size();
      meter_rec_.set_visible(entry, used);
      meter_rec_.set_text(entry, used ? entry_text(index, paths[index]) : std::string());
      meter_rec_.set_tooltip(entry, used ? paths[index] : std::string());
    }
  }
  meter_rec_.set_enabled("recent_files", some);
}

}  // namespace halden
