// Texts of the datalogger that several of its parts show.
#pragma once

#include <cstddef>
#include <string>

#include "screen/language.h"

namespace halden {

inline constexpr Text bytes_lost = {"bytes were lost: download again", "資料遺失：請重新下載"};

// "58,420"
std::string with_thousands(std::size_t number);

// "9 s", "1 min 01 s", "1 h 02 min"
std::string duration_text(double seconds, Language language);

// "1 record", "2,880 records"
std::string records_text(std::size_t records, Language language);

// "1 file", "9 files"
std::string files_text(std::size_t files, Language language);

}  // namespace halden
