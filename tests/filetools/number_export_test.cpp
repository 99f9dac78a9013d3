// From the data files to tables of numbers.
#include "filetools/export/number_export.h"

#include <gtest/gtest.h>

#include <sstream>

#include "filetools/export/export_texts.h"
#include "formats/file_headers.h"
#include "formats/power_file.h"
#include "platform/virtual/virtual_files.h"

namespace halden {
namespace {

// A record whose fields stand as the program writes them: each text in ten characters and a comma.
std::string record(std::string_view date, std::string_view time, std::vector<std::string_view> texts) {
  std::string line = record_field(date) + record_field(time);
  for (const std::string_view text : texts) line += record_field(text);
  return line + "\r\n";
}

std::string power_head(Wiring wiring) {
  return header_lines(power_settings_line(wiring, {"60", "15", "2", "1", "1"}), power_column_line(wiring));
}

const std::string one_phase =
    power_head(Wiring::w1p2w) +
    record("03-15-2024", "12:30:44",
           {"230.1V", "999.9mA", "-010.0", "2.410KW", "2.500KVA", "-0.045KVAR", "-0.96", "12.34MWH",
            "0.005GVAH", "-0.045KVARH", "0.99H", "------", "------", "", "0.001TVA"}) +
    record("03-15-2024", "12:30:46",
           {"  OL ", "  OL ", "030.5", "  OL ", "1.000VA", "  OL ", "   OL ", "1.0WH", "1.0VAH", "1.0VARH",
            "0.00H", "1.0W", "1.0VA", "1.0W", "1.0VA"});

struct NumberExports : testing::Test {
  std::vector<std::string> lines_of(const std::string& bytes, const ExportOptions& options = {},
                                    const std::string& target = "t.csv") {
    files.contents["s.csv"] = bytes;
    files.contents.erase(target);
    result = export_numbers(files, {"s.csv", target, options});
    EXPECT_FALSE(files.exists(target + ".part"));
    std::istringstream text(files.contents[target]);
    std::vector<std::string> lines;
    for (std::string line; std::getline(text, line);) lines.push_back(line);
    return lines;
  }

