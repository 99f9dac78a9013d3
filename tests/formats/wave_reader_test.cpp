// Reading single lines of harmonics and waveform data files.
#include "formats/wave_reader.h"

#include <gtest/gtest.h>

namespace halden {
namespace {

const std::string lost_line =
    "03-15-2024,12:30:44, NO COM, DATA LOST, !, !,!,!,!,!,!,!" + std::string(87, ' ');

std::string settings_texts(std::string_view line) {
  const WaveSettings read = read_wave_settings(line);
  const char* kind = !read.kind ? "-" : *read.kind == WaveFileKind::harmonics ? "harmonics" : "waveform";
  return std::string(kind) + "|" + read.hz + "|" + read.md + "|" + read.sec + "|" + read.ct + "|" + read.vt +
         "|" + read.input + "|" + read.sys + "|" + std::to_string(read.count) + "|" + read.option;
}

TEST(WaveSettings, AreReadFromTheHeaderOfEachKindOfFile) {
  EXPECT_EQ(settings_texts("HARMO,Hz=60,MD=15,SEC=2,CT=10,VT=1,INPUT=I2,SYS=3P4W,,NO.=100 ,OPTION=D"),
            "harmonics|60|15|2|10|1|I2|3P4W|100|D");
  EXPECT_EQ(settings_texts("HARMO,Hz=50,MD=15,SEC=20,CT=1,VT=35,INPUT=V1,SYS=1P2W,NO.=51 ,OPTION=%"),
            "harmonics|50|15|20|1|35|V1|1P2W|51|%");
  EXPECT_EQ(settings_texts("WAVE Hz=Auto MD= SEC=4 CT=1 VT=1 INPUT=V3 SYS=????, NO.=1024  OPTION=%"),
            "waveform|Auto||4|1|1|V3|????|1024|%");
  EXPECT_EQ(settings_texts("HARMO,CT=2,VT=,INPUT=,SYS=3P4W,,NO.=100 "), "harmonics||||2|||3P4W|100| ");
  for (const char* other : {"HARMONICS,CT=1", "WAVES Hz=60", "3P4W,Hz=60", ""})
    EXPECT_FALSE(read_wave_settings(other).kind) << other;
}

// Date, time, seven values, range and so many orders of "1.5".
std::string harmonics_line(const std::string& range, std::size_t orders) {
  std::string line =
      "03/15/2024,  12:30:44,    230.1V,    325.4V,   -324.9V,      3.2%,    230.0V,      60Hz," + range +
      ",";
  for (std::size_t order = 1; order < orders; ++order) line += "       1.5,";
  return line + "     100.0,";
}

TEST(HarmonicsLine, AWholeRecordIsTakenApart) {
  const std::string line = harmonics_line("   0 to 99", 100);
  const HarmonicsLine live = read_harmonics_line(line);
  ASSERT_TRUE(live.is_record());
  EXPECT_EQ(live.date, "03/15/2024");
  EXPECT_EQ(live.time, "12:30:44");
  EXPECT_EQ(live.peak_minus, "-324.9V");
  EXPECT_EQ(live.hz, "60Hz");
  EXPECT_EQ(live.first_order, 0);
  ASSERT_EQ(live.order_count, 100U);
  EXPECT_EQ(live.order_field(0), "       1.5");
  EXPECT_EQ(live.order_field(99), "     100.0");
  const std::pair<const char*, std::optional<int>> ranges[] = {
      {"   0 to 50", 0}, {" 50 to 100", 50}, {"   ?      ", {}}};
  for (const auto& [range, first] : ranges) {
    const std::string stored_line = harmonics_line(range, 51);
    const HarmonicsLine stored = read_harmonics_line(stored_line);
    EXPECT_TRUE(stored.is_record());
    EXPECT_EQ(stored.first_order, first);
    EXPECT_EQ(stored.order_count, 51U);
  }
}

std::string waveform_line(const std::string& first_sample, const std::string& fields) {
  std::string line = "2024-03-15    9:05:00 B " + first_sample;
  for (int sample = 1; sample < 1023; ++sample) line += " 00000";
  return line + " 32767 " + fields;
}
const std::string whole_fields = "O=    3R= 2301P= 3254N=   -1H=    1T=   32V= 2300 E";

TEST(WaveformLine, AWholeRecordIsTakenApart) {
  const std::string line = waveform_line("-32768", whole_fields);
  const WaveformLine read = read_waveform_line(line);
  ASSERT_TRUE(read.is_record());
  EXPECT_EQ(read.date, "2024-03-15");
  EXPECT_EQ(read.time, "9:05:00");
  EXPECT_EQ(read.samples.front(), -32768);
  EXPECT_EQ(read.samples.back(), 32767);
  const WaveFields& fields = read.fields;
  EXPECT_EQ(fields.channel, 3);
  EXPECT_EQ(fields.peak_minus, -1);
  EXPECT_EQ(fields.thd_tenths, 32);
  EXPECT_EQ(fields.fundamental, 2300);
}

TEST(WaveLines, WhatIsNoRecordSaysWhatItIs) {
  const std::string record = harmonics_line("   0 to 99", 100);
  const std::pair<std::string, WaveLineKind> harmonics[] = {{lost_line, WaveLineKind::lost_link},
                                                            {"HARMO,Hz=60,NO.=100 ", WaveLineKind::header},
                                                            {"DATE, TIME, RMS, PEAK+", WaveLineKind::header},
                                                            {record.substr(0, 1198), WaveLineKind::torn},
                                                            {record.substr(0, 15), WaveLineKind::torn},
                                                            {record + record, WaveLineKind::torn},
                                                            {"", WaveLineKind::foreign},
                                                            {"not a record", WaveLineKind::foreign}};
  for (const auto& [line, kind] : harmonics) {
    EXPECT_EQ(read_harmonics_line(line).kind, kind) << line;
    EXPECT_EQ(read_harmonics_line(line).rms, "") << line;
  }
  EXPECT_EQ(read_harmonics_line(lost_line).date, "03-15-2024");
  EXPECT_EQ(read_harmonics_line(lost_line).time, "12:30:44");
  const std::string short_by_one = "2024-03-15    9:05:00 B 00001 00002 " + whole_fields;
  for (const std::string& torn :
       {waveform_line("32768", whole_fields), waveform_line("00001", whole_fields.substr(0, 48)),
        waveform_line("00001", "O=    3R= 2301P=  x54N=   -1H=    1T=   32V= 2300 E"), short_by_one})
    EXPECT_EQ(read_waveform_line(torn).kind, WaveLineKind::torn) << torn.substr(0, 40);
  EXPECT_EQ(read_waveform_line("WAVE Hz=60 MD=15").kind, WaveLineKind::header);
  EXPECT_EQ(read_waveform_line(lost_line).kind, WaveLineKind::lost_link);
}

}  // namespace
}  // namespace halden
