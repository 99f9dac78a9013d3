// The kinds of files in the meter's memory, and in what their downloads differ.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "link/meter_status.h"
#include "logger/file_conversion.h"
#include "platform/files.h"
#include "screen/language.h"

namespace halden {

struct StoredKind {
  Text name;                            // in the status panel
  std::string_view suffix;              // of its file's name in a run over all files
  std::string_view extension;           // of a file's name without one
  std::string_view wrong_kind_message;  // when another kind is selected
  std::size_t unit_bytes;               // decoded together
  double after_request_s;
  // Null for a hardcopy, whose words are the file.
  const struct StoredConversion* conversion;
};

struct StoredConversion {
  std::string_view words_file;  // where the words wait
  decltype(&convert_power_file) convert;
  decltype(&power_count_text) count_text;
  std::string (*failure_message)(FileFailure failure);
};

// The bytes of one record; of a hardcopy those of one word.
std::size_t record_bytes(const StoredKind& kind, const MeterStatus& status);

extern const StoredKind power_kind;
extern const StoredKind harmonics_kind;
extern const StoredKind hardcopy_kind;

// Of a status reply; null for a code without a meaning.
const StoredKind* kind_of(std::int16_t logger_data_type);

}  // namespace halden