  VirtualFiles files;
  ExportResult result;
};

TEST_F(NumberExports, ARecordIsARowOfNumbersInBaseUnits) {
  EXPECT_EQ(
      lines_of(one_phase),
      (std::vector<std::string>{
          "record,block,date,time,time_iso,V1_V,I1_A,Phase1_deg,W_SYS_W,VA_SYS_VA,VAR_SYS_var,PF_SYS,"
          "WH_SYS_Wh,VAH_SYS_VAh,VARH_SYS_varh,PFH_SYS,W_AD_W,VA_AD_VA,W_MD_W,VA_MD_VA,note",
          "1,1,03-15-2024,12:30:44,2024-03-15T12:30:44,230.1,0.9999,-10.0,2410,2500,-45,-0.96,12340000,"
          "5000000,45,0.99,,,,1000000000,no value: W_AD VA_AD W_MD / a sign may be cut: VARH_SYS",
          "2,1,03-15-2024,12:30:46,2024-03-15T12:30:46,,,30.5,,1.000,,,1.0,1.0,1.0,0.00,1.0,1.0,1.0,1.0,"
          "over range: V1 I1 W_SYS VAR_SYS PF_SYS"}));
  EXPECT_EQ(result.rows, 2u);
  EXPECT_EQ(result.without_readings, 0u);
}

// A recording continued with another wiring, by a download too; its columns are those of both.
TEST_F(NumberExports, EveryLineIsARowAndAllRowsHaveTheSameColumns) {
  std::vector<std::string_view> texts(18, "1.0V");
  const auto lines = lines_of("\xEF\xBB\xBF" + one_phase + no_communication_line({2024, 3, 15}, "12:30:48") +
                              "\n" + power_head(Wiring::w3p3w) + record("2024-03-16", "00:00:00", texts) +
                              record("13-16-2024", "24:00:00", texts) + "03-16-2024,  00:0");
  ASSERT_EQ(lines.size(), 9u);
  EXPECT_EQ(lines[0].substr(0, 68), "record,block,date,time,time_iso,V12_V,V23_V,V31_V,V1_V,I1_A,I2_A,I3_");
  const auto between = [&lines](std::size_t row) {  // everything before and behind the numbers
    const std::string& line = lines[row];
    return line.substr(0, line.find(",,,")) + " " + line.substr(line.rfind(',') + 1);
  };
  EXPECT_EQ(between(3), "3,1,03-15-2024,12:30:48,2024-03-15T12:30:48 lost link");
  EXPECT_EQ(lines[4].substr(0, 7) + lines[4].substr(lines[4].size() - 12), "4,2,,,,,header line");
  EXPECT_EQ(lines[6],
            "6,2,2024-03-16,00:00:00,2024-03-16T00:00:00,1.0,1.0,1.0,,1.0,1.0,1.0,,1.0,1.0,1.0,1.0,1.0,"
            "1.0,1.0,1.0,1.0,1.0,1.0,1.0,");
  EXPECT_EQ(lines[7].substr(0, 27), "7,2,13-16-2024,24:00:00,,1.");
  EXPECT_EQ(between(8), "8,2,03-16-2024,00:0 no whole record");
  for (const std::string& line : lines) EXPECT_EQ(std::count(line.begin(), line.end(), ','), 25) << line;
  EXPECT_EQ(result.rows, 8u);
  EXPECT_EQ(result.without_readings, 4u);
  EXPECT_EQ(lines_of(power_head(Wiring::w1p2w)).size(), 1u);
}

TEST_F(NumberExports, SpreadsheetsAndOtherProgramsGetTheirForms) {
  const ExportOptions comma{.decimal = DecimalMark::comma, .separator = Separator::semicolon};
  EXPECT_EQ(lines_of(one_phase, comma)[1].substr(0, 75),
            "1;1;03-15-2024;12:30:44;2024-03-15T12:30:44;230,1;0,9999;-10,0;2410;2500;-4");
  const auto json =
      lines_of(one_phase, {.format = TableFormat::json, .decimal = DecimalMark::comma}, "t.json");
  ASSERT_EQ(json.size(), 4u);
  EXPECT_EQ(json[0] + json[3], "[]");
  EXPECT_EQ(
      json[1].substr(0, 123),
      R"({"record":1,"block":1,"date":"03-15-2024","time":"12:30:44","time_iso":"2024-03-15T12:30:44","V1_V":)"
      R"(230.1,"I1_A":0.9999,"Ph)");
  EXPECT_EQ(json[2].substr(json[2].size() - 55),
            R"(A":1.0,"note":"over range: V1 I1 W_SYS VAR_SYS PF_SYS"})");
  EXPECT_EQ(table_format("a/b.CSV"), TableFormat::csv);
  EXPECT_EQ(table_format("a.csv/b"), std::nullopt);
}

TEST_F(NumberExports, OnlyAWholeTableAppears) {
  std::string bytes = power_head(Wiring::w1p2w);
  while (bytes.size() < 4000000)
    bytes += record("03-15-2024", "12:30:44", std::vector<std::string_view>(15, "1.0V"));
  files.contents = {{"s.csv", bytes}, {"t.csv", "earlier"}};
  int calls = 0;
  result = export_numbers(files, {"s.csv", "t.csv"}, [&calls](auto done, auto whole) {
    EXPECT_LE(done, whole);
    return ++calls < 6;
  });
  EXPECT_EQ(result.outcome, ExportOutcome::cancelled);
  files.free_bytes = 1000000;
  result = export_numbers(files, {"s.csv", "t.csv"});
  EXPECT_EQ(result.outcome, ExportOutcome::not_written);
  EXPECT_EQ(export_sentence(result, {"s.csv", "d/t.csv"}, Language::english),
            "t.csv was not written: disk full");
  files.folder_failures["d/"] = FileFailure::not_found;
  EXPECT_EQ(export_numbers(files, {"s.csv", "d/t.csv"}).failure, FileFailure::not_found);
  EXPECT_EQ(files.contents, (std::map<std::string, std::string>{{"s.csv", bytes}, {"t.csv", "earlier"}}));
}

TEST_F(NumberExports, NoRecordingIsReplacedAndNothingElseIsRead) {
  using enum ExportOutcome;
  files.contents = {
      {"s.csv", one_phase}, {"u.csv.part", one_phase}, {"other.csv", "a,b\n1,2\n"}, {"empty.csv", ""}};
  const auto files_before = files.contents;
  const std::tuple<const char*, const char*, ExportOutcome> rows[] = {{"s.csv", "s.csv", over_recording},
                                                                      {"s.csv", "u.csv", over_recording},
                                                                      {"other.csv", "t.csv", no_data_file},
                                                                      {"empty.csv", "t.csv", no_data_file},
                                                                      {"missing", "t.csv", not_opened}};
  for (const auto& [source, target, outcome] : rows)
    EXPECT_EQ(export_numbers(files, {source, target}).outcome, outcome) << source << target;
  EXPECT_EQ(files.contents, files_before);
}

// ---- harmonics, waveforms, events ----

const std::string harmonics_head =
    "HARMO,Hz=60,MD=15,SEC=2,CT=1,VT=1,INPUT=V1,SYS=3P4W,,NO.=100 ,OPTION=%\r\nDATE, TIME\r\n";
const std::string stored_head =
    "HARMO,Hz=Auto,MD=15,SEC=2,CT=1,VT=1,INPUT=I2,SYS=3P4W,NO.=51 ,OPTION=%\r\nDATE, TIME\r\n";

std::string harmonics_record_of(std::string_view date, std::vector<std::string_view> texts,
                                std::size_t orders) {
  for (std::size_t order = 0; order < orders; ++order) texts.push_back(order == 1 ? "100.0" : "0.5");
  return record(date, "12:30:44", texts);
}

TEST_F(NumberExports, HarmonicsHaveTheColumnsOfTheirInputsAndOrders) {
  const std::string live = harmonics_record_of(
      "15.03.2024", {"230.1V", "325.4V", "-325.4V", "3.2%", "229.9V", "60Hz", "0 to 99"}, 100);
  const std::string stored = harmonics_record_of(
      "2024-03-16", {"999.9mA", "1.500A", "  OL ", "12.0%", "1.000KA", "59.9Hz", "50 to 100"}, 51);
  const std::string angles = "HARMO,Hz=60,INPUT=V3,OPTION=D\r\nDATE, TIME\r\n";
  auto lines = lines_of(harmonics_head + live + stored_head + stored +
                        no_communication_line({2024, 3, 16}, "12:30:46"));
  ASSERT_EQ(lines.size(), 6u);
  EXPECT_TRUE(lines[0].starts_with(
      "record,block,date,time,time_iso,input,RMS_V,PEAK_P_V,PEAK_N_V,VI_1_V,RMS_A,PEAK_P_A,PEAK_N_A,VI_1_A,"
      "THD_F_percent,HZ_Hz,RANGE,H0_percent,H1_percent,"));
  EXPECT_TRUE(lines[0].ends_with(",H99_percent,H100_percent,note"));
  EXPECT_TRUE(lines[1].starts_with(
      "1,1,15.03.2024,12:30:44,,V1,230.1,325.4,-325.4,229.9,,,,,3.2,60,0 to 99,0.5,100.0,0.5,"));
  EXPECT_TRUE(lines[1].ends_with(",0.5,,")) << "no order 100";
  EXPECT_TRUE(lines[4].starts_with(
      "4,2,2024-03-16,12:30:44,2024-03-16T12:30:44,I2,,,,,0.9999,1.500,,1000,12.0,59.9,50 to 100,,,"));
  EXPECT_TRUE(lines[4].ends_with(",0.5,over range: PEAK_N"));
  EXPECT_TRUE(lines[4].find(",,0.5,100.0,0.5") != std::string::npos);
  EXPECT_TRUE(lines[5].ends_with(",,lost link"));
  lines = lines_of(angles + live, {.dates = DateOrder::day_month_year});
  EXPECT_TRUE(lines[0].find(",RANGE,H0_deg,H1_deg,") != std::string::npos);
  EXPECT_TRUE(lines[0].ends_with(",H99_deg,note"));
  EXPECT_TRUE(lines[1].starts_with("1,1,15.03.2024,12:30:44,2024-03-15T12:30:44,V3,230.1"));
}

std::string waveform_record_of(const char* fields) {
  std::string line = "03/15/2024   12:30:44 B ";
  for (int sample = 0; sample < 1024; ++sample)
    line += sample == 0 ? "-00200 " : sample == 1 ? "00100 " : "00000 ";
  return line + fields + " E\r\n";
}

// 2200 x VT 10 are 2200 V; the lowest sample, -200, is the negative peak of 4 KV.
TEST_F(NumberExports, WaveformsAreScaledByTheirPeak) {
  const std::string head =
      "WAVE Hz=60 MD=15 SEC=4 CT=100 VT=10 INPUT=V1 SYS=3P4W, NO.=1024  OPTION=%\r\nDATE, TIME 0\r\n";
  auto lines =
      lines_of(head + waveform_record_of("O=    0R= 2200P= 2000N= 4000H=    1T=   32V= 2199") + "torn");
  ASSERT_EQ(lines.size(), 3u);
  EXPECT_TRUE(lines[0].starts_with(
      "record,block,date,time,time_iso,input,RMS_V,PEAK_P_V,PEAK_N_V,VI_1_V,THD_F_percent,HZ_Hz,S0_V,S1_V,"));
  EXPECT_TRUE(
      lines[1].starts_with("1,1,03/15/2024,12:30:44,,V1,2200,2000,-4000,2199,3.2,50,-4000.00,2000.00,0.00,"));
  EXPECT_FALSE(result.scaled_currents);
  lines = lines_of(head + waveform_record_of("O=    3R=  120P=  200N=  400H=    0T=   32V=   -1"),
                   {.current_range = 1, .current_scale = 3.0F});
  EXPECT_TRUE(
      lines[1].starts_with("1,1,03/15/2024,12:30:44,,I2,36.00,60.00,-120.0,,3.2,,-120.000,60.000,0.000,"));
  EXPECT_TRUE(lines[1].ends_with(",0.000,over range: VI_1 / no value: HZ"));
  EXPECT_EQ(export_sentence(result, {"s.csv", "t.csv", {.current_range = 1, .current_scale = 3.0F}},
                            Language::english),
            "1 rows written to t.csv; currents with range 1 and clamp 3.0");
}

TEST_F(NumberExports, EventsKeepTheirReference) {
  EXPECT_EQ(lines_of("TODAY: 03-02-2009\r\nSTART RECORDING:2009-02-28 23:50:10\r\nREF=220.0V ,SD%=10%\r\n"
                     "       NO.,EVENT TIME,      DATE,      TIME,    CYCLES, CONDITIONS\r\n"
                     "         1,  00:00:15,2009-03-01,     00:05,     00120,      2(LO)\r\n"
                     "         2,  01:02:30,          ,          ,     64536,(HI+LO+OUT)\r\n"),
            (std::vector<std::string>{
                "record,block,date,time,time_iso,NO,EVENT_TIME_s,CYCLES,CONDITIONS,REF_V,SD_percent,note",
                "1,1,2009-03-01,00:05,2009-03-01T00:05,1,900,120,2(LO),220.0,10,",
                "2,1,,,,2,95400,64536,(HI+LO+OUT),220.0,10,"}));
}

}  // namespace
}  // namespace halden
