// The kinds of files in the meter's memory, and in what their downloads differ.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "logger/file_conversion.h"
#include "screen/language.h"

namespace halden {

struct StoredKind {
  Text name;                            // in the status panel
  std::string_view suffix;              // of its file's name in a run over all files
  std::string_view extension;           // of a file's name without one
  std::string_view wrong_kind_message;  // when another kind is selected
  std::size_t unit_bytes;               // decoded together
  double after_request_s;
  std::string_view words_file;  // where its words wait for their conversion; empty: there is none
  decltype(&convert_power_file) convert;
  decltype(&power_count_text) count_text;
};

inline constexpr StoredKind power_kind = {{"Power", "電力記錄"},
                                          "P.csv",
                                          ".csv",
                                          "Data stored is not power data, please press the i button to check",
                                          10,
                                          1.0,
                                          "temp_data.pwr",
                                          convert_power_file,
                                          power_count_text};

inline constexpr StoredKind harmonics_kind = {
    {"Harmonics", "諧波記錄"},
    "H.csv",
    ".csv",
    "Data stored is not harmonic data, please press the i button to check",
    2,
    0.0,
    "temp_data.har",
    convert_harmonics_file,
    harmonics_count_text};

inline constexpr StoredKind hardcopy_kind = {
    {"Hardcopy", "視窗保存"},
    "C.txt",
    ".txt",
    "Data stored is not hardcopy data, please press the i button to check",
    2,
    0.0,
    "",
    nullptr,
    nullptr};

// Of a status reply; nothing for a code without a meaning.
inline const StoredKind* kind_of(std::int16_t logger_data_type) {
  if (logger_data_type == 0) return &harmonics_kind;
  if (logger_data_type == 1) return &power_kind;
  return (logger_data_type & 2) != 0 ? &hardcopy_kind : nullptr;
}

}  // namespace halden
