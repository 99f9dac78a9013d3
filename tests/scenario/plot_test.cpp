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

  void write_file(const std::string& records, const std::string& name = "a.csv") {
    world.files.contents[name] =
        "1P2W,Hz=50,MD=15,SEC=2,CT=1,VT=1\r\n      DATE,      TIME,        V1\r\n" + records;
  }

  void write_numbered(const std::string& name, int count, int base = 1000) {
    std::string records;
    for (int i = 0; i < count; ++i) records += record("12:00:00", std::to_string(base + i) + ".V", "1.234KW");
    write_file(records, name);
  }

  void open(const std::string& name) {
    world.dialogs.file_answers = {name};
    press("openfileforplot");
  }

  void open_numbered(int count) {
    write_numbered("a.csv", count);
    open("a.csv");
  }

  // As the chart on the screen tells which of its points are seen.
  void look_at(int first_point, int last_point) {
    window("PlotFile").set_range("Graph1", first_point, last_point);
    window("PlotFile").changed("Graph1");
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
  j.world.dialogs.file_answers = {"a.csv"};
  j.press("openfileforplot");
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
  j.world.dialogs.file_answers = {"b.csv"};
  j.press("openfileforplot");
  EXPECT_EQ(j.world.dialogs.messages.back().text, "Not a valid data file");
  EXPECT_EQ(j.chart(), shown) << "the chart keeps what it showed";
}

TEST(Plot, TheUserChoosesHowItLooks) {
  PlotJourney j;
  j.write_file(j.record("12:00:00", "230.0V", "1.234KW") + j.record("12:00:02", "231.5V", "987.6W"));
  j.world.dialogs.file_answers = {"a.csv"};
  j.press("openfileforplot");
  j.world.dialogs.input_answers = {"-5.5", "", "Site 3"};
  for (const char* entry : {"set_scale_1", "set_scale_2", "set_title_0"}) j.press(entry);
  EXPECT_EQ(j.chart()->y_low, -5.5);
  EXPECT_FALSE(j.chart()->y_high) << "an empty answer changes nothing";
  for (const char* entry : {"openfile", "leave_out", "openfile", "read_again"}) j.press(entry);
  EXPECT_EQ(j.chart()->x_title, "Site 3") << "entries of our own in the menu that sets it to Time";
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
  j.world.dialogs.input_answers = {"1", "2"};
  j.press("ZoomIn");
  EXPECT_EQ(j.points().size(), 2U) << "did nothing after Clear";
}

// The path was taken over before it was known whether the file can be plotted.
TEST(Plot, ARefusedOrCancelledFileLeavesFilePartAndLimitsAsTheyWere) {
  PlotJourney j;
  j.open_numbered(100);
  j.write_numbered("big.csv", 20000, 5000);
  j.world.files.contents["b.csv"] = "no data file\r\n\r\nx\r\n";
  j.world.dialogs.input_answers = {"10", "20", "-7"};
  for (const char* entry : {"ZoomIn", "set_scale_1"}) j.press(entry);
  j.world.user_does(0, [&j] { j.window("PlotFile").press("plot_cancel"); });
  for (const char* name : {"big.csv", "b.csv"}) {
    j.open(name);
    j.press("read_again");
    EXPECT_EQ(j.points().size(), 11U) << name;
    EXPECT_EQ(j.points()[0], 1009) << name;
    EXPECT_EQ(j.chart()->y_low, -7) << name;
  }
  j.press("SelectData_24");
  EXPECT_EQ(j.points().size(), 100U);
}

TEST(Plot, ARefusedFirstFileIsReadAgainWhenItHasGrown) {
  PlotJourney j;
  j.open_numbered(1);
  EXPECT_TRUE(j.world.dialogs.messages.back().text.starts_with("Only one record"));
  j.write_numbered("a.csv", 2);
  j.press("read_again");
  EXPECT_EQ(j.points().size(), 2U) << "F5 was disabled";
}

// The second file was forgotten, and a box came for a window that was closed.
TEST(Plot, TheNewestRequestEndsAReadingAndClosingEndsAll) {
  PlotJourney j;
  j.write_numbered("b.csv", 10, 7000);
  j.world.user_does(0, [&j] { j.program().plot.open_file("b.csv"); });
  j.open_numbered(3700);
  EXPECT_EQ(j.points().size(), 10U);
  j.world.user_does(0, [&j] { j.window("PlotFile").closed(); });
  j.open("a.csv");
  EXPECT_EQ(j.points().size(), 10U);
  EXPECT_TRUE(j.world.dialogs.messages.empty());
}

// 20,000 records: 1667 points of 12. 300 of them are 3600 records, which are drawn one by one.
TEST(Plot, AViewOfALongFileIsReadAgainWithoutABox) {
  PlotJourney j;
  j.open_numbered(20000);
  j.world.dialogs.messages.clear();
  const auto whole = j.chart();
  j.look_at(100, 399);
  EXPECT_EQ(j.points().size(), 3600U);
  EXPECT_EQ(j.points()[0], 1000 + 1200);
  EXPECT_EQ(j.chart()->subject, whole->subject) << "the height zoomed to is kept";
  j.look_at(-1200, 18799);
  EXPECT_EQ(j.chart()->part, whole->part);
  j.world.files.contents.erase("a.csv");
  j.look_at(0, 9);
  EXPECT_EQ(j.control("status_hint").text, "File not found");
  EXPECT_TRUE(j.world.dialogs.messages.empty());
}

// 3601 records: three to a point, 1201 points.
TEST(Plot, LongFilesAreEnvelopesAndPartsOfThemAreNot) {
  PlotJourney j;
  j.open_numbered(3601);
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
  j.press("StatOption_7");
  EXPECT_EQ(j.chart()->statistics, Statistics::none) << "the disabled menu could not take them away";
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

}  // namespace
}  // namespace halden
