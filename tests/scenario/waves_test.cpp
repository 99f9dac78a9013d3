// The live harmonics and waveform views: what they show, send and record, and what a bad line does.
#include <algorithm>
#include <map>

#include "chart/chart.h"
#include "program_test_base.h"

namespace halden {
namespace {

using simulator::MeterMode;
using Texts = std::vector<std::string>;

std::string worked_harmonics(int frequency = 1) {
  std::map<int, std::string> worked = {
      {1, "0010000 0000000"},  {2, "0000300 -000300"},  {3, "-000300 0000300"},
      {5, "-000300 -000300"},  {7, "0000000 0000500"},  {9, "0000000 -000500"},
      {11, "0000009 0000000"}, {13, "0000050 0000050"}, {99, "0000173 0000100"}};
  std::string frame = "BO=    0R=  2301P=  3254N=  3199H=     " + std::to_string(frequency);
  for (int k = 0; k < 100; ++k)
    frame +=
        (k < 10 ? " 0" : " ") + std::to_string(k) + " " + (worked[k].empty() ? "0000000 0000000" : worked[k]);
  return frame + "T=    32V=  2300E";
}

const std::string worked_fields = " O=    0 R= 2301 P= 3254 N= 3199 H=    1 T=   32 V= 2300";
const std::string worked_summary = "230.1V|325.4V|-319.9V|1.41|3.2%|230.0V|";

// The samples -1, 32767 and -32768, then 0.
std::string worked_waveform(const std::string& fields = worked_fields) {
  return "B \xFF\xFF\x7F\xFF" + std::string("\x80\0", 2) + std::string(2042, '\0') + fields + " E";
}

struct WaveJourney : Journey {
  explicit WaveJourney(double time_of_day_s = 12 * 3600.0) : Journey(time_of_day_s) {
    meter.settings().mode = MeterMode::harmonics;
    meter.on_frame = [this](double, const std::string&) { meter.faults().next_live_frame = every_reply; };
  }

  // From the next request on every reply is this frame.
  void send_only(const std::string& frame) { meter.faults().next_live_frame = every_reply = frame; }

  bool frame_shown(double limit_s = 8) {
    const auto before = window()["Harmo_Graph1"].chart;
    return world.run_until([&] { return window()["Harmo_Graph1"].chart != before; }, limit_s);
  }

  // Opens the view, which then shows this frame.
  void open(const std::string& entry, const std::string& frame) {
    send_only(frame);
    if (!started) start_on_port(1);
    click(entry);
    ASSERT_TRUE(frame_shown());
  }

  const Chart& chart() const { return *window()["Harmo_Graph1"].chart; }
  std::string summary() const { return values("RMS PEAK_P PEAK_N CF THD_F VI_of_1"); }

  std::string cursor_at(int order) {
    window().set_value("HScroll1", order);
    window().changed("HScroll1");
    return values("har_index har_percent har_angle");
  }

  // One digit for each of these: 1 when it is shown; behind them 1 for each switch that is marked.
  std::string screen() const {
    std::string state;
    for (const char* name : {"Harmo_Graph1", "HScroll1", "har_index_value", "har_hz_value", "RMS_value",
                             "DATE_wave", "chart_percent", "chart_copy"})
      state += window()[name].visible ? '1' : '0';
    state += ' ';
    for (const char* name : {"chart_percent", "chart_angle", "chart_50", "chart_99"})
      state += window()[name].checked ? '1' : '0';
    return state;
  }
  bool closed() const { return screen().starts_with("00000000 "); }

  bool refuses_records() {
    return text("status_recording").ends_with("readings of another kind or input are not recorded");
  }

  void record(const std::string& path = "d/r") {
    world.dialogs.file_answers.push_back(path);
    click("FileName");
    click("auto_record");
  }

  Texts lines(const std::string& path = "d/r") { return lines_of(world.files.contents[path]); }

