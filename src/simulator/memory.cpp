#include "simulator/memory.h"

namespace halden::simulator {

void Memory::select(int number) {
  if (number >= 0 && static_cast<std::size_t>(number) < files_.size())
    selected_ = static_cast<std::size_t>(number);
}

void Memory::erase() {
  files_.clear();
  selected_ = 0;
}

LoggerSettings Memory::selected_settings() const {
  if (empty()) return {};
  LoggerSettings settings = files_[selected_].recorded;
  settings.file_index = static_cast<int>(selected_);
  settings.file_count = static_cast<int>(files_.size());
  return settings;
}

std::string Memory::selected_bytes() const { return empty() ? std::string() : files_[selected_].bytes; }

}  // namespace halden::simulator
