#include "formats/data_file.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>

#include "formats/file_headers.h"
#include "formats/record_field.h"
#include "formats/wave_files.h"
#include "platform/virtual/virtual_files.h"

namespace halden {
namespace {

struct DataFileTest : testing::Test {
  DataFileTest() { file.begin("d/a.csv", "head\r\n"); }

  const std::string& stored() { return files.contents["d/a.csv"]; }

  VirtualFiles files;
  DataFile file{files};
};

TEST_F(DataFileTest, HeaderLinesWaitAsWellAndAreNotDoubled) {
  files.write_failure = FileFailure::disk_full;
  file.begin("d/b.csv", "other head\r\n");
  file.append_line("1");
  EXPECT_EQ(file.lines_waiting(), 1u) << "header lines are not counted";
  files.write_failure = FileFailure::none;
  EXPECT_TRUE(file.write_waiting());
  EXPECT_TRUE(file.write_waiting());
  EXPECT_EQ(files.contents["d/b.csv"], "other head\r\n1\r\n");
}

TEST_F(DataFileTest, ATornLastLineIsHealedAndAVanishedFileBeginsAnew) {
  for (const auto& [found, left] : {std::pair("head\r\n1\r\n2,3", "head\r\n1\r\n2,3\r\n"),
                                    {"head\r\n1\r", "head\r\n1\r\n"},
                                    {"head\n1\n", "head\n1\n"},
                                    {"", "head\r\n"}}) {
    files.contents["d/a.csv"] = found;
    file.append_line("new");
    EXPECT_EQ(stored(), std::string(left) + "new\r\n");
  }
  files.contents.clear();
  file.append_line("new");
  EXPECT_EQ(stored(), "head\r\nnew\r\n");
  files.contents["d/c.csv"] = "torn";
  file.begin("d/c.csv", "head\r\n");
  EXPECT_EQ(files.contents["d/c.csv"], "torn\r\nhead\r\n");
}

TEST_F(DataFileTest, WhatWaitsCanGoElsewhereWithItsHeader) {
  file.append_line("1");
  files.folder_failures["d/"] = FileFailure::disk_full;
  file.append_line("2");
  files.folder_failures["full/"] = FileFailure::disk_full;
  EXPECT_EQ(file.write_waiting_to("full/x.csv"), FileFailure::disk_full);
  EXPECT_EQ(file.lines_waiting(), 1u);
  files.contents["e/x.csv"] = "older";
  EXPECT_EQ(file.write_waiting_to("e/x.csv"), FileFailure::none);
  EXPECT_EQ(files.contents["e/x.csv"], "older\r\nhead\r\n2\r\n");
  EXPECT_EQ(file.lines_waiting(), 0u);
  EXPECT_EQ(file.lines_written(), 1u) << "the other one is in the other file";
  EXPECT_EQ(file.failure(), FileFailure::none);
}

TEST(RecordField, AFieldKeepsTheLastTenCharacters) {
  EXPECT_EQ(record_field(""), "          ,");
  EXPECT_EQ(record_field("  OL "), "       OL ,");
  EXPECT_EQ(record_field("1234567890"), "1234567890,");
  EXPECT_EQ(record_field("-12.34KVARH"), "12.34KVARH,");
}

TEST(RecordField, ALostLineIs143CharactersLong) {
  const std::string line = no_communication_line({2024, 3, 15}, "12:30:44");
  EXPECT_EQ(line.size(), 143u);
  EXPECT_EQ(line.substr(0, 56), "03-15-2024,12:30:44, NO COM, DATA LOST, !, !,!,!,!,!,!,!");
  EXPECT_EQ(line.substr(56), std::string(87, ' '));
}

TEST(FileHeaders, TellHowTheMeterWasSet) {
  const SettingTexts set = {"60", "15", "2", "1", "1"};
  EXPECT_EQ(power_settings_line(Wiring::w3p4w, set), "3P4W,Hz=60,MD=15,SEC=2,CT=1,VT=1");
  EXPECT_EQ(power_settings_line(Wiring{7}, {"Auto", "", "", "100", "35"}),
            "????,Hz=Auto,MD=,SEC=,CT=100,VT=35");
  EXPECT_EQ(stored_power_settings_line(Wiring::w3p4w, set, 5), "3P4W,Hz=60,MD=15,SEC=2,CT=1,VT=1,INPUT=I3");
  EXPECT_EQ(stored_power_settings_line(Wiring::w1p2w, set, 6), "1P2W,Hz=60,MD=15,SEC=2,CT=1,VT=1,INPUT=");
  EXPECT_EQ(harmonics_settings_line({Wiring::w1p2w, 5, 1}, set),
            "HARMO,Hz=60,MD=15,SEC=2,CT=1,VT=1,INPUT=I3,SYS=1P2W,,NO.=100 ,OPTION=D");
  EXPECT_EQ(waveform_settings_line({Wiring::w3p4w, 0, 0}, set),
            "WAVE Hz=60 MD=15 SEC=2 CT=1 VT=1 INPUT=V1 SYS=3P4W, NO.=1024  OPTION=%");
  const std::string orders = harmonics_column_line();
  EXPECT_EQ(orders.substr(0, 58), "DATE, TIME, RMS, PEAK+, PEAK-, THD-F, VI_1, HZ, RANGE,0,1,");
  EXPECT_EQ(orders.substr(orders.size() - 6), ",98,99");
  EXPECT_EQ(std::count(orders.begin(), orders.end(), ','), 108);
  const std::string samples = waveform_column_line();
  EXPECT_EQ(samples.substr(0, 16), "DATE, TIME 0 1 2");
  EXPECT_EQ(samples.substr(samples.size() - 52), " 1021 1022 1023 OPTION RMS PEAK+ PEAK- HZ THD-F VI_1");
}

TEST(WaveRecords, AHarmonicsRecordHas109Fields) {
  WaveTexts texts = {"230.1V", "  OL ", "-325.4V", "1.41", "3.2%", "230.0V", "50Hz"};
  std::array<float, harmonic_orders> values{};
  values[1] = 100.0F;
  values[3] = -144.2301F;
  values[99] = 0.95F;  // rounds up, as a decimal number does
  const RecordLine record = harmonics_record("2024-03-15", "12:30:44", texts, values);
  EXPECT_EQ(record.text.size(), 1199u);
  EXPECT_EQ(record.text.substr(0, 143),
            "2024-03-15,  12:30:44,    230.1V,       OL ,   -325.4V,      3.2%,    230.0V,      50Hz,"
            "   0 to 99,       0.0,     100.0,       0.0,    -144.2,");
  EXPECT_EQ(record.text.substr(1177), "       0.0,       1.0,");
  EXPECT_FALSE(record.sign_cut);
  texts.peak_minus = "-1234.5678V";
  EXPECT_TRUE(harmonics_record("2024-03-15", "12:30:44", texts, values).sign_cut);
}

TEST(WaveRecords, AWaveformRecordGrowsByTheSignsOfItsSamples) {
  std::array<std::int16_t, waveform_samples> samples{};
  samples[0] = 12;
  samples[1023] = 32767;
  const std::string fields[] = {"    0", " 2301", " 3254", "   -1", "    1", "   32", " 2300"};
  std::string record = waveform_record("2024-03-15", "12:30:44", samples, fields).text;
  EXPECT_EQ(record.size(), 6219u);
  EXPECT_EQ(record.substr(0, 36), "2024-03-15   12:30:44 B 00012 00000 ");
  EXPECT_EQ(record.substr(6162), "32767 O=    0R= 2301P= 3254N=   -1H=    1T=   32V= 2300 E");
  samples[0] = -45;
  samples[1023] = -32768;
  record = waveform_record("15.03.2024", "9:05:00", samples, fields).text;
  EXPECT_EQ(record.size(), 6221u);
  EXPECT_EQ(record.substr(0, 37), "15.03.2024    9:05:00 B -00045 00000 ");
  EXPECT_EQ(record.substr(6162, 9), " -32768 O");
}

}  // namespace
}  // namespace halden
