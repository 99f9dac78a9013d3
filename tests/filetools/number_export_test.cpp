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
  EXPECT_EQ(between(3), "3,1,03-15-2024,12:30:48,2024-03-15T12:30:48 no communication");
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

}  // namespace
}  // namespace halden
