// From a power data file to what is plotted of it.
#include "filetools/power_plot/power_plot.h"

#include <gtest/gtest.h>

#include "filetools/power_plot/plot_choices.h"
#include "filetools/power_plot/plot_texts.h"
#include "filetools/power_plot/points_csv.h"
#include "filetools/power_plot/power_chart.h"
#include "filetools/power_plot/record_times.h"
#include "platform/virtual/virtual_files.h"

namespace halden {
namespace {

using enum MissingReadings;
using enum Language;

constexpr std::size_t choice_V1 = 3, choice_I1 = 6, choice_P_SYS = 24;

const std::string head_of_3p4w = "3P4W,Hz=60,MD=15,SEC=2,CT=1,VT=1\r\nnames\r\n";

// A whole record with the text in one column and "7.7" in all others.
std::string record(std::size_t columns, std::size_t column, std::string_view text,
                   std::string_view time = "12:30:44", std::string_view date = "03-15-2024") {
  std::string line = record_field(date) + record_field(time);
  for (std::size_t at = 0; at < columns; ++at) line += record_field(at == column ? text : "7.7");
  return line + "\r\n";
}

std::string lost_record(std::string_view time, int day = 15) {
  return no_communication_line({2024, 3, day}, time) + "\r\n";
}

// The value of each record is its number.
std::string numbered_records(std::size_t columns, std::size_t count) {
  std::string lines;
  for (std::size_t number = 1; number <= count; ++number)
    lines += record(columns, 0, std::to_string(number) + ".0V");
  return lines;
}

struct PowerPlots : testing::Test {
  PlotOutcome read(const std::string& bytes, std::optional<std::size_t> choice = {},
                   WantedRecords wanted = {}) {
    files.contents["d/day.csv"] = bytes;
    return read_power_plot(files, {"d/day.csv", choice, wanted});
  }

  std::string refusal(const std::string& bytes, std::optional<std::size_t> choice = {},
                      WantedRecords wanted = {}) {
    const PlotOutcome outcome = read(bytes, choice, wanted);
    EXPECT_EQ(outcome.plot, nullptr);
    return outcome.refusal.text;
  }

