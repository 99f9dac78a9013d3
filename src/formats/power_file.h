// The columns of the power data file, by wiring system: their names as they stand in the file's second line,
// and the quantities whose texts a record stores.
//
//   3P4W,Hz=60,MD=15,SEC=2,CT=1,VT=1
//         DATE,      TIME,       V12,       V23, ...     VA(MD)
//   03-15-2024,  12:30:44,    400.1V,    399.8V, ...     ------,
//
// A record has one field of eleven characters per column and ends with a comma: 38 columns of 3P4W are 418
// characters, 20 of 3P3W 220, 28 of 1P3W 308, 17 of 1P2W 187.
#pragma once

#include <string>
#include <string_view>

#include "formats/quantities.h"
#include "platform/clock.h"
#include "readings/wiring.h"

namespace halden {

// The line of the column names; empty for an unknown wiring system.
std::string power_column_line(Wiring wiring_system);

// One record without its line end. `time` is the sampling instant as it is shown ("12:30:44"). Empty for an
// unknown wiring system.
std::string power_record(Wiring wiring_system, const Date& date, std::string_view time,
                         const PowerTexts& texts);

}  // namespace halden
