// Writes any data file of this program as a table of numbers for other programs, one row a record. The file
// is read twice, and neither pass holds more of it in memory than a line.
//
//   record,block,date,time,time_iso,V1_V,I1_A,...,note
//   1,1,03-15-2024,12:30:44,2024-03-15T12:30:44,230.1,0.9999,...,no value: W_MD VA_MD
//
// `record` counts all lines behind the first header lines, as the other file tools do, `block` the header
// blocks: a recording that was continued has several.
#pragma once

#include <cstddef>
#include <string>

#include "filetools/export/export_options.h"
#include "filetools/reading_progress.h"
#include "platform/files.h"

namespace halden {

struct ExportRequest {
  std::string source, target;
  ExportOptions options{};
};

enum class ExportOutcome {
  written,
  cancelled,
  not_opened,      // the data file; `failure` says why
  no_data_file,    // none of this program
  over_recording,  // the result would replace a data file
  not_read,        // to its end
  not_written      // the result; `failure` says why
};

struct ExportResult {
  ExportOutcome outcome = ExportOutcome::written;
  FileFailure failure = FileFailure::none;
  std::size_t rows = 0;
  std::size_t without_readings = 0;  // of the rows
  bool scaled_currents = false;      // with range and clamp of the options
};

// Only a whole table appears under the name of the result. The progress is that of both passes.
ExportResult export_numbers(Files& files, const ExportRequest& request, const FileProgress& progress = {});

// Without an export: `written` when the file is a data file of this program, otherwise why it cannot be
// exported.
ExportResult check_source(Files& files, const std::string& path);
bool is_data_file(Files& files, const std::string& path);

}  // namespace halden