  VirtualFiles files;
};

// The current of a recording that was continued with another wiring, where it stands in another column.
const std::string mixed_records =
    head_of_3p4w + record(36, 6, "  OL ", "23:59:58") + record(36, 6, "950.0mA", "00:00:00", "03-16-2024") +
    record(36, 6, "1.250A", "00:00:02", "03-16-2024") + lost_record("00:00:04", 16) +
    "1P2W,Hz=60,MD=15,SEC=2,CT=1,VT=1\r\n        DATE,\r\n" +
    record(15, 1, "2.5KA", "00:01:00", "03-16-2024") + record(15, 1, "0.001MA", "00:01:02", "03-16-2024") +
    "03-16-2024,  00:01:0";

TEST_F(PowerPlots, EveryLineIsARecordAndTheFirstDigitsGiveTheUnit) {
  for (const std::string& bytes : {mixed_records, "\xEF\xBB\xBF" + mixed_records}) {
    const auto plot = read(bytes, choice_I1).plot;
    ASSERT_TRUE(plot);
    EXPECT_EQ(plot->record_count, 9u);
    EXPECT_EQ(plot->prefix, -3);
    EXPECT_EQ(plotted_maxima(*plot, as_zero),
              std::vector<double>({0, 950, 1250, 0, 0, 0, 2500000, 1000000, 0}));
    EXPECT_EQ(plot->lost_records, 2u) << "the header of the continued recording is not lost";
    EXPECT_EQ(plot->without_reading(), 5u);
    std::string times;
    for (const PlotPoint& point : plot->points) times += point.time + " ";
    EXPECT_EQ(times, "23:59:58 00:00:00 00:00:02 00:00:04   00:01:00 00:01:02 00:01:0 ");
  }
  const auto first = read(mixed_records).plot;
  EXPECT_EQ(plotted_maxima(*first, as_zero), std::vector<double>({7.7, 7.7, 7.7, 0, 0, 0, 0, 0, 0}))
      << "1P2W has no V12";
  const auto kilo =
      read(head_of_3p4w + record(36, 24, "1.234KW") + record(36, 24, "987.6W"), choice_P_SYS).plot;
  EXPECT_EQ(plotted_maxima(*kilo, as_zero), std::vector<double>({1.234, 0.9876}));
  const auto huge = read(head_of_3p4w + record(36, 24, "0.0W") + record(36, 24, "1.0MW"), choice_P_SYS).plot;
  EXPECT_EQ(statistics_line(*huge, as_zero, english).substr(0, 49),
            "Mean 500000 W · minimum 0 W · maximum 1000000 W");
  EXPECT_NE(points_csv(*huge, as_zero).find(",1000000,1000000,1,W"), std::string::npos) << "no exponents";
  const auto none = read(head_of_3p4w + record(36, 24, "------") + record(36, 24, ""), choice_P_SYS).plot;
  PlotLook gaps;
  gaps.missing = left_out;
  EXPECT_EQ(power_chart(none, gaps, english).hint, "No record has a reading of P_SYS") << "was blank";
  EXPECT_EQ(none->prefix, 0);
  EXPECT_EQ(none->mean(as_zero), 0.0);
  EXPECT_EQ(none->mean(left_out), std::nullopt);
}

TEST_F(PowerPlots, From3600RecordsOnTheyAreGroups) {
  struct Case {
    std::size_t records, step, points, label_every;
  };
  const Case cases[] = {{2, 1, 2, 1},         {7, 1, 7, 1},         {8, 1, 8, 2},        {3599, 1, 3599, 720},
                        {3600, 2, 1800, 360}, {3601, 3, 1201, 240}, {7201, 5, 1441, 288}};
  const std::pair<const char*, std::size_t> wirings[] = {
      {"1P2W", 15}, {"1P3W", 26}, {"3P3W", 18}, {"3P4W", 36}};
  for (const Case& given : cases)
    for (const auto& [wiring, columns] : wirings) {
      const auto plot =
          read(std::string(wiring) + ",Hz=60\nnames\n" + numbered_records(columns, given.records)).plot;
      ASSERT_TRUE(plot) << given.records << wiring;
      ASSERT_EQ(plot->points.size(), given.points) << given.records;
      EXPECT_EQ(plot->is_envelope, given.records >= 3600);
      EXPECT_EQ(plot->points[1].smallest, static_cast<double>(given.step + 1)) << given.records << wiring;
      EXPECT_EQ(plot->points[0].largest, static_cast<double>(given.step));
      EXPECT_EQ(plot->points.back().largest, static_cast<double>(given.records));
      EXPECT_EQ(plot->points.back().records, given.records - (given.points - 1) * given.step);
      EXPECT_EQ(power_chart(plot, {}, english).label_every, given.label_every) << given.records;
    }
}

// The number of records is guessed from the length of the file: long lines make the guess too high, short
// ones too low. A lost line in front is no reason to read the file twice.
TEST_F(PowerPlots, AWrongGuessOfTheNumberOfRecordsIsRepaired) {
  std::string many_lost;
  for (int line = 0; line < 5000; ++line) many_lost += lost_record("12:30:44");
  struct Case {
    std::string before;
    std::size_t records, step, points, passes;
  };
  const Case cases[] = {{lost_record("12:30:44"), 7201, 5, 1441, 1},
                        {"\n", 7201, 5, 1441, 1},
                        {"\n" + std::string(1200000, 'x') + "\n", 7202, 5, 1441, 2},
                        {many_lost, 12200, 7, 1743, 2}};
  for (const Case& given : cases) {
    std::uint64_t done_before = 0;
    std::size_t passes = 1;
    files.contents["f"] = head_of_3p4w + given.before + numbered_records(36, 7200);
    const auto count_passes = [&](std::uint64_t done, std::uint64_t) {
      passes += done <= std::exchange(done_before, done) ? 1U : 0U;
      return true;
    };
    const auto plot = read_power_plot(files, {"f"}, count_passes).plot;
    EXPECT_EQ(plot->record_count, given.records);
    EXPECT_EQ(plot->record_step, given.step);
    EXPECT_EQ(plot->points.size(), given.points);
    EXPECT_EQ(plot->points[0].minimum(as_zero), 0.0);
    EXPECT_EQ(plot->mean(left_out), 3600.5);
    EXPECT_EQ(passes, given.passes) << given.records;
  }
  EXPECT_EQ(point_text(*read_power_plot(files, {"f"}).plot, 0, left_out, english),
            "03-15-2024 12:30:44, records 1 to 7: no reading");
}

TEST_F(PowerPlots, APartIsPlottedRecordByRecordUpTo3600) {
  const std::string bytes = head_of_3p4w + numbered_records(36, 5000);
  const auto part = read(bytes, {}, {1001, 4600}).plot;
  EXPECT_EQ(part->points.size(), 3600u);
  EXPECT_EQ(part->record_count, 5000u);
  EXPECT_FALSE(part->is_envelope);
  const auto longer = read(bytes, {}, {1001, {}}).plot;
  EXPECT_EQ(longer->range, (RecordRange{1001, 5000}));
  EXPECT_EQ(longer->points.size(), 1334u);
  EXPECT_EQ(longer->records_of(1333), (RecordRange{5000, 5000}));
  EXPECT_EQ(refusal(bytes, {}, {5001, {}}), "start record > total records");
}

TEST_F(PowerPlots, WhatCannotBePlottedIsSaid) {
  const std::string one = "Only one record, can not plot.  Please use VIEW to review your record.";
  EXPECT_EQ(refusal(""), "Not a valid data file");
  EXPECT_EQ(refusal("HARMO,Hz=60\r\nnames\r\n" + numbered_records(36, 2)), "Not a valid data file");
  EXPECT_EQ(refusal(head_of_3p4w), "Zero Data Length");
  EXPECT_EQ(refusal(head_of_3p4w + lost_record("12:30:44") + "foreign,\r\n"), "Zero Data Length");
  EXPECT_EQ(refusal(head_of_3p4w + numbered_records(36, 1)), one);
  EXPECT_EQ(refusal(head_of_3p4w + numbered_records(36, 2), 36), "RECORD INDEX > 35");
  EXPECT_EQ(read_power_plot(files, {"missing"}).refusal.text, "File not found");
  files.read_failures["locked"] = FileFailure::forbidden;
  EXPECT_EQ(read_power_plot(files, {"locked"}).refusal.text, "Bad file name or number");
}

TEST_F(PowerPlots, ReadingCanBeCancelled) {
  files.contents["f"] = head_of_3p4w + numbered_records(36, 5000);
  std::uint64_t seen = 0;
  const PlotOutcome outcome =
      read_power_plot(files, {"f"}, [&seen](auto done, auto) { return seen = done, false; });
  EXPECT_EQ(seen, 1720361u) << "behind 4096 records";
  EXPECT_TRUE(!outcome.plot && outcome.refusal.text.empty());
}

TEST(PlotChoices, EachWiringOffersItsQuantitiesAndHasThemInItsColumns) {
  // A "+" for each of the 36 entries of the menu that is offered.
  const std::pair<Wiring, std::string> rows[] = {{Wiring::w1p2w, "---+--+--------------+--++++++++++++"},
                                                 {Wiring::w1p3w, "---++-++-++-++-++-++-++-++++++++++++"},
                                                 {Wiring::w3p3w, "+++---+++---------------++++++++++++"},
                                                 {Wiring::w3p4w, "++++++++++++++++++++++++++++++++++++"}};
  for (const auto& [wiring, offered] : rows) {
    std::size_t column = 0;
    for (std::size_t choice = 0; choice < 36; ++choice) {
      EXPECT_EQ(is_offered(choice, wiring), offered[choice] == '+') << choice;
      if (offered[choice] == '-') continue;
      EXPECT_EQ(power_column(wiring, static_cast<PowerQuantity>(choice)), column++) << choice;
    }
    EXPECT_EQ(column, power_column_count(wiring));
  }
  EXPECT_EQ(power_column(Wiring::w1p3w, PowerQuantity::W_SYS), 14u);
  EXPECT_EQ(plot_choice("P_SYS"), 24u);
  EXPECT_EQ(plot_choice("W_SYS"), std::nullopt);
  EXPECT_EQ(first_choice(Wiring::w1p3w), choice_V1);
  EXPECT_EQ(unit_of(choice_I1, -3) + unit_of(30, 6), "mAMVARH");
}

TEST(PlotRange, AnswersGiveARangeOrWhatTheUserIsTold) {
  const std::tuple<const char*, const char*, const char*> refused[] = {
      {"-1", "5", "Negative number is not allowed"},
      {"0", "5", "Negative number is not allowed"},
      {"4001", "5", "start record > total records"},
      {"99999999999999999999", "5", "start record > total records"},
      {"5", "5", "End record <= Start record"},
      {"5", "-3", "End record <= Start record"},
      {"5", "4001", "End record > total records"},
      {"2", "3602", "Starting record 2, ending record 3602, total records 4000 > 3600"}};
  for (const auto& [start, end, text] : refused)
    EXPECT_EQ(read_range(start, end, 4000).refusal.text, text) << start;
  EXPECT_EQ(read_start("4001", 4000).refusal.icon, Icon::exclamation);
  EXPECT_EQ(read_start(" 12 ", 4000).range, (RecordRange{12, 4000}));
  EXPECT_EQ(read_range("2", "3601", 4000).range, (RecordRange{2, 3601}));
  EXPECT_EQ(read_range("2.5", "4000", 4000).refusal.text,
            "Starting record 2, ending record 4000, total records 4000 > 3600");
}

// 1800 points of two records: what is seen of them is read again with fewer records to a point.
TEST(PlotRange, AViewIsReadAgainWhereItGetsFinerOrReachesBeyond) {
  using Wanted = std::optional<WantedRecords>;
  const PlottedRecords whole{3600, {1, 3600}, 2};
  EXPECT_EQ(records_of_view(whole, 10, 19), (Wanted{{21, 40}}));
  EXPECT_EQ(records_of_view(whole, 0, 1799), Wanted{}) << "is shown already";
  const PlottedRecords part{3600, {21, 40}, 1};
  EXPECT_EQ(records_of_view(part, 5, 9), Wanted{}) << "each record is a point";
  EXPECT_EQ(records_of_view(part, -5, 30), (Wanted{{16, 51}}));
  EXPECT_EQ(records_of_view(part, -99, 9999), Wanted{WantedRecords{}})
      << "the whole file, also when it grows";
}

TEST_F(PowerPlots, ATimeLeadsToItsRecord) {
  files.contents["f"] = mixed_records;
  const std::tuple<const char*, std::optional<std::size_t>, std::optional<std::size_t>> rows[] = {
      {"4", 4, 4},
      {"23:59:58", 1, 1},
      {"23:59:59", 2, 1},  // between the first and the second record
      {"00:00:02", 1, 0},  // of the first record's day
      {"03-16-2024 00:00:01", 3, 2},
      {"2024-03-16T00:00:03", 4, 3},  // an outage has times too
      {"2024-03-16T00:00:30", 7, 4},
      {"2024-03-16 00:02", 10, 8}};
  for (const auto& [text, first, last] : rows) {
    const auto place = read_record_place(text);
    ASSERT_TRUE(place) << text;
    const WantedRecords found = find_records(files, "f", {place, place});
    EXPECT_EQ(found.first, first) << text;
    EXPECT_EQ(found.last, last) << text;
  }
  for (const char* wrong : {"", "12:", "24:00", "12:60", "1:2:3:4", "-5", "03-16 12:30", "2024-13-01 12:30",
                            "noon", "12:30 PM", "03-16-2024", "99999999999999999999"})
    EXPECT_FALSE(read_record_place(wrong)) << wrong;
}

TEST_F(PowerPlots, TheLinesBesideTheChartSayWhatIsPlotted) {
  const auto plot = read(mixed_records, choice_I1).plot;
  EXPECT_EQ(plot_line(*plot, english),
            "day.csv · 3P4W · CT 1 · VT 1 · 9 records · 2 lost · 2 header lines · 03-15-2024 23:59:58 to "
            "03-16-2024 00:01:02");
  EXPECT_EQ(missing_readings_line(*plot, as_zero, english), "5 records without a reading are drawn as 0");
  EXPECT_EQ(missing_readings_line(*plot, left_out, chinese), "5 筆無讀值的紀錄未繪出");
  const auto part = read(mixed_records, choice_I1, {2, 4}).plot;
  EXPECT_EQ(plot_line(*part, english),
            "day.csv · 3P4W · CT 1 · VT 1 · records 2 to 4 of 9 · 1 lost · 03-16-2024 00:00:00 to 03-16-2024 "
            "00:00:04");
  EXPECT_EQ(missing_readings_line(*part, as_zero, english), "1 record without a reading is drawn as 0");
  // 950, 1250 and 0: the line through them falls by 475 a record from its middle, 733.33.
  EXPECT_EQ(
      statistics_line(*part, as_zero, english),
      "Mean 733.33 mA · minimum 0 mA · maximum 1250 mA · standard deviation 532.81 mA · best fit 1208.3 mA → "
      "258.33 mA");
  EXPECT_EQ(statistics_line(*part, left_out, english),
            "Mean 1100 mA · minimum 950 mA · maximum 1250 mA · standard deviation 150 mA · best fit 950 mA → "
            "1550 mA");
  EXPECT_EQ(point_text(*part, 1, as_zero, english), "03-16-2024 00:00:02, record 3: 1250 mA");
  EXPECT_EQ(point_text(*part, 2, as_zero, english), "03-16-2024 00:00:04, record 4: no reading");
}

TEST_F(PowerPlots, TheChartHasLabelsByTimeOrNumberAndGapsOnRequest) {
  const auto part = read(mixed_records, choice_I1, {2, 4}).plot;
  PlotLook look;
  look.statistics = Statistics::mean;
  Chart chart = power_chart(part, look, english);
  EXPECT_EQ(plot_y_title(*part), "I1 (mA)");
  EXPECT_EQ(label_at(chart, 2), "00:00:04");
  const auto over_midnight = read(mixed_records, choice_I1).plot;
  EXPECT_EQ(label_at(power_chart(over_midnight, look, english), 1), "00:00:00\n03-16-2024");
  EXPECT_EQ(label_at(power_chart(over_midnight, look, english), 4), "#5") << "without a time";
  EXPECT_EQ(chart.sets[0].phase, 0u);
  EXPECT_EQ(chart.statistics, Statistics::mean);
  EXPECT_EQ(*chart.flags.points, std::vector<std::size_t>({2}));
  look.labels = PlotLabels::sequence;
  look.missing = left_out;
  chart = power_chart(part, look, english);
  EXPECT_EQ(label_at(chart, 2), "4");
  EXPECT_TRUE(is_gap((*chart.sets[0].points)[2]));
  EXPECT_FALSE(chart.flags.points);
  const auto long_plot = read(head_of_3p4w + lost_record("12:30:42") + numbered_records(36, 3600)).plot;
  chart = power_chart(long_plot, look, english);
  EXPECT_EQ(chart.statistics, Statistics::none);
  EXPECT_EQ(label_at(chart, 0) + " " + label_at(chart, 1200), "3 3601");
  EXPECT_EQ((*chart.sets[1].points)[0], 1.0);
  EXPECT_EQ(readout_at(chart, 0),
            "03-15-2024 12:30:42, records 1 to 3: maximum 2 V, minimum 1 V (1 without a reading)");
  EXPECT_EQ(statistics_line(*long_plot, left_out, english), "Mean 1800.5 V · minimum 1 V · maximum 3600 V");
}

}  // namespace
}  // namespace halden
