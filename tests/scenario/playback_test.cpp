// The window that plays back harmonics and waveform data files, in virtual time.
#include <gtest/gtest.h>

#include "chart/chart.h"
#include "program_test_base.h"

namespace halden {
namespace {

using Texts = std::vector<std::string>;

const std::string columns = "DATE, TIME, RMS\r\n";
const std::string lost_line = "03-15-2024,12:30:44, NO COM, DATA LOST, !, !,!,!,!,!,!,!\r\n";
const std::string live_header =
    "HARMO,Hz=60,MD=15,SEC=2,CT=1,VT=1,INPUT=V1,SYS=3P4W,,NO.=100 ,OPTION=%\r\n" + columns;
const std::string stored_header =
    "HARMO,Hz=60,MD=15,SEC=2,CT=1,VT=1,INPUT=I3,SYS=3P4W,NO.=51 ,OPTION=%\r\n" + columns;

std::string field(const std::string& text) { return std::string(10 - text.size(), ' ') + text + ","; }

// All orders are 1.5 but the first two.
std::string harmonics(const std::string& rms, const std::string& peak, const std::string& range, int orders) {
  std::string line = field("03-15-2024") + field("12:30:42") + field(rms) + field(peak) + field("-324.9V") +
                     field("3.2%") + field("230.0V") + field("60Hz") + field(range) + field("0.0") +
                     field("100.0");
  for (int order = 2; order < orders; ++order) line += field("1.5");
  return line + "\r\n";
}

// The samples are 100, -50 and zeros.
std::string waveform(const std::string& fields) {
  std::string line = "03-15-2024   12:30:42 B 00100 -00050 ";
  for (int sample = 2; sample < 1024; ++sample) line += "00000 ";
  return line + fields + "\r\n";
}

struct PlaybackJourney : Journey {
  PlaybackJourney() {
    start();
    world.dialogs.messages.clear();
  }

  void press(const std::string& control) { click(control, "P_Harmo"); }
  const Control& control(const std::string& name) const { return window("P_Harmo")[name]; }
  const Chart& chart() const { return *control("Graph1").chart; }
  const std::vector<double>& points() const { return *chart().sets.at(0).points; }

  void open(const std::string& entry, const std::string& bytes) {
    click(entry);
    world.files.contents["a"] = bytes;
    world.dialogs.file_answers = {"a"};
    press("openfileforplot");
  }

  void scroll_to(int record) {
    window("P_Harmo").set_value("VScroll1", record);
    window("P_Harmo").changed("VScroll1");
  }

