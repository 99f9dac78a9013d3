// Nothing is clipped: every text of the main window fits its place in both languages, for all wiring systems,
// from the smallest window to a very large one; so does every text of the phasor window.

#include <QAbstractButton>
#include <QFontMetricsF>

#include "form_fixture.h"
#include "live/phasors/phasor_form.h"
#include "live/phasors/ui/phasor_diagram.h"
#include "live/phasors/ui/phasor_form.h"
#include "screen/meter_rec/panels.h"

namespace halden {

namespace {

void expect_fits(const QWidget* shown, const std::string& where) {
  ASSERT_NE(shown, nullptr) << where;
  if (!shown->isVisible()) return;
  constexpr int button_frame = 14;  // line and padding on both sides
  const int frame = qobject_cast<const QAbstractButton*>(shown) != nullptr ? button_frame : 0;
  const QString text = shown->property("text").toString();
  const QFontMetricsF metrics(shown->font());
  EXPECT_LE(metrics.horizontalAdvance(text), shown->width() - frame) << where;
  EXPECT_LE(metrics.tightBoundingRect(text).height(), shown->height()) << where;
}

struct FitTest : MeterRecTest {
  void fill_with_widest() {
    for (const DesignedControl& designed : main_window_design())
      if (!designed.widest.empty()) values.set_text(designed.name, designed.widest);
  }

  void expect_nothing_clipped(const std::string& where) {
    for (const DesignedControl& designed : main_window_design())
      if (designed.kind != ControlKind::menu_item && designed.kind != ControlKind::status)
        expect_fits(widget(designed.name), designed.name + where);
  }

  int digits(std::string_view value) { return widget(value)->font().pixelSize(); }
};

TEST_F(FitTest, NoTextIsClippedAtAnySize) {
  fill_with_widest();
  for (const auto& panels : {harmonic_cursor_panels(), wave_summary_panels()})
    for (const Panel& panel : panels) {
      values.set_visible(panel.value, true);
      values.set_visible(panel.label, true);
    }
  for (const char* hidden : {"hold", "Warning", "record_button", "Harmo_Graph1"})
    values.set_visible(hidden, true);
  values.set_text("Label1_1", "3600.0 SEC");
  values.set_text("Label1_3", "12:30:44");
  values.set_text("Label1_5", "2026-11-22");
  for (const Language language : {Language::english, Language::chinese}) {
    values.apply_captions(language);
    values.set_text("PQA_mode", language == Language::chinese ? "諧波與波形" : "Harmo. and Waveform");
    values.set_text("power_system", language == Language::chinese ? "三相四線" : "3P4W");
    for (const QSize size : {QSize(1024, 700), QSize(1280, 800), QSize(1024, 1400), QSize(3840, 2160)})
      for (const Wiring system : {Wiring::w1p2w, Wiring::w1p3w, Wiring::w3p3w, Wiring::w3p4w}) {
        arrange_for_system(system, values, columns);
        resize(size.width(), size.height());
        expect_nothing_clipped(" in " + std::to_string(size.width()) + "x" + std::to_string(size.height()) +
                               " language " + std::to_string(static_cast<int>(language)) + " system " +
                               std::to_string(static_cast<int>(system)));
      }
  }
}

TEST_F(FitTest, PanelsStretchBothWaysAndDigitsGrowEquallyInAGroup) {
  fill_with_widest();
  resize(1024, 700);
  const QSize panel = widget("V12_value")->parentWidget()->size();
  const int small = digits("VAR1_value");
  EXPECT_GE(small, 14);
  for (const char* caption : {"V1_label", "Q1_label", "VUR_label", "Phase3_label", "system_label"})
    EXPECT_GE(digits(caption), 11) << caption;
  resize(1024, 1400);
  EXPECT_EQ(widget("V12_value")->parentWidget()->width(), panel.width());
  EXPECT_GT(widget("V12_value")->parentWidget()->height(), 2 * panel.height());
  resize(2048, 1400);
  EXPECT_GE(digits("VAR1_value"), 2 * small - 2);
  for (std::size_t phase = 0; phase < phase_count; ++phase)
    for (const PhaseQuantity quantity : phase_quantities)
      EXPECT_EQ(digits(phase_panel(quantity, phase).value), digits("V12_value"));
  for (const Panel& panel : system_panels()) EXPECT_EQ(digits(panel.value), digits("W_sys_value"));
}

TEST_F(FitTest, ATextLongerThanExpectedShrinksAlone) {
  resize(1024, 700);
  const int usual = digits("W2_value");
  values.set_text("W1_value", "-123456.789KW");
  form.show_changes();
  EXPECT_LT(digits("W1_value"), usual);
  EXPECT_EQ(digits("W2_value"), usual);
  expect_nothing_clipped(" with a long text");
  values.set_text("W1_value", "1.000KW");
  form.show_changes();
  EXPECT_EQ(digits("W1_value"), usual);
}

struct PhasorFit : FormTest {
  PhasorFit() : FormTest(make_phasor_form(), phasor_form_design()) {}
};

TEST_F(PhasorFit, NoTextIsClippedAtAnySize) {
  std::vector<std::string_view> names;
  for (const PhasorButton& button : phasor_buttons()) names.push_back(button.name);
  for (const PhasorPair& pair : phasor_pairs()) {
    names.insert(names.end(), {pair.caption_name, pair.value});
    values.set_text(pair.value, "-000.0");
  }
  for (const Panel& panel : phasor_panels()) {
    names.insert(names.end(), {panel.label, panel.value});
    values.set_text(panel.value, "000.0KV");
  }
  // Both ways a label can extend from the outermost ring, at the height of the origin.
  for (const PhasorVector& vector : phasor_vectors()) {
    Place label = values[vector.label];
    const bool leftward = vector.phase == 1;
    label.left = leftward ? 7480 - 2600 - label.width : 7480 + 2600;
    label.top = 3560;
    values.set_place(vector.label, label);
    values.set_text(vector.label, widest_vector_label);
    values.set_tag(vector.label, leftward ? right_end_tag : "");
  }
  form.show_changes();
  for (const QSize size : {QSize(800, 560), QSize(1280, 720), QSize(700, 1400), QSize(3840, 2160)}) {
    form.resize(size);
    QCoreApplication::sendPostedEvents();
    for (const std::string_view name : names)
      expect_fits(form.findChild<QWidget*>(to_qt(name)), std::string(name));
    const auto* const diagram = form.findChild<PhasorDiagram*>();
    for (const DiagramLabel& label : diagram->labels()) {
      EXPECT_TRUE(QRectF(diagram->rect()).contains(label.place)) << size.width();
      EXPECT_LE(QFontMetricsF(diagram->label_font()).horizontalAdvance(label.text), label.place.width());
    }
  }
}

}  // namespace

}  // namespace halden
