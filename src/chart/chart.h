// What a chart shows, as a value: logic builds it, chart/ui draws it. Points and texts are constant and
// shared, so that copying and comparing 100,000 points costs nothing; to change them, make new ones.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace halden {

enum class ChartKind { line, bars };
enum class ChartColours { colour, black_and_white };
enum class Grid { none, horizontal, vertical, both };

// What is drawn over the first data set, in the order in which the user is offered them. `deviation` is the
// mean plus and minus the standard deviation.
enum class Statistics {
  none,
  mean,
  min_max,
  mean_and_min_max,
  deviation,
  deviation_and_mean,
  deviation_and_min_max,
  deviation_min_max_and_mean,
  best_fit
};

// One value per point, at X positions 0, 1, 2 and so on. A value that is not a number or that has a magnitude
// above 1e100 is a gap.
using Points = std::shared_ptr<const std::vector<double>>;
Points make_points(std::vector<double> values);
bool is_gap(double value);

// A text for each point, by its index. A function makes it when it is asked for, so that the texts of 100,000
// points are never held. A point beyond the end of a list has none.
using PointTexts = std::shared_ptr<const std::function<std::string(std::size_t)>>;
PointTexts texts_by(std::function<std::string(std::size_t)> text_of);
PointTexts texts_of_list(std::vector<std::string> texts);

struct DataSet {
  Points points;
  std::string name;                  // in the legend
  std::optional<std::size_t> phase;  // 0 to 2: drawn in the colour of that phase

  bool operator==(const DataSet&) const = default;
};

// Points of a line that get a small triangle above them, because their value stands for something else, such
// as a missing reading. Of two data sets the second has the flags.
struct PointFlags {
  std::shared_ptr<const std::vector<std::size_t>> points;  // ascending
  std::string name;                                        // in the legend

  bool operator==(const PointFlags&) const = default;
};

// What the lines of the statistics are called in the legend, before their value.
struct StatisticNames {
  std::string mean;
  std::string minimum;
  std::string maximum;
  std::string above;  // the mean plus the standard deviation
  std::string below;  // the mean minus it
  std::string best_fit;

  bool operator==(const StatisticNames&) const = default;
};

struct Chart {
  ChartKind kind = ChartKind::line;
  ChartColours colours = ChartColours::colour;
  std::string title;
  std::string x_title;
  std::string y_title;
  std::string hint;                   // shown in the middle while there are no data
  std::string description;            // for assistive technology: what the chart shows, in words
  std::vector<DataSet> sets;          // one or two
  std::size_t label_every = 1;        // a label and a tick at point 0 and at each such number of points
  PointTexts labels;                  // below the X axis; a point with an empty text gets no tick
  PointTexts readouts;                // what the cursor says about a point
  std::optional<std::size_t> marked;  // the bar in the accent colour; the cursor rests there
  PointFlags flags;
  Grid grid = Grid::horizontal;
  std::optional<double> y_low;  // limits of the Y axis given by the user; an absent one is automatic
  std::optional<double> y_high;
  Statistics statistics = Statistics::none;
  StatisticNames statistic_names;

  // Charts with the same number show the same thing, whatever their titles are. With 0 the titles and the
  // number of points tell.
  std::size_t subject = 0;
  std::string part;  // which points of the subject these are

  // So many points stand on both sides of these and are not in the chart: the user may zoom and move there.
  double points_before = 0;
  double points_after = 0;

  bool operator==(const Chart&) const = default;
};

// Of the longer data set.
std::size_t point_count(const Chart& chart);

// Whether some point has a value.
bool has_data(const Chart& chart);

// Empty where the chart has no such text.
std::string label_at(const Chart& chart, std::size_t index);
std::string readout_at(const Chart& chart, std::size_t index);

// Whether both show the same quantity, so that the height to which the user has zoomed in one can be kept in
// the other: the next frame of a live view, for example.
bool same_subject(const Chart& a, const Chart& b);

// Whether also the points stand at the same places, so that the part shown and the cursor can be kept.
bool same_points(const Chart& a, const Chart& b);

// The points as text for the clipboard, one line each: label, value and, with two data sets, the second
// value, with tabs between them. A point without a label has its number, counted from 1; a gap is empty.
std::string to_text(const Chart& chart);

}  // namespace halden
