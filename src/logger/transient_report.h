// From the transient report, as the meter sends it, to the lines of an event file.
//
// The report is text: nine numbers, separated by a comma, blanks or a line end (year without its century,
// month, day, hour, minute, second of the start of recording, PT ratio, reference voltage in 0.1 V, SD in
// percent), then one line per event in fixed columns:
//
//   9,2,28,23,50,10,1,2200,10
//     100:00:15 00120 02      event 1-3, elapsed days:hours:minutes 4-11, cycles 13-17, conditions 19-20
//     200:01:00 -1000  08     with a "-" cycles are 13-18, conditions 20-21
//
// The event file, in which the reference is scaled by the PT ratio of the report:
//
//   TODAY: 03-02-2009
//   START RECORDING:2009-02-28 23:50:10
//   REF=220.0V ,SD%=10%
//          NO.,EVENT TIME,      DATE,      TIME,    CYCLES, CONDITIONS
//            1,  00:00:15,2009-03-01,     00:05,     00120,      2(LO)
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "platform/clock.h"

namespace halden {

inline constexpr std::string_view no_transient_data_message = "No transient data";

enum class TransientOutcome {
  converted,
  nothing_received,  // no file is to be written
  incomplete         // no nine numbers at the start: nothing can be dated or scaled, so there are no lines
};

struct TransientEvents {
  TransientOutcome outcome = TransientOutcome::converted;
  std::string lines{};  // each with its line end
  std::size_t records = 0;
};

// A line that is too short, or in which elapsed time, cycles or conditions are not numbers, keeps the text of
// its fields; its date and time are blank. So are those of all events when the start is no date or time. An
// empty line is no event.
TransientEvents convert_transient_report(std::string_view report, const Date& today);

// "12 records converted"
std::string transient_count_text(const TransientEvents& events);

}  // namespace halden
