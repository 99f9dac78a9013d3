// From the words that a transfer has left in a file to the lines of a data file. A full memory of the meter
// gives some forty megabytes of lines, so both files are handled in pieces.
#pragma once

#include <cstddef>
#include <functional>
#include <string>

#include "logger/recorded_settings.h"
#include "platform/files.h"

namespace halden {

struct FileConversion {
  std::size_t records = 0;     // lines in the output, also that of a power record cut short
  bool incomplete = false;     // the words end inside a record
  bool start_is_valid = true;  // otherwise all lines have blank dates and times
  bool sign_cut = false;       // a field has lost its minus sign
  // Why reading or writing ended early; the output then ends with a whole line.
  FileFailure failure = FileFailure::none;
};

// Told the records in the output, each time that some were written.
using ConversionProgress = std::function<void(std::size_t records)>;

// Both append the header lines and the lines of all records to the output, also when there is no record. The
// progress may end the conversion by throwing; what was written by then stays.
FileConversion convert_power_file(Files& files, const std::string& words_path,
                                  const RecordedSettings& recorded, const std::string& output_path,
                                  const ConversionProgress& progress);
FileConversion convert_harmonics_file(Files& files, const std::string& words_path,
                                      const RecordedSettings& recorded, const std::string& output_path,
                                      const ConversionProgress& progress);

// "2 records Converted" and "2 records converted"
std::string power_count_text(std::size_t records);
std::string harmonics_count_text(std::size_t records);

}  // namespace halden
