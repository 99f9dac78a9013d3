// What became of a download.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "platform/files.h"
#include "screen/language.h"

namespace halden {

enum class DownloadEnd {
  whole,
  incomplete,  // bytes were lost
  nothing,     // the meter sent nothing
  cancelled,   // what had arrived until then is in the file
  unwritable   // a file could not be written
};

enum class Amount { records, words };  // those of a hardcopy

struct DownloadResult {
  DownloadEnd end = DownloadEnd::whole;
  std::size_t bytes = 0;    // received
  std::size_t records = 0;  // or words, in the file
  Amount amount = Amount::records;
  bool sign_cut = false;  // a value has lost its minus sign
  FileFailure failure = FileFailure::none;
  // The meter was silent at the end, and its status was read again where that belongs to the download.
  bool goes_on = true;
};

inline constexpr std::string_view incomplete_message = "Data transfer incomplete";

// "The file could not be written: disk full."
std::string unwritable_message(FileFailure failure, Language language);

}  // namespace halden
