// Reading power data files: lines, whole records, and the numbers in their fields.
#include "formats/power_reader.h"

#include <gtest/gtest.h>

#include "platform/virtual/virtual_files.h"

namespace halden {
namespace {

std::vector<std::string> lines_of(std::string bytes) {
  VirtualFiles files;
  files.contents["f"] = std::move(bytes);
  TextLines lines(files.open("f").reader);
  std::vector<std::string> found;
  for (std::string_view line; lines.next(line);) found.emplace_back(line);
  EXPECT_EQ(lines.position(), lines.length());
  return found;
}

TEST(TextLines, EndWithOrWithoutReturnAndTheLastOneNeedsNoEnd) {
  using Lines = std::vector<std::string>;
  EXPECT_EQ(lines_of(""), Lines());
  EXPECT_EQ(lines_of("\xEF\xBB\xBF"), Lines());
  EXPECT_EQ(lines_of("\xEF\xBB\xBFone\r\n\ntwo\r\n"), Lines({"one", "", "two"}));
  EXPECT_EQ(lines_of("one\rstill one\r\n\xEF\xBB\xBFtorn"), Lines({"one\rstill one", "\xEF\xBB\xBFtorn"}));
  EXPECT_EQ(lines_of(std::string("\0\0\n\0", 4)), Lines({std::string(2, '\0'), std::string(1, '\0')}));
}

// A piece has 256 KiB. 100,000 lines of 7 bytes do not divide it, and one line is longer than three pieces.
TEST(TextLines, ContinueInTheNextPieceAndAreCutAtTheirMost) {
  std::string bytes;
  for (int line = 100000; line < 200000; ++line) bytes += std::to_string(line) + "\n";
  const std::vector<std::string> found = lines_of(bytes + std::string(900000, 'x') + "\nend\n");
  ASSERT_EQ(found.size(), 100002u);
  for (std::size_t line = 0; line < 100000; ++line) ASSERT_EQ(found[line], std::to_string(100000 + line));
  EXPECT_EQ(found[100000], std::string(65536, 'x'));
  EXPECT_EQ(found[100001], "end");
  EXPECT_EQ(lines_of(std::string(900000, 'x')).size(), 1u);
}

TEST(FieldReading, NumbersWithAPrefixAreExactDecimals) {
  const std::pair<const char*, double> in_kilo[] = {
      {"    987.6W", 0.9876},  {"   1.234KW", 1.234}, {"   123.4mA", 0.0001234},
      {"12.34KVARH", 12.34},   {"  -0.100MA", -100},  {" 5.000TVAH", 5e9},
      {"  9.99GVAR", 9990000}, {"- 12.5", -0.0125},   {"      0.70", 0.0007},
      {"       +.5", 0.0005},  {"5.", 0.005},         {"3.3V  ", 0.0033}};
  for (const auto& [field, value] : in_kilo) {
    const auto reading = read_field(field);
    ASSERT_TRUE(reading) << field;
    EXPECT_EQ(value_in(*reading, 3), value) << field;
  }
  for (const char* none : {"", "          ", "       OL ", "    ------", "    -", "  .KW", "W 1.0", "inf",
                           "1234567890123456789"})
    EXPECT_FALSE(read_field(none)) << none;
  EXPECT_EQ(value_in(*read_field("1234567890"), -12), 1.23456789e21);
}

// A whole record, all of whose fields hold `text`.
std::string record_of(std::size_t fields, const std::string& text) {
  std::string line;
  for (std::size_t field = 0; field < fields; ++field) line += record_field(text);
  return line;
}

TEST(PowerReader, OnlyTheFourNumbersOfFieldsMakeAWholeRecord) {
  const std::pair<std::size_t, Wiring> known[] = {
      {17, Wiring::w1p2w}, {28, Wiring::w1p3w}, {20, Wiring::w3p3w}, {38, Wiring::w3p4w}};
  for (std::size_t fields = 0; fields <= 110; ++fields) {
    const auto found =
        std::find_if(std::begin(known), std::end(known), [&](auto& k) { return k.first == fields; });
    const auto expected = found == std::end(known) ? std::nullopt : std::optional(found->second);
    EXPECT_EQ(whole_record_wiring(record_of(fields, "1.0V")), expected) << fields;
    if (!expected) continue;
    const std::string line = record_of(fields, "1.0V");
    for (std::size_t at = 0; at < line.size(); ++at) {
      std::string changed = line;
      changed[at] = changed[at] == ',' ? '.' : ',';
      EXPECT_FALSE(whole_record_wiring(changed)) << fields << " fields, position " << at;
    }
    EXPECT_FALSE(whole_record_wiring(line + " "));
    EXPECT_FALSE(whole_record_wiring(power_column_line(*expected)));
  }
  EXPECT_FALSE(whole_record_wiring(no_communication_line({2024, 3, 15}, "12:30:44")));
}

TEST(PowerReader, DatesTimesAndSettingsAreReadWhereTheyStandAndNowhereElse) {
  const std::tuple<std::string, const char*, const char*> rows[] = {
      {record_field("2024-03-15") + record_field("12:30:44") + "  1.0V,", "2024-03-15", "12:30:44"},
      {no_communication_line({2024, 3, 15}, "12:30:44"), "03-15-2024", "12:30:44"},
      {"3P4W,Hz=60,MD=15,SEC=2,CT=1,VT=1", "", ""},
      {"03-15-2024,  12:3", "03-15-2024", "12:3"},
      {"03-15", "03-15", ""}};
  for (const auto& [line, date, time] : rows) {
    EXPECT_EQ(date_in_line(line), date) << line;
    EXPECT_EQ(time_in_line(line), time) << line;
  }
  const PowerSettings settings = read_power_settings("1P2W,Hz=Auto,MD=15,SEC=2,CT= 100 ,VT=35,INPUT=V1");
  EXPECT_EQ(settings.wiring, Wiring::w1p2w);
  EXPECT_EQ(settings.ct + " " + settings.vt, "100 35");
  EXPECT_EQ(read_power_settings("3P3W").wiring, Wiring::w3p3w);
  for (const char* other : {"", "3P4W Hz=60,", " 1P3W,", "????,Hz=60,CT=2"})
    EXPECT_FALSE(read_power_settings(other).wiring) << other;
}

}  // namespace
}  // namespace halden
