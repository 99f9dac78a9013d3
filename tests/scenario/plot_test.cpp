// The window that plots power data files, in virtual time.
#include <gtest/gtest.h>

#include "chart/chart.h"
#include "program_test_base.h"

namespace halden {
namespace {

using Texts = std::vector<std::string>;

// A 1P2W file: V1, I1, Phase1, W_SYS and 13 more columns.
struct PlotJourney : Journey {
  PlotJourney() {
    start();
    world.dialogs.messages.clear();
    click("OpenPlotFile");
  }

  static std::string record(const std::string& time, const std::string& voltage, const std::string& power) {
    const auto field = [](const std::string& text) {
      return std::string(10 - text.size(), ' ') + text + ",";
    };
    std::string line =
        field("11-22-2026") + field(time) + field(voltage) + field("5.000A") + field("000.0") + field(power);
    for (int column = 4; column < 15; ++column) line += field("1.000");
    return line + "\r\n";
  }

  void write_file(const std::string& records) {
    world.files.contents["a.csv"] =
        "1P2W,Hz=50,MD=15,SEC=2,CT=1,VT=1\r\n      DATE,      TIME,        V1\r\n" + records;
  }

  // As many records of the voltages 1000 V, 1001 V and so on.
  static std::string many(int count) {
    std::string records;
    for (int i = 0; i < count; ++i) records += record("12:00:00", std::to_string(1000 + i) + ".V", "1.234KW");
    return records;
  }

  void open(const std::string& path) {
    world.dialogs.file_answers = {path};
    press("openfileforplot");
  }

