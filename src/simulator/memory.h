// The memory of the meter: the stored files, of which one is selected, and the transient report.
#pragma once

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "simulator/meter_settings.h"

namespace halden::simulator {

struct StoredFile {
  LoggerSettings recorded;  // file_index and file_count are those of the memory
  std::string bytes;        // as the meter sends them
};

class Memory {
 public:
  // The files are numbered from 0 in the order in which they were stored. The first one is selected.
  void store(StoredFile file) { files_.push_back(std::move(file)); }

  // A number without a file leaves the former one selected.
  void select(int number);

  // Drops all files; the transient report stays.
  void erase();

  bool empty() const { return files_.empty(); }

  // Nothing while the memory is empty.
  LoggerSettings selected_settings() const;
  std::string selected_bytes() const;

  std::string transient_report;

 private:
  std::vector<StoredFile> files_;
  std::size_t selected_ = 0;
};

}  // namespace halden::simulator