  std::optional<std::string> every_reply;
};

struct Waves : testing::Test, WaveJourney {};

// The query asks after 4 s and collects for 5 s; the view settles for 1 s, and polling resumes after 1 s.
TEST_F(Waves, EachEntryOpensItsViewWithOneRequest) {
  meter.settings().harmonic_order = 60;
  start_on_port(1);
  EXPECT_EQ(received(), "? ");
  for (const auto& [entry, request, shown, highest, position] :
       {std::tuple("show_50_harmonics", "? ", "11111111 1010", 51, 51),
        {"show_99_harmonics", "? ", "11111111 1001", 99, 60},
        {"show_50_angles", "? ", "11111111 0110", 51, 51},
        {"show_99_angles", "? ", "11111111 0101", 99, 60},
        {"open_waveform", "?W", "10001101 0101", 99, 60}}) {
    const std::size_t sent = meter.log().size();
    const double from_s = now_s();
    click(entry);
    ASSERT_EQ(meter.log().size(), sent + 2) << entry;
    EXPECT_NEAR(meter.log()[sent].time_s - from_s, 4, 0.01);
    EXPECT_NEAR(meter.log()[sent + 1].time_s - from_s, 11, 0.01);
    EXPECT_EQ(received(from_s + 1), request);
    EXPECT_EQ(screen(), shown) << entry;
    EXPECT_EQ(window()["HScroll1"].maximum, highest);
    EXPECT_EQ(window()["HScroll1"].value, position);
    EXPECT_EQ(summary(), "||||||") << "nothing of the view before";
    EXPECT_EQ(text("status_link"), "waiting for the meter") << "what is not shown is not old";
    ASSERT_TRUE(frame_shown());
    const std::size_t requests = meter.log().size();
    window().resized();
    EXPECT_EQ(meter.log().size(), requests) << "the view stays";
  }
}

TEST_F(Waves, AMeterInPowerModeAndASilentOneOpenNothing) {
  meter.settings().mode = MeterMode::power;
  start_on_port(1);
  Texts messages;
  for (const char* entry : {"show_99_angles", "open_waveform", "show_50_harmonics"}) {
    click(entry);
    messages.push_back("Not in harmomic mode, please press the HARMO button");
    EXPECT_TRUE(closed()) << entry;
    world.run_for(1);
    EXPECT_EQ(text("status_link"), "linked");
  }
  meter.faults().silence = true;
  click("open_waveform");
  messages.push_back(status_failed);
  EXPECT_EQ(world.dialogs.message_texts(), messages);
  EXPECT_TRUE(closed());
}

// In percent of 10000. Order 2 is -45 + 90 - 1.1, order 3 -45 - 90 - 1.1, order 5 45 - 90 - 1.1, order 99
// 30.03 - 1.1; order 11 has 0.09 %, order 13 0.7 %. The crest factor is 3254 / 2301.
TEST_F(Waves, AWorkedSpectrumGivesItsTextsAndTheSwitchesChangeItAtOnce) {
  open("show_99_harmonics", worked_harmonics());
  EXPECT_EQ(summary(), worked_summary);
  EXPECT_EQ(values("DATE_wave TIME_wave har_index har_hz"), "11/22/2026|" + text("Label1_3") + "|1|50|");
  for (const char* texts : {"1|100.0|-1.1|", "2|4.2|43.9|", "3|4.2|-136.1|", "5|4.2|-46.1|", "7|5.0|180.0|",
                            "9|5.0|0.0|", "11|0.0|0.0|", "13|0.7|0.0|", "99|2.0|28.9|"})
    EXPECT_EQ(cursor_at(std::atoi(texts)), texts);
  EXPECT_EQ(text("har_hz_value"), "50") << "until the next frame";
  EXPECT_EQ(chart().description,
            "Harmonics of V1 in percent. Fundamental 230.0V. Largest orders: 1 (100.0 %), 7 (5.0 %), 9 (5.0 "
            "%), 2 (4.2 %), 3 (4.2 %)");
  EXPECT_EQ(text("chart_reference"), "100 % is order 1");
  const std::size_t sent = meter.log().size();
  click("chart_without_largest");
  EXPECT_TRUE(is_gap((*chart().sets[0].points)[1]) && !chart().y_high);
  click("chart_angle");
  click("chart_50");
  EXPECT_EQ(point_count(chart()), 52u);
  EXPECT_EQ((*chart().sets[0].points)[7], 180);
  EXPECT_EQ(window()["HScroll1"].value, 51);
  EXPECT_EQ(text("har_index_value"), "51");
  EXPECT_EQ(meter.log().size(), sent) << "the meter is not asked";
  for (const auto& [code, hertz, visible] :
       {std::tuple(2, "3060", true), {3, "AUTO", true}, {0, "AUTO", false}}) {
    meter.settings().frequency_code = code;
    send_only(worked_harmonics(code));
    click("get_hz");
    ASSERT_TRUE(frame_shown());
    EXPECT_EQ(text("har_hz_value"), hertz);
    EXPECT_EQ(window()["har_hz_value"].visible, visible);
  }
}

// The larger peak gives scale and unit: one of 319.9 V, then one of 1.270 A beside one of 999.0 mA.
TEST_F(Waves, AWorkedWaveformHasTheScaleAndTheUnitOfItsLargerPeak) {
  open("open_waveform", worked_waveform());
  EXPECT_EQ(summary(), worked_summary);
  const std::vector<double>& samples = program().live.waveform.samples();
  ASSERT_EQ(samples.size(), 1024u);
  EXPECT_NEAR(samples[1], 319.89, 0.001);
  EXPECT_NEAR(samples[2], -319.9, 1e-9);
  EXPECT_EQ(chart().y_title + chart().x_title + label_at(chart(), 128), "V1Time -->128");
  EXPECT_EQ(text("chart_reference"), "Scale in V");
  meter.settings().current_range = 0;
  open("open_waveform", worked_waveform(" O=    1 R= 9000 P= 9990 N=12700 H=    0 T=   32 V= 8990"));
  EXPECT_EQ(summary(), "900.0mA|999.0mA|-1.270A|1.11|3.2%|899.0mA|");
  EXPECT_EQ(text("chart_reference"), "Scale in A");
  EXPECT_EQ(readout_at(chart(), 2), "Sample 2: -1.270 A");
  open("open_waveform", worked_waveform(" O=    1 R=   -1 P=   -1 N=12700 H=    0 T=   32 V=   -1"));
  EXPECT_EQ(summary(), "  OL |  OL |-1.270A|OL|3.2%|  OL |");
  EXPECT_TRUE(!has_data(chart()) && text("chart_reference").empty());
  click("chart_save");
  EXPECT_EQ(text("status_hint"), "There is nothing to copy or save yet.");
}

// The reply begins 20 ms after its request, with 960 bytes a second.
TEST_F(Waves, FramesAreShownAtOnceAndNoRequestFallsInsideOne) {
  start_on_port(1);
  meter.faults().restarts = true;  // a request inside a frame would start it anew
  for (const auto& [entry, bytes] : {std::pair("show_99_harmonics", 1957), {"open_waveform", 2108}}) {
    click(entry);
    const auto& log = meter.log();
    for (int frame = 0; frame < 80; ++frame) {
      const std::size_t sent = log.size();
      const double end_s = log.back().time_s + 0.02 + bytes / 960.0;
      ASSERT_TRUE(frame_shown());
      EXPECT_LE(now_s() - end_s, 0.5) << entry;
      ASSERT_EQ(log.size(), sent + 1) << entry;
      EXPECT_GE(log.back().time_s, end_s) << entry;
    }
    EXPECT_TRUE(text("status_rate").starts_with("sampling every 2 s, frames every 2.")) << entry;
  }
}

// A waveform once took a lost tag's field from the frame behind it, and showed what a lost digit left.
TEST_F(Waves, AFrameWithOneByteLostShowsNothingElse) {
  const std::string other = worked_waveform(" O=    0 R= 1111 P= 1222 N= 1333 H=    1 T=   44 V= 1555");
  for (const auto& [entry, whole, frame] :
       {std::tuple("show_99_harmonics", worked_harmonics(), worked_harmonics()),
        {"open_waveform", worked_waveform(), other}}) {
    open(entry, whole);
    const std::size_t last = frame.rfind("V=") + 1;  // a digit lost behind it leaves a number
    for (std::size_t at = 0; at < frame.size();
         at = at == last ? frame.size() - 1 : at + (at < 50 || at > last - 60 ? 1 : 7)) {
      meter.faults().next_live_frame = std::string(frame).erase(at, 1);
      for (int shown = 0; shown < 3; ++shown) {
        ASSERT_TRUE(frame_shown(20)) << entry << at;
        ASSERT_TRUE(summary() == worked_summary || summary() == "111.1V|122.2V|-133.3V|1.10|4.4%|155.5V|")
            << summary() << entry << at;
        const std::vector<double>& samples = program().live.waveform.samples();
        ASSERT_EQ(std::ranges::count(samples, 0.0), samples.empty() ? 0 : 1021) << at;
      }
    }
  }
}

TEST(DamagedWaves, AreCountedAndToldOnceAMinuteWhilePollingAndRecordingGoOn) {
  const std::string harmonics = worked_harmonics();
  std::string no_channel = harmonics, far_away = harmonics;
  no_channel[1] = 'x';
  far_away.insert(far_away.find(" 50 "), 22, ' ');
  const std::string no_tag = worked_waveform(std::string(56, ' ')), waveform = worked_waveform();
  const std::string no_last_tag = worked_waveform(worked_fields.substr(0, 48) + std::string(10, ' '));
  for (const auto& [entry, whole, damaged, message] :
       {std::tuple("show_99_harmonics", harmonics, no_channel, "Communication Error (Harmonics 1)"),
        {"show_99_harmonics", harmonics, far_away, "Communication Error (Harmonics 2)"},
        {"open_waveform", waveform, no_tag, "Communication Error (Waveform O)"},
        {"open_waveform", waveform, no_last_tag, "Communication Error (Waveform V)"}}) {
    WaveJourney line;
    line.open(entry, whole);
    line.record();
    ASSERT_TRUE(line.world.run_until([&] { return line.lines().size() == 4; }, 12));
    line.send_only(damaged);
    for (const char* count : {", 1 damaged frame", ", 2 damaged frames"})
      EXPECT_TRUE(line.world.run_until([&] { return line.text("status_rate").ends_with(count); }, 8));
    const std::size_t recorded = line.lines().size();
    ASSERT_EQ(line.world.dialogs.told.size(), 1u) << message;
    EXPECT_EQ(line.world.dialogs.told[0].text, message);
    line.world.run_for(70);
    EXPECT_EQ(line.world.dialogs.told.size(), 2u);
    EXPECT_EQ(line.lines().size(), recorded);
    line.send_only(whole);
    line.world.run_for(20);
    EXPECT_GT(line.lines().size(), recorded + 2) << message;
    EXPECT_EQ(line.summary(), worked_summary);
  }
}

TEST_F(Waves, AfterSilenceAndCutFramesTheViewGoesOn) {
  start_on_port(1);
  for (const char* entry : {"show_50_harmonics", "open_waveform"}) {
    click(entry);
    ASSERT_TRUE(frame_shown());
    meter.faults().silence = true;
    ASSERT_TRUE(world.run_until([&] { return window()["Warning"].visible; }, 25)) << entry;
    EXPECT_TRUE(world.run_until([&] { return text("status_link").starts_with("no answer since"); }, 10));
    EXPECT_EQ(text("status_link").ends_with("press Update Now"), std::string_view(entry) == "open_waveform");
    meter.faults().silence = false;
    ASSERT_TRUE(frame_shown(10)) << entry;
    world.run_for(2);
    EXPECT_FALSE(window()["Warning"].visible);
    EXPECT_EQ(text("status_link"), "linked");
    meter.faults().cut_after = 1900;
    ASSERT_TRUE(frame_shown()) << "one was on its way";
    EXPECT_FALSE(frame_shown(40)) << "cut frames show nothing";
    for (const double pause_s : {0.0, 3.0, 0.0}) {
      meter.faults() = {};
      meter.faults().split_after = 1000;
      meter.faults().split_pause_s = pause_s;
      EXPECT_TRUE(frame_shown(20) && frame_shown(20)) << entry << " with a pause inside of s " << pause_s;
    }
  }
}

struct WavesAtMidnight : testing::Test, WaveJourney {
  WavesAtMidnight() : WaveJourney(86400 - 60) {}
};

// Frames come every 2.3 s, so that of 30 sampling instants 26 have a frame of their own.
TEST_F(WavesAtMidnight, HarmonicsAreRecordedOncePerInstantAndOnlyOfTheOptionAndInputOfTheFile) {
  open("show_50_harmonics", worked_harmonics());
  record();
  world.run_for(60);
  Texts file = lines();
  EXPECT_EQ(file[0], "HARMO,Hz=50,MD=15,SEC=2,CT=1,VT=1,INPUT=V1,SYS=3P4W,,NO.=100 ,OPTION=%");
  EXPECT_TRUE(file[1].starts_with("DATE, TIME, RMS, PEAK+, PEAK-, THD-F, VI_1, HZ, RANGE,0,1,2,") &&
              file[1].ends_with(",98,99"));
  EXPECT_NEAR(static_cast<double>(file.size()), 2 + 26, 1);
  EXPECT_EQ(file[2].substr(13, 2) + file.back().substr(13, 2), "2300");
  const std::string head =
      "    230.1V,    325.4V,   -319.9V,      3.2%,    230.0V,      50Hz,   0 to 99,       0.0,";
  for (std::size_t k = 2; k < file.size(); ++k) {
    ASSERT_EQ(file[k].size(), 1199u);
    EXPECT_EQ(file[k].substr(0, 13), file[k][13] == '2' ? "11/22/2026,  " : "11/23/2026,  ");
    EXPECT_EQ(file[k].substr(22, 132), head + "     100.0,       4.2,       4.2,       0.0,");
    EXPECT_NE(file[k].substr(13, 8), file[k - 1].substr(13, 8)) << "one record per instant";
  }
  EXPECT_EQ(text("DATE_wave_value"), "11/23/2026");
  click("chart_angle");
  EXPECT_TRUE(refuses_records());
  world.run_for(20);
  EXPECT_EQ(lines().size(), file.size());
  click("chart_percent");
  EXPECT_FALSE(refuses_records());
  std::string other = worked_harmonics();
  other[7] = '2';
  send_only(other);
  ASSERT_TRUE(frame_shown() && frame_shown());
  EXPECT_TRUE(refuses_records());
  click("FileStop");
  click("chart_angle");
  record("d/angles");
  world.run_for(20);
  file = lines("d/angles");
  EXPECT_TRUE(file[0].ends_with(",INPUT=V2,SYS=3P4W,,NO.=100 ,OPTION=D"));
  EXPECT_EQ(file[2].substr(22, 132), head + "      -1.1,      43.9,    -136.1,       0.0,");
}

TEST_F(Waves, WaveformsAreRecordedAsReceivedEveryFourSeconds) {
  open("open_waveform", worked_waveform());
  record();
  EXPECT_EQ(world.dialogs.message_texts(),
            Texts{"The minimum sampling time for recording waveform is 4 seconds"});
  EXPECT_EQ(text("Label1_1") + world.dialogs.file_questions[0].default_extension, "4 SEC.dat");
  world.run_for(41);
  const Texts file = lines();
  ASSERT_EQ(file.size(), 12u);
  EXPECT_EQ(file[0], "WAVE Hz=50 MD=15 SEC=2 CT=1 VT=1 INPUT=V1 SYS=3P4W, NO.=1024  OPTION=%");
  EXPECT_TRUE(file[1].starts_with("DATE, TIME 0 1 2 ") &&
              file[1].ends_with(" 1022 1023 OPTION RMS PEAK+ PEAK- HZ THD-F VI_1"));
  for (std::size_t k = 2; k < file.size(); ++k) {
    EXPECT_EQ(file[k].size(), 6221u) << "two samples have a sign";
    EXPECT_EQ(file[k].substr(0, 13) + file[k].substr(21, 28), "11/22/2026    B -00001 32767 -32768 00000");
    EXPECT_TRUE(file[k].ends_with(" 00000 O=    0R= 2301P= 3254N= 3199H=    1T=   32V= 2300 E"));
  }
  open("show_50_harmonics", worked_harmonics());
  world.run_for(10);
  EXPECT_EQ(lines().size(), file.size());
  EXPECT_TRUE(refuses_records());
}

TEST_F(Waves, ALanguageKeepsTheViewAndClosingHidesItUntilAResize) {
  meter.settings().harmonic_order = 0;
  start_on_port(1);
  for (const auto& [entry, shown, closing, described] :
       {std::tuple("show_99_angles", "11111111", "close_harmonics", "V1 的諧波相位角"),
        {"open_waveform", "10001101", "close_waveform", "V1 的波形"}}) {
    click(entry);
    ASSERT_TRUE(frame_shown());
    cursor_at(7);
    click("sel_language_1");
    ASSERT_TRUE(frame_shown());
    EXPECT_TRUE(chart().description.starts_with(described)) << chart().description;
    EXPECT_TRUE(screen().starts_with(shown)) << screen();
    EXPECT_EQ(window()["HScroll1"].value, 7) << "a status query leaves the cursor where the user put it";
    click("sel_language_0");
    click(closing);
    EXPECT_TRUE(closed());
    EXPECT_EQ(program().link.state.display_mode, power_view);
  }
  window().resized();
  EXPECT_EQ(screen(), "11111011 1010") << "the meter is still in its harmonics mode";
  EXPECT_EQ(window()["HScroll1"].value, 1);
  ASSERT_TRUE(frame_shown());
  meter.settings().mode = MeterMode::power;
  click("get_hz");
  EXPECT_TRUE(closed());
  world.run_for(1);
  EXPECT_EQ(text("status_link"), "linked");
}

}  // namespace
}  // namespace halden