  void press(const std::string& control) { click(control, "PlotFile"); }
  const Control& control(const std::string& name) const { return window("PlotFile")[name]; }
  std::shared_ptr<const Chart> chart() const { return control("Graph1").chart; }
  std::vector<double> points(std::size_t set = 0) const { return *chart()->sets.at(set).points; }
};

// 230.0 V, 231.5 V and a lost line; 1.234 KW and 987.6 W, which is 0.9876 KW.
TEST(Plot, AFileIsOpenedAndItsQuantitiesAreChosen) {
  PlotJourney j;
  j.press("SelectData_24");
  EXPECT_EQ(j.world.dialogs.message_texts(), Texts{"Please first open a file where data is stored"});
  EXPECT_EQ(j.world.dialogs.messages.back().icon, Icon::critical);
  j.write_file(j.record("12:00:00", "230.0V", "1.234KW") + j.record("12:00:02", "231.5V", "987.6W") +
               "11-22-2026,  12:00:04,  NO COM\r\n");
  j.open("a.csv");
  EXPECT_TRUE(j.window("PlotFile").visible());
  EXPECT_EQ(j.points(), (std::vector{230.0, 231.5, 0.0}));
  EXPECT_EQ(j.chart()->x_title + "|" + j.chart()->y_title, "Time|V1 (V)");
  EXPECT_FALSE(j.control("SelectData_0").enabled);
  EXPECT_TRUE(j.control("SelectData_3").checked && j.control("Status").enabled &&
              j.control("ZoomIn").enabled);
  EXPECT_EQ(j.control("plot_missing").text, "1 record without a reading is drawn as 0");
  j.press("SelectData_24");
  EXPECT_EQ(j.points(), (std::vector{1.234, 0.9876, 0.0}));
  EXPECT_EQ(j.chart()->y_title, "P_SYS (KW)");
  j.press("leave_out");
  EXPECT_TRUE(is_gap(j.points()[2]));
  EXPECT_TRUE(j.control("plot_statistics").text.starts_with("Mean 1.1108 KW")) << "2.2216 / 2";

  const auto shown = j.chart();
  j.world.files.contents["b.csv"] = "no data file\r\n\r\nx\r\n";
  j.open("b.csv");
  EXPECT_EQ(j.world.dialogs.messages.back().text, "Not a valid data file");
  EXPECT_EQ(j.chart(), shown) << "the chart keeps what it showed";
}

TEST(Plot, TheUserChoosesHowItLooks) {
  PlotJourney j;
  j.write_file(j.record("12:00:00", "230.0V", "1.234KW") + j.record("12:00:02", "231.5V", "987.6W"));
  j.open("a.csv");
  j.world.dialogs.input_answers = {"-5.5", "", "Site 3"};
  for (const char* entry : {"set_scale_1", "set_scale_2", "set_title_0"}) j.press(entry);
  EXPECT_EQ(j.chart()->y_low, -5.5);
  EXPECT_FALSE(j.chart()->y_high) << "an empty answer changes nothing";
  EXPECT_EQ(j.chart()->x_title, "Site 3");
  EXPECT_EQ(label_at(*j.chart(), 1), "12:00:02");
  for (const char* entry : {"set_scale_0", "set_title_4", "set_x_label_1", "set_grid_3", "StatOption_8"})
    j.press(entry);
  EXPECT_FALSE(j.chart()->y_low);
  EXPECT_EQ(j.chart()->y_title, "");
  EXPECT_EQ(label_at(*j.chart(), 1), "2");
  EXPECT_EQ(j.chart()->grid, Grid::both);
  EXPECT_EQ(j.chart()->statistics, Statistics::best_fit);
  EXPECT_TRUE(j.control("StatOption_8").checked && !j.control("StatOption_0").checked);
  j.press("openfile");
  EXPECT_EQ(j.chart()->x_title, "Time");
  j.world.timer2.set_enabled(true);
  j.press("Pgraphics");
  EXPECT_EQ(j.world.printer.documents.at(0).at(0).windows, Texts{"PlotFile"});
  EXPECT_EQ(j.world.printer.documents.at(0).at(0).orientation, Orientation::landscape);
  EXPECT_TRUE(j.world.timer2.enabled() && !j.world.timer1.enabled()) << "as they were";
  j.press("clear_graphics");
  EXPECT_FALSE(has_data(*j.chart()));
  EXPECT_EQ(j.control("plot_about").text, "");
}

// 3601 records: three to a point, 1201 points.
TEST(Plot, LongFilesAreEnvelopesAndPartsOfThemAreNot) {
  PlotJourney j;
  j.write_file(j.many(3601));
  j.open("a.csv");
  EXPECT_EQ(j.world.dialogs.message_texts(), Texts{"Records more than 3600, STATIStics function disabled"});
  EXPECT_FALSE(j.control("Status").enabled);
  ASSERT_EQ(j.points().size(), 1201U);
  EXPECT_EQ(j.points(0)[1], 1005);
  EXPECT_EQ(j.points(1)[1], 1003);
  const std::pair<std::deque<std::string>, std::string> refusals[] = {
      {{"-1"}, "Negative number is not allowed"},
      {{"3602"}, "start record > total records"},
      {{"5", "5"}, "End record <= Start record"},
      {{"1", "3602"}, "End record > total records"},
      {{"1", "3601"}, "Starting record 1, ending record 3601, total records 3601 > 3600"}};
  for (const auto& [answers, refusal] : refusals) {
    j.world.dialogs.input_answers = answers;
    j.press("ZoomIn");
    EXPECT_EQ(j.world.dialogs.messages.back().text, refusal);
    EXPECT_EQ(j.points().size(), 1201U);
  }
  j.world.dialogs.input_answers = {"10", "12"};
  j.press("ZoomIn");
  EXPECT_EQ(j.points(), (std::vector{1009.0, 1010.0, 1011.0}));
  j.world.dialogs.input_answers = {"2", "3601"};
  j.press("ZoomIn");
  EXPECT_EQ(j.points().size(), 3600U) << "one by one";
  EXPECT_FALSE(j.control("Status").enabled) << "of a long file";
}

// Zoom and F5 drew a refused file, with the part chosen in the other one, although the chart showed that.
TEST(Plot, ARefusedFileLeavesTheFileOfTheChartAlone) {
  PlotJourney j;
  j.world.files.contents["b.csv"] = "no data file\r\n\r\nx\r\n";
  j.write_file(j.many(40));
  j.open("b.csv");
  j.press("SelectData_3");
  EXPECT_EQ(j.world.dialogs.message_texts(), Texts(2, "Not a valid data file")) << "no other file is open";
  j.open("a.csv");
  j.world.dialogs.input_answers = {"10", "12", "500"};
  j.press("ZoomIn");
  j.press("set_scale_1");
  j.open("b.csv");
  EXPECT_EQ(j.chart()->y_low, 500);
  for (const char* entry : {"read_again", "SelectData_3", "ZoomIn"}) {
    j.world.dialogs.input_answers = {"39", "40"};
    j.press(entry);
    EXPECT_TRUE(j.control("plot_about").text.starts_with("a.csv")) << entry;
  }
  EXPECT_EQ(j.points(), (std::vector{1038.0, 1039.0}));
  EXPECT_EQ(j.world.dialogs.messages.size(), 3U);
}

TEST(Plot, ANewerWishEndsTheReadingOfAFileAndAClosedWindowSaysNothing) {
  PlotJourney j;
  j.write_file(j.many(4000));
  j.world.files.contents["b.csv"] = j.world.files.contents["a.csv"].substr(0, 1000);
  const auto while_reading = [&j](std::function<void()> wish) {
    j.world.user_does(0, [&j, wish = std::move(wish)] { wish(); });
    j.open("a.csv");
  };
  while_reading([&j] { j.open("b.csv"); });
  EXPECT_TRUE(j.control("plot_about").text.starts_with("b.csv")) << j.control("plot_about").text;
  while_reading([&j] { j.window("PlotFile").closed(); });
  EXPECT_EQ(j.world.dialogs.message_texts(), Texts{}) << "that the file is a long one";
  EXPECT_TRUE(j.control("plot_about").text.starts_with("b.csv"));
}

// Clear threw the plot away, and Zoom did nothing then.
TEST(Plot, AClearedChartComesBackWithTheNextPlot) {
  PlotJourney j;
  j.write_file(j.many(5));
  j.open("a.csv");
  j.press("clear_graphics");
  j.press("set_grid_3");
  j.press("chart_copy");
  EXPECT_FALSE(has_data(*j.chart()));
  EXPECT_EQ(j.control("status_hint").text, "There is nothing to copy or save yet.");
  j.world.dialogs.input_answers = {"2", "4"};
  j.press("ZoomIn");
  EXPECT_EQ(j.points(), (std::vector{1001.0, 1002.0, 1003.0}));
  EXPECT_EQ(j.chart()->grid, Grid::both);
}

TEST(Plot, ChartAndPointsAreHandedOn) {
  PlotJourney j;
  j.write_file(j.record("12:00:00", "230.0V", "1.234KW") + "11-22-2026,  12:00:04,  NO COM\r\n");
  j.open("a.csv");
  j.press("chart_copy_points");
  EXPECT_EQ(j.world.pictures.copied_text, "12:00:00\t230\n12:00:04\t0\n");
  j.world.dialogs.file_answers = {"p.svg", "p.gif", "p.csv", "a.csv"};
  for (const char* entry : {"chart_save", "chart_save", "save_points"}) j.press(entry);
  EXPECT_EQ(j.world.dialogs.file_questions.back().suggested_name, "a-V1-points");
  EXPECT_EQ(j.world.pictures.saved, Texts{"p.svg"}) << "no picture ends in .gif";
  EXPECT_EQ(j.world.files.contents["p.csv"],
            "first_record,last_record,date,time,maximum,minimum,readings,unit\n"
            "1,1,11-22-2026,12:00:00,230,230,1,V\n2,2,11-22-2026,12:00:04,0,0,0,V\n");
  const std::string recording = j.world.files.contents["a.csv"];
  j.press("save_points");
  EXPECT_EQ(j.world.dialogs.questions.back().text, "a.csv exists already. Replace it?");
  EXPECT_EQ(j.world.files.contents["a.csv"], recording) << "the answer was no";
}

TEST(Plot, TheLinesBesideTheChartFollowTheLanguage) {
  PlotJourney j;
  j.write_file(j.many(2));
  j.open("a.csv");
  j.press("StatOption_1");
  j.click("sel_language_1");
  EXPECT_TRUE(j.control("plot_statistics").text.starts_with("平均 1000.5 V"));
  EXPECT_EQ(j.chart()->statistic_names.mean, "平均");
}

}  // namespace
}  // namespace halden