  std::string panels() const {
    std::string texts;
    for (const char* name :
         {"DATE_value", "TIME_value", "RMS_value", "PEAK_P_value", "PEAK_N_value", "CF_wave_value",
          "THD_value", "VI_1_value", "HZ_value", "TOTAL_R_value", "Label1"})
      texts += control(name).text + "|";
    return texts;
  }
};

TEST(Playback, SpectraAreShownRecordByRecordWithTheHeaderAboveThem) {
  PlaybackJourney j;
  std::string second_header = live_header;
  second_header.replace(second_header.find("V1"), 2, "I2").replace(second_header.find("=%"), 2, "=D");
  j.open("show_plot_harmonics", live_header + harmonics("230.1V", "325.4V", "0 to 99", 100) + lost_line +
                                    second_header + harmonics("900.0mA", "1.270A", "0 to 99", 100));
  EXPECT_EQ(j.world.dialogs.file_questions.back().filters.at(0).caption, "csv Files(*.csv)");
  EXPECT_EQ(j.panels(), "03-15-2024|12:30:42|230.1V|325.4V|-324.9V|1.41|3.2%|230.0V|60Hz|5|1|");
  EXPECT_EQ(j.control("VScroll1").minimum, 1);
  EXPECT_EQ(j.control("VScroll1").maximum, 5);
  ASSERT_EQ(j.points().size(), 100U);
  EXPECT_EQ(j.points()[1], 100);
  EXPECT_EQ(j.chart().x_title + j.chart().y_title, "Order -->V1");
  EXPECT_EQ(readout_at(j.chart(), 5), "Order 5: 1.5 %, 300 Hz");
  EXPECT_EQ(j.control("List1").lines->at(1), "H1     100.0%");
  EXPECT_EQ(j.control("playback_about").text, "a · V1 · % · CT 1 · VT 1");

  j.scroll_to(2);
  EXPECT_EQ(j.control("playback_note").text, "record 2: lost link");
  EXPECT_EQ(j.panels(), "|||||||||5|2|");
  EXPECT_FALSE(has_data(j.chart()) || j.control("List1").lines);
  EXPECT_EQ(j.world.dialogs.messages.size(), 0U);

  j.press("chart_copy");
  EXPECT_EQ(j.control("status_hint").text, "There is nothing to copy or save yet.");

  j.scroll_to(5);
  j.press("chart_copy_points");
  EXPECT_TRUE(j.world.pictures.copied_text.starts_with("0\t0\n1\t100\n2\t1.5\n"));
  j.world.dialogs.file_answers = {"points.csv"};
  j.press("save_points");
  EXPECT_EQ(j.world.dialogs.file_questions.back().suggested_name, "a-5-points");
  EXPECT_TRUE(j.world.files.contents["points.csv"].starts_with("order,value,unit\n0,0,°\n1,100,°\n"));
  EXPECT_EQ(j.control("CF_wave_value").text, "1.41") << "the prefixes of the units count";
  EXPECT_EQ(j.chart().y_title, "I2");
  EXPECT_EQ(j.control("List1").lines->at(99), "H99       1.5D");
  j.press("set_har_51");
  EXPECT_EQ(j.points().size(), 51U);
  EXPECT_EQ(j.control("Label1").text, "1");
}

TEST(Playback, AConvertedRecordHasTheOrdersOfItsOwnRange) {
  PlaybackJourney j;
  j.open("show_plot_harmonics", stored_header + harmonics("0.000A", "1.270A", "50 to 100", 51) +
                                    harmonics("1.000A", "1.270A", "0 to 50", 51) +
                                    harmonics("1.000A", "1.270A", "?", 51));
  EXPECT_EQ(j.control("CF_wave_value").text, "OL");
  EXPECT_EQ(label_at(j.chart(), 0) + " " + label_at(j.chart(), 50), "50 100");
  EXPECT_EQ(j.control("List1").lines->at(50), "H100       1.5%");
  j.scroll_to(2);
  EXPECT_EQ(label_at(j.chart(), 50), "50");
  j.scroll_to(3);
  EXPECT_EQ(j.control("playback_note").text, "record 3: range of its orders unknown");
  EXPECT_EQ(j.control("RMS_value").text, "1.000A");
}

TEST(Playback, ARefusalLeavesThePicture) {
  PlaybackJourney j;
  const std::string good = live_header + harmonics("230.1V", "325.4V", "0 to 99", 100);
  j.open("show_plot_harmonics", good);
  const auto shown = j.control("Graph1").chart;
  const std::pair<std::string, std::string> refusals[] = {
      {"WAVE Hz=60\r\n" + columns, "Not a Harmonic Data File"},
      {"X" + good, "Not a harmonic data file"},
      {live_header + lost_line, "Zero Data Length"},
      {live_header, "Zero Data Length"},
      {stored_header + harmonics("1.000A", "1.270A", "?", 51), "Incorrect data format"}};
  for (const auto& [bytes, refusal] : refusals) {
    j.open("show_plot_harmonics", bytes);
    EXPECT_EQ(j.world.dialogs.messages.back().text, refusal);
    EXPECT_EQ(j.control("Graph1").chart, shown);
  }
  const std::string wave_header = "WAVE CT=1 VT=1 INPUT=V1 \r\n" + columns;
  j.open("show_plot_waveform", wave_header + "03-15-2024   12:30:42 B 00100 \r\n");
  EXPECT_EQ(j.world.dialogs.messages.back().text, "Data Error");
  j.open("show_plot_waveform", good);
  EXPECT_EQ(j.window("P_Harmo").caption(), "Plot Waveform");
  EXPECT_EQ(j.world.dialogs.messages.back().text, "Not a Harmonic Data File");
  EXPECT_TRUE(j.control("status_hint").text.starts_with("This is a harmonics data file"));
  j.world.files.contents.clear();
  j.program().playback.open_file("a");
  EXPECT_EQ(j.world.dialogs.messages.back().text, "File not found");
  j.world.files.read_failures["a"] = FileFailure::forbidden;
  j.program().playback.open_file("a");
  EXPECT_EQ(j.world.dialogs.messages.back().text, "Bad file name or number");
}

// 500 counts are 50.0 V and 1000 are 100.0 V, to which the largest sample, 100, belongs.
TEST(Playback, WaveformsAreScaledByTheirPeaksAndTheRatiosOfTheFile) {
  PlaybackJourney j;
  j.program().link.status.current_range = 1;
  j.program().link.status.current_scale = 1.2F;
  const std::string header =
      "WAVE Hz=60 MD=15 SEC=4 CT=2 VT=1 INPUT=V1 SYS=3P4W, NO.=1024  OPTION=%\r\n" + columns;
  j.open("show_plot_waveform", header + waveform("O=    0R=  500P= 1000N=  500H=    2T=   32V=  499 E") +
                                   waveform("O=    3R= 1000P=   -1N= 1000H=    0T=    0V= 1000 E"));
  EXPECT_EQ(j.world.dialogs.file_questions.back().filters.at(0).caption, "dat Files(*.dat)");
  EXPECT_EQ(j.panels(), "03-15-2024|12:30:42|050.0V|100.0V|-050.0V|2.00|3.2%|049.9V|60Hz|2|1|");
  ASSERT_EQ(j.points().size(), 1024U);
  EXPECT_EQ(j.points()[0], 100);
  EXPECT_EQ(j.points()[1], -50);
  EXPECT_EQ(j.chart().x_title + j.chart().y_title, "TIME -->V1");
  EXPECT_FALSE(j.control("List1").visible);
  EXPECT_EQ(j.control("playback_about").text,
            "a · V1 · CT 2 · VT 1 · range 1 and clamp 1.2 (not in the file) · Scale in V");
  j.scroll_to(2);
  EXPECT_EQ(j.panels(), "03-15-2024|12:30:42|2.400A|  OL |-2.400A|OL|0.0%|2.400A|AUTO|2|2|");
  EXPECT_EQ(j.chart().y_title, "I2");
  EXPECT_FALSE(has_data(j.chart())) << "over range";
}

TEST(Playback, AGrowingFileIsReadAgainAndPrintsKeepTheirColours) {
  PlaybackJourney j;
  j.click("show_plot_harmonics");
  EXPECT_FALSE(j.control("VScroll1").visible || j.control("read_again").enabled);
  const std::string record = harmonics("230.1V", "325.4V", "0 to 99", 100);
  j.open("show_plot_harmonics", live_header + record + record);
  j.scroll_to(2);
  j.world.files.contents["a"] += record;
  j.press("read_again");
  EXPECT_EQ(j.control("Label1").text + " of " + j.control("TOTAL_R_value").text, "2 of 3");
  j.world.timer2.set_enabled(true);
  j.press("set_BW");
  EXPECT_EQ(j.world.printer.documents.at(0).at(0).windows, Texts{"P_Harmo"});
  EXPECT_EQ(j.world.printer.documents.at(0).at(0).orientation, Orientation::landscape);
  EXPECT_TRUE(j.world.timer2.enabled() && !j.world.timer1.enabled()) << "as they were";
  j.scroll_to(3);
  EXPECT_EQ(j.chart().colours, ChartColours::black_and_white);
  j.click("show_plot_waveform");
  EXPECT_EQ(j.chart().hint, "Open a waveform data file: File > Open");
  EXPECT_EQ(j.panels(), "|||||||||||");
}

}  // namespace
}  // namespace halden
