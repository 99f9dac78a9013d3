// What a chart works out from its points: ranges, ticks, statistics, which points are drawn, the clipboard.
#include "chart/chart.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <string>
#include <tuple>

#include "chart/axes.h"
#include "chart/number_text.h"
#include "chart/statistics.h"
#include "chart/thinning.h"

namespace halden {
namespace {

constexpr double gap = std::numeric_limits<double>::quiet_NaN();
constexpr double infinite = std::numeric_limits<double>::infinity();

Chart chart_of(ChartKind kind, std::vector<double> values) {
  Chart chart;
  chart.kind = kind;
  chart.sets = {{make_points(std::move(values)), "", std::nullopt}};
  return chart;
}

TEST(Axes, TheYRangeHoldsAllValuesInWholeSteps) {
  struct Case {
    ChartKind kind;
    std::vector<double> values;
    Range expected;
  };
  const std::vector<Case> cases = {
      {ChartKind::line, {}, {0, 1}},
      {ChartKind::line, {gap, gap}, {0, 1}},
      {ChartKind::bars, {0, 0, 0}, {0, 1}},
      {ChartKind::bars, {0, 100, 14.2}, {0, 100}},
      {ChartKind::bars, {230}, {0, 250}},
      {ChartKind::bars, {-180, 170}, {-200, 200}},
      {ChartKind::bars, {-5, -3}, {-5, 0}},
      {ChartKind::line, {1.3, 8.8}, {0, 10}},  // zero is near enough to be shown
      {ChartKind::line, {229, 231}, {229, 231}},
      {ChartKind::line, {-231, -229}, {-231, -229}},
      {ChartKind::line, {230}, {200, 260}},
      {ChartKind::line, {gap, 5, infinite}, {4.4, 5.6}},
  };
  // Mean + deviation is 320 + 160; the best fit falls from 480 to 160. Both were outside of 0 to 400.
  for (const Statistics shown : {Statistics::deviation, Statistics::best_fit}) {
    Chart lost = chart_of(ChartKind::line, {400, 400, 400, 400, 0});
    lost.statistics = shown;
    EXPECT_EQ(y_range(lost), (Range{0, 500}));
  }
  for (const Case& given : cases) {
    const Range range = y_range(chart_of(given.kind, given.values));
    EXPECT_NEAR(range.low, given.expected.low, 1e-9) << testing::PrintToString(given.values);
    EXPECT_NEAR(range.high, given.expected.high, 1e-9) << testing::PrintToString(given.values);
  }
}

TEST(Axes, LimitsOfTheUserReplaceTheAutomaticOnes) {
  Chart chart = chart_of(ChartKind::line, {1.3, 8.8});
  const auto with = [&chart](std::optional<double> low, std::optional<double> high) {
    chart.y_low = low;
    chart.y_high = high;
    return y_range(chart);
  };
  EXPECT_EQ(with(-10, {}), (Range{-10, 10}));
  EXPECT_EQ(with(1, 3), (Range{1, 3}));
  EXPECT_EQ(with(5, 1), (Range{1, 5}));
  EXPECT_EQ(with(20, {}), (Range{20, 22})) << "above all values";
  EXPECT_EQ(with({}, -5), (Range{-6, -5}));
  EXPECT_EQ(with(gap, infinite), (Range{0, 10}));
}

std::string tick_texts(const Range& range, double step) {
  std::string texts;
  for (const double tick : ticks(range, step)) texts += tick_text(tick, step) + " ";
  return texts;
}

TEST(Axes, TicksAreRoundNumbers) {
  EXPECT_EQ(tick_texts({0, 100}, nice_step(100, 6)), "0 20 40 60 80 100 ");
  EXPECT_EQ(tick_texts({-0.3, 0.3}, nice_step(0.6, 6)), "-0.3 -0.2 -0.1 0.0 0.1 0.2 0.3 ");
  EXPECT_EQ(tick_texts({0.07, 0.21}, 0.05), "0.10 0.15 0.20 ");
  EXPECT_EQ(tick_text(2e12, 1e12), "2e+12");
  EXPECT_EQ(nice_step(0, 6), 1);
}

TEST(Axes, LabelsThinOutAndFillInWithTheRoom) {
  struct Case {
    std::size_t every;
    double shown_points, most_labels;
    std::size_t expected;
  };
  const std::vector<Case> cases = {
      {5, 51, 40, 5},       {128, 1024, 3, 384},                // every third
      {5, 10, 40, 1},       {128, 200, 20, 64},  {0, 2, 9, 1},  // zoomed in
      {719, 1000, 20, 719},                                     // a prime: all 1000 labels would be too many
  };
  for (const Case& given : cases)
    EXPECT_EQ(label_step(given.every, given.shown_points, given.most_labels), given.expected) << given.every;
}

TEST(Axes, ZoomingAndMovingStayWithinTheWhole) {
  const Range whole{0, 100};
  EXPECT_EQ(zoomed(whole, whole, 0.5, 20, 4), (Range{10, 60}));
  EXPECT_EQ(zoomed({10, 60}, whole, 4, 60, 4), whole);
  EXPECT_EQ(zoomed({10, 60}, whole, 0.01, 10, 4), (Range{10, 14}));
  EXPECT_EQ(zoomed({90, 100}, whole, 2, 90, 4), (Range{80, 100}));
  EXPECT_EQ(moved({10, 60}, whole, 70), (Range{50, 100}));
  EXPECT_EQ(moved({10, 60}, {0, 40}, 0), (Range{0, 40})) << "the next frame is smaller";
}

TEST(ChartStatistics, FiguresLeaveGapsOut) {
  const Summary summary = summarise({1, 2, 3, 6}).value();
  EXPECT_EQ(summary.mean, 3);
  EXPECT_EQ(summary.minimum, 1);
  EXPECT_EQ(summary.maximum, 6);
  EXPECT_NEAR(summary.deviation, 1.870829, 1e-6);  // the root of 14 / 4
  EXPECT_NEAR(summary.fit_slope, 1.6, 1e-12);      // 8 / 5
  EXPECT_NEAR(summary.fit_offset, 0.6, 1e-12);
  const Summary with_gap = summarise({gap, 2, 4}).value();
  EXPECT_EQ(with_gap.mean, 3);
  EXPECT_NEAR(with_gap.fit_slope, 2, 1e-12);
  EXPECT_NEAR(with_gap.fit_offset, 0, 1e-12);
  EXPECT_NEAR(summarise({1e9 + 1, 1e9 + 2, 1e9 + 3})->deviation, 0.816497, 1e-6);
  EXPECT_EQ(summarise({7})->fit_offset, 7);
  EXPECT_EQ(summarise(std::vector<double>(100, 1.234))->deviation, 0) << "equal readings do not deviate";
  EXPECT_FALSE(summarise({gap}));
}

TEST(ChartStatistics, EachOfTheNineChoicesDrawsItsLines) {
  Chart chart = chart_of(ChartKind::line, {1, 2, 3, 6});
  chart.statistic_names = {"mean", "min", "max", "above", "below", "fit"};
  const std::vector<std::string> expected = {"",
                                             "mean 3, ",
                                             "min 1, max 6, ",
                                             "mean 3, min 1, max 6, ",
                                             "above 4.8708, below 1.1292, ",
                                             "mean 3, above 4.8708, below 1.1292, ",
                                             "min 1, max 6, above 4.8708, below 1.1292, ",
                                             "mean 3, min 1, max 6, above 4.8708, below 1.1292, ",
                                             "fit 0.6 \u2192 5.4, "};
  for (std::size_t choice = 0; choice < expected.size(); ++choice) {
    chart.statistics = static_cast<Statistics>(choice);
    std::string texts;
    for (const StatisticLine& line : statistic_lines(chart)) texts += line.text + ", ";
    EXPECT_EQ(texts, expected[choice]);
  }
}

std::string text_of(const std::vector<DrawnPoint>& points) {
  std::string text;
  for (const DrawnPoint& point : points)
    text += tick_text(point.x, 1) + (std::isnan(point.y) ? ":gap " : ":" + tick_text(point.y, 1) + " ");
  return text;
}

TEST(Thinning, EveryColumnKeepsItsExtremes) {
  EXPECT_EQ(text_of(drawn_points({0, 5, 1, -2, 3, 3, gap, gap}, {0, 8}, 2)), "0:0 1:-2 1:5 5:3 ");
  EXPECT_EQ(text_of(drawn_points({1, 2, 3, 4}, {-8, 8}, 1)), "-4:1 -4:4 ")
      << "its ends stand in columns, too";
  EXPECT_EQ(text_of(drawn_points({4, gap, 6}, {0.5, 1.5}, 100)), "0:4 1:gap 2:6 ");
  EXPECT_EQ(text_of(drawn_points({}, {0, 1}, 100)), "");
  std::vector<double> spike(100000, 0.0);
  spike[54321] = 7;
  const std::vector<DrawnPoint> drawn = drawn_points(spike, {0, 99999}, 1000);
  EXPECT_LE(drawn.size(), 2002U);
  const auto highest = std::max_element(drawn.begin(), drawn.end(),
                                        [](const DrawnPoint& a, const DrawnPoint& b) { return a.y < b.y; });
  EXPECT_EQ(highest->y, 7);
  EXPECT_NEAR(highest->x, 54321, 100);
}

TEST(NumberText, HasNoExponentAndNoRoundingErrors) {
  const std::tuple<double, double, std::string> rows[] = {
      {374470.4, 1e6, "374470"}, {-0.000012345, 1, "-0.000012345"}, {1e-17, 0.3, "0"},
      {9.999996, 10, "10"},      {1.5e10, 2e10, "1.5e+10"},         {-125530.4, 1e6, "-125530"}};
  for (const auto& [value, largest, text] : rows) EXPECT_EQ(short_number(value, largest), text);
  EXPECT_EQ(exact_number(1e6) + " " + exact_number(0.1) + " " + exact_number(-0.0) + " " + exact_number(1e-7),
            "1000000 0.1 0 0.0000001");
}

TEST(Thinning, ABandIsOneStrokePerColumn) {
  EXPECT_EQ(text_of(band_points({0, 40, 0}, {8, 8, 8, gap}, {0, 4}, 4)),
            "0:10 0:8 1:8 1:30 2:gap 2:gap 3:gap 3:gap ");
}

TEST(Thinning, TheCursorFindsTheNearestValue) {
  const Chart chart = chart_of(ChartKind::line, {gap, 1, 2, gap});
  for (const auto& [x, expected] :
       std::vector<std::pair<double, std::size_t>>{{-5, 1}, {1.5, 1}, {1.6, 2}, {99, 2}})
    EXPECT_EQ(nearest_point(chart, x), expected) << x;
  EXPECT_EQ(nearest_point(chart, gap), std::nullopt);
  EXPECT_EQ(nearest_point(chart_of(ChartKind::line, {gap}), 0), std::nullopt);
  EXPECT_EQ(nearest_point(Chart(), 0), std::nullopt);
}

TEST(ChartText, HasALabelAndTheValuesInEachLine) {
  Chart chart = chart_of(ChartKind::line, {3.2, gap, 0.1});
  chart.sets.push_back({make_points({-1, 1e-7}), "", std::nullopt});
  chart.labels = texts_of_list({"08:15:02", "a\tb"});
  EXPECT_EQ(to_text(chart), "08:15:02\t3.2\t-1\na b\t\t1e-07\n3\t0.1\t\n");
}

}  // namespace
}  // namespace halden
