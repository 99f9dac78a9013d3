// Nothing is clipped: every text of the main window fits its place in both languages, for all wiring systems,
// from the smallest window to a very large one.

#include <QAbstractButton>
#include <QFontMetricsF>

#include "meter_rec_fixture.h"
#include "screen/captions.h"
#include "screen/panels.h"

namespace halden {

namespace {

struct FitTest : MeterRecTest {
  void fill_with_widest() {
    for (const DesignedControl& designed : main_window_design())
      if (!designed.widest.empty()) values[designed.name].text = designed.widest;
  }

  void show_language(std::int16_t language) {
    apply_captions(language, screen);
    values["PQA_mode"].text = language == chinese ? "諧波與波形" : "Harmo. and Waveform";
    values["power_system"].text = language == chinese ? "三相四線" : "3P4W";
    values["Label1_1"].text = "3600.0 SEC";
    values["Label1_3"].text = "12:30:44";
    values["Label1_5"].text = "2026-11-22";
    for (const char* hidden : {"hold", "Warning", "record_button"}) values[hidden].visible = true;
  }

  void expect_nothing_clipped(const std::string& where) {
    for (const DesignedControl& designed : main_window_design())
      if (designed.kind != ControlKind::menu_item && designed.kind != ControlKind::status)
        expect_fits(designed, where);
  }

  void expect_fits(const DesignedControl& designed, const std::string& where) {
    QWidget* const shown = widget(designed.name);
    ASSERT_NE(shown, nullptr) << designed.name;
    if (!shown->isVisible()) return;
    constexpr int button_frame = 14;  // line and padding on both sides
    const bool is_button = qobject_cast<QAbstractButton*>(shown) != nullptr;
    const QString text = shown->property("text").toString();
    const QFontMetricsF metrics(shown->font());
    EXPECT_LE(metrics.horizontalAdvance(text), shown->width() - (is_button ? button_frame : 0))
        << designed.name << where;
    EXPECT_LE(metrics.tightBoundingRect(text).height(), shown->height()) << designed.name << where;
  }

  int digits(std::string_view value) { return widget(value)->font().pixelSize(); }
};

TEST_F(FitTest, NoTextIsClippedAtAnySize) {
  fill_with_widest();
  for (const std::int16_t language : {english, chinese}) {
    show_language(language);
    for (const QSize size : {QSize(1024, 700), QSize(1280, 800), QSize(1024, 1400), QSize(3840, 2160)})
      for (int system = 0; system <= 3; ++system) {
        arrange_for_system(system, values, columns);
        resize(size.width(), size.height());
        expect_nothing_clipped(" in " + std::to_string(size.width()) + "x" + std::to_string(size.height()) +
                               " language " + std::to_string(language) + " system " + std::to_string(system));
      }
  }
}

TEST_F(FitTest, HarmonicsViewIsNotClipped) {
  fill_with_widest();
  show_language(chinese);
  for (const auto& panels : {harmonic_cursor_panels(), wave_summary_panels()})
    for (const Panel& panel : panels) values[panel.value].visible = values[panel.label].visible = true;
  values["Harmo_Graph1"].visible = true;
  resize(1024, 700);
  expect_nothing_clipped(" in the harmonics view");
}

TEST_F(FitTest, DigitsGrowWithTheWindowAndAreEquallyLargeInAGroup) {
  fill_with_widest();
  resize(1024, 700);
  const int small = digits("VAR1_value");
  EXPECT_GE(small, 14);
  for (const char* caption : {"V1_label", "Q1_label", "VUR_label", "Phase3_label", "system_label"})
    EXPECT_GE(digits(caption), 11) << caption;
  resize(2048, 1400);
  EXPECT_GE(digits("VAR1_value"), 2 * small - 2);
  for (int phase = 0; phase < phase_count; ++phase)
    for (const PhaseQuantity quantity : phase_quantities)
      EXPECT_EQ(digits(phase_panel(quantity, phase).value), digits("V12_value"));
  for (const Panel& panel : system_panels()) EXPECT_EQ(digits(panel.value), digits("W_sys_value"));
}

TEST_F(FitTest, ATextLongerThanExpectedShrinksAlone) {
  resize(1024, 700);
  const int usual = digits("W2_value");
  values["W1_value"].text = "-123456.789KW";
  rec.show_changes();
  EXPECT_LT(digits("W1_value"), usual);
  EXPECT_EQ(digits("W2_value"), usual);
  expect_nothing_clipped(" with a long text");
  values["W1_value"].text = "1.000KW";
  rec.show_changes();
  EXPECT_EQ(digits("W1_value"), usual);
}

}  // namespace

}  // namespace halden
