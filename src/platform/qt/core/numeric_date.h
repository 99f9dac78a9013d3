// Today's date as it stands in the window and in the records: there a field has ten characters and blanks
// separate the fields of a waveform file, so the desktop's own short date ("23 Nov 2026", "23. 11. 2026")
// would lose characters or shift columns.
#pragma once

#include <string>
#include <string_view>

#include "platform/clock.h"

namespace halden {

// Two-digit day and month and four-digit year, ten ASCII characters, in the order of the desktop's date
// format (UTF-8) and with its first separator of "/", "-" and ".", else "-": "M/d/yy" gives "11/23/2026". A
// format that names the month or has not each of d, M and y once gives "2026-11-23".
std::string numeric_date(const Date& date, std::string_view locale_format);

}  // namespace halden
