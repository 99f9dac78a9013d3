#include "logger/file_conversion.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "platform/virtual/virtual_files.h"

namespace halden {
namespace {

class FileConversionTest : public testing::Test {
 protected:
  // 230.0 V and 5.000 A in phase: 1150 W.
  void add_groups(int count) {
    while (count-- > 0) words += "02300\r\n05000\r\n01150\r\n00000\r\n00000\r\n";
  }

  void add_words(int count) {
    while (count-- > 0) words += "02300\r\n";
  }

  FileConversion convert(std::int16_t wiring_system, decltype(convert_power_file)& convert_file) {
    MeterStatus status;
    status.logger_system = wiring_system;
    status.logger_current_range = 1;
    status.logger_sample_seconds = 1800;
    status.md_period = 60;
    return convert_file(files, "words", recorded_settings_of(status, "2024-02-28", "23:45:00"), "out.csv",
                        [this](std::size_t records) { told.push_back(records); });
  }

  // Behind the two header lines; -1 when the last one lacks its line end.
  std::ptrdiff_t data_lines() {
    return output.ends_with("\r\n") ? std::count(output.begin(), output.end(), '\n') - 2 : -1;
  }

  VirtualFiles files;
  std::string& words = files.contents["words"];
  std::string& output = files.contents["out.csv"];
  std::vector<std::size_t> told;
};

// Half an hour of 1150 W is 575 Wh; two records are a demand period.
TEST_F(FileConversionTest, TwoPowerRecordsAcrossMidnightAfterAnOldTornLine) {
  add_groups(2);
  output = "2023-01-01,  1";
  const FileConversion done = convert(0, convert_power_file);
  EXPECT_EQ(
      output,
      "2023-01-01,  1\r\n"
      "1P2W,Hz=Auto,MD=60,SEC=1800,CT=1,VT=1,INPUT=V1\r\n"
      "      DATE,      TIME,        V1,        I1,    Phase1,     W_SYS,    VA_SYS,   VAR_SYS,    PF_SYS,"
      "     WH_SYS,  VAH_SYS,  VARH_SYS,   PFH_SYS,     W(AD),    VA(AD),     W(MD),    VA(MD)\r\n"
      "2024-02-28,  23:45:00,    230.0V,    5.000A,     000.0,   1.150KW,  1.150KVA, 0.000KVAR,      1.00,"
      "  0.575KWH, 0.575KVAH,0.000KVARH,     1.00H,          ,          ,    ------,    ------,\r\n"
      "2024-02-29,  00:15:00,    230.0V,    5.000A,     000.0,   1.150KW,  1.150KVA, 0.000KVAR,      1.00,"
      "  1.150KWH, 1.150KVAH,0.000KVARH,     1.00H,   1.150KW,  1.150KVA,   1.150KW,  1.150KVA,\r\n");
  EXPECT_EQ(power_count_text(done.records), "2 records Converted");
  EXPECT_TRUE(done.start_is_valid && !done.sign_cut && done.failure == FileFailure::none);
}

TEST_F(FileConversionTest, WordsThatEndInsideARecordAreIncomplete) {
  const struct {
    std::int16_t wiring_system;
    int groups, more_words;
    std::size_t records;
    bool incomplete;
  } cases[] = {{1, 0, 0, 0, false}, {1, 3, 0, 2, true}, {1, 4, 2, 2, true},  {3, 3, 0, 1, false},
               {3, 5, 4, 2, true},  {0, 0, 4, 0, true}, {4, 3, 4, 0, false}, {-1, 1, 0, 0, false}};
  for (const auto& c : cases) {
    words.clear();
    output.clear();
    add_groups(c.groups);
    add_words(c.more_words);
    const FileConversion done = convert(c.wiring_system, convert_power_file);
    EXPECT_EQ(done.records, c.records) << c.groups << " groups of " << c.wiring_system;
    EXPECT_EQ(done.incomplete, c.incomplete) << c.groups << " groups of " << c.wiring_system;
    EXPECT_EQ(data_lines(), static_cast<std::ptrdiff_t>(c.records));
  }
  EXPECT_EQ(output, "????,Hz=Auto,MD=60,SEC=1800,CT=1,VT=1,INPUT=V1\r\n\r\n");
}

TEST_F(FileConversionTest, AFullDiskOrAFaultyWordStopsAtAWholeLineWithTheRightCount) {
  add_groups(2000);  // 378,000 bytes of lines
  files.free_bytes = 200000;
  FileConversion done = convert(0, convert_power_file);
  EXPECT_EQ(done.failure, FileFailure::disk_full);
  EXPECT_EQ(data_lines(), static_cast<std::ptrdiff_t>(done.records));
  EXPECT_TRUE(done.records > 600 && done.records < 1060) << done.records;
  EXPECT_EQ(told.size(), 3u);
  EXPECT_EQ(told.back(), done.records);

  files.free_bytes.reset();
  output.clear();
  words.resize(3 * 35);
  words += "0x300\r\n02300\r\n";
  done = convert(0, convert_power_file);
  EXPECT_EQ(done.failure, FileFailure::failed);
  EXPECT_EQ(done.records, 3u);
  EXPECT_EQ(data_lines(), 3);
}

TEST_F(FileConversionTest, AHarmonicsRecordCutShortIsDropped) {
  add_words(130);
  const FileConversion done = convert(0, convert_harmonics_file);
  EXPECT_EQ(harmonics_count_text(done.records), "2 records converted");
  EXPECT_TRUE(done.incomplete);
  EXPECT_EQ(data_lines(), 2);
  EXPECT_TRUE(
      output.starts_with("HARMO,Hz=Auto,MD=60,SEC=1800,CT=1,VT=1,INPUT=V1,SYS=1P2W,NO.=51 ,OPTION=%\r\n"));
  EXPECT_NE(output.find("\r\n2024-02-29,  00:15:00,    230.0V,    230.0V,   -230.0V,    230.0%,"),
            std::string::npos);
}

}  // namespace
}  // namespace halden
