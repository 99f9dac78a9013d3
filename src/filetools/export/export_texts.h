// What is said about an export of numbers, in both languages.
#pragma once

#include <string>

#include "filetools/export/number_export.h"
#include "screen/language.h"

namespace halden {

// "7200 rows written to day.csv, 12 of them without readings", or why there is no result.
std::string export_sentence(const ExportResult& result, const ExportRequest& request, Language language);

}  // namespace halden
