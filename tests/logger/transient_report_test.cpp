#include "logger/transient_report.h"

#include <gtest/gtest.h>

namespace halden {
namespace {

constexpr Date today{2009, 3, 2};

std::string lines_of(std::string_view report) { return convert_transient_report(report, today).lines; }

TEST(TransientReport, AReportWorkedOutByHand) {
  const TransientEvents events = convert_transient_report(
      "9, 2,28\r\n23 50 10,100,2200,10 \r\n"
      "  100:00:15 00120 02\r\n"
      "  299:23:59 00001 07\n"
      "\r\n"
      "  301:00:00 -1000  08\r"
      "  40x:00:15 00120 01\r\n"  // malformed
      "  500:00:15 0-1x1  04\r\n"
      "  600:0",  // cut
      today);
  EXPECT_EQ(events.lines,
            "TODAY: 03-02-2009\r\n"
            "START RECORDING:2009-02-28 23:50:10\r\n"
            "REF=22.00KV ,SD%=10%\r\n"
            "       NO.,EVENT TIME,      DATE,      TIME,    CYCLES, CONDITIONS\r\n"
            "         1,  00:00:15,2009-03-01,     00:05,     00120,      2(LO)\r\n"
            "         2,  99:23:59,2009-06-08,     23:49,     00001,(HI+LO+OUT)\r\n"
            "         3,  01:00:00,2009-03-01,     23:50,     64536,          ?\r\n"
            "         4,  0x:00:15,          ,          ,     00120,      1(HI)\r\n"
            "         5,  00:00:15,          ,          ,    0-1x1 ,     4(OUT)\r\n"
            "         6,      00:0,          ,          ,          ,          ?\r\n");
  EXPECT_EQ(transient_count_text(events), "6 records converted");
}

TEST(TransientReport, TheHeaderDecidesWhatCanBeSaid) {
  EXPECT_EQ(convert_transient_report("", today).outcome, TransientOutcome::nothing_received);
  for (const char* report :
       {"\r\n", "9,2,28,23,50,10,1,2200", "9,2,28,23,50,10,1,2200,\r\n", "9,,28,23,50,10,1,2200,10",
        "9,2,28,23,50,10,1,22?0,10\r\n  100:00:15 00120 02"}) {
    EXPECT_EQ(convert_transient_report(report, today).outcome, TransientOutcome::incomplete) << report;
    EXPECT_EQ(lines_of(report), "") << report;
  }
  // A ratio of 0 was never set. 32767 x 100000 is beyond 32 bits.
  EXPECT_NE(lines_of("9,2,28,23,50,10,0,2200,10").find("REF=220.0V ,SD%=10%\r\n"), std::string::npos);
  EXPECT_NE(lines_of("9,2,28,23,50,10,100000,32767,5").find("REF=327.6MV ,SD%=5%\r\n"), std::string::npos);
  EXPECT_NE(lines_of("9,2,28,23,50,10,1,-1,10").find("REF=  OL  ,SD%=10%\r\n"), std::string::npos);
  // No month 13, no year 99999: events without date and time.
  for (const char* start : {"9,13", "99999,2"})
    EXPECT_TRUE(lines_of(std::string(start) + ",28,23,50,10,1,2200,10,  100:00:15 00120 02")
                    .ends_with("\r\n         1,  00:00:15,          ,          ,     00120,      2(LO)\r\n"));
}

}  // namespace
}  // namespace halden
