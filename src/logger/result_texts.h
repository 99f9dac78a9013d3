// What became of downloads, as texts for the list of results and the status line.
#pragma once

#include <string>

#include "logger/download_all.h"
#include "logger/download_result.h"
#include "screen/language.h"

namespace halden {

// "2,880 records", "12 records, bytes were lost: download again", "cancelled, 12 records", ...
std::string result_text(const DownloadResult& result, Language language);

// "20090512153003P.csv: 2,880 records"
std::string line_of(const FileOfRun& file, Language language);

// "2 downloaded, 1 already there, 1 not whole: /home/a/halden"
std::string run_text(const RunResult& run, const std::string& folder, Language language);

}  // namespace halden
