// The phasor window on the screen: what it shows, that it is clipped nowhere, and that what the user does
// reaches the logic.

#include <QAction>
#include <QCoreApplication>
#include <QPushButton>
#include <QShortcut>

#include "../platform/qt_events.h"
#include "form_fixture.h"
#include "live/phasors/phasor_form.h"
#include "live/phasors/ui/phasor_diagram.h"
#include "live/phasors/ui/phasor_form.h"

namespace halden {
namespace {

struct PhasorFormTest : FormTest {
  PhasorFormTest() : FormTest(make_phasor_form(), phasor_form_design()) {}
};

TEST_F(PhasorFormTest, ShowsItsValuesAndTellsWhatTheUserDoes) {
  for (const char* name : {"VUR_label", "VUR_value"}) values.set_visible(name, false);
  values.set_text("In_label", "In");
  values.set_text("v1_vector_label", "V1 < 230.1V, 0.0 >");
  values.apply_captions(Language::chinese);
  values.set_text(status_hint, "Print sent to PDF");
  form.show_changes();
  EXPECT_EQ(spoken(form, widget(status_hint)), "訊息: Print sent to PDF");
  EXPECT_EQ(nameless_in_focus(form), "");
  EXPECT_FALSE(widget("VUR_value")->parentWidget()->isVisible());
  EXPECT_EQ(widget("In_value")->accessibleName(), QStringLiteral("In"));
  EXPECT_EQ(widget("phasor_diagram")->accessibleDescription(), QStringLiteral("V1 < 230.1V, 0.0 >"));
  EXPECT_EQ(form.paper_image().deviceIndependentSize().toSize(), form.size());
  values.set_checked("v_only", true);
  form.show_changes();
  for (const PhasorButton& button : phasor_buttons()) static_cast<QPushButton*>(widget(button.name))->click();
  EXPECT_TRUE(static_cast<QPushButton*>(widget("v_only"))->isChecked()) << "a click alone marks nothing";
  form.findChild<QAction*>(QStringLiteral("print_phasor"))->trigger();
  EXPECT_EQ(clicks,
            (std::vector<std::string>{"v_only", "i_only", "vi_all", "vxy", "hide_vxy", "print_phasor"}));
  Q_EMIT form.findChild<QShortcut*>()->activated();  // Escape
  EXPECT_FALSE(form.close());
  EXPECT_EQ(closes, 2);
  EXPECT_TRUE(form.isVisible()) << "only the logic hides it";
  values.hide();
  form.show_changes();
  EXPECT_FALSE(form.isVisible());
}

TEST_F(PhasorFormTest, OldVectorsHaveNoPhaseColour) {
  values.set_place("V1_vector", {phasor_center_x, phasor_center_y, 1500, 0});
  const auto diagram = [this] {
    form.show_changes();
    return widget("phasor_diagram")->grab().toImage();
  };
  const QImage current = diagram();
  values.set_old(phasor_outer_circle, true);
  values.set_description(phasor_outer_circle, "not current");
  EXPECT_NE(diagram(), current);
  EXPECT_TRUE(widget("phasor_diagram")->accessibleDescription().startsWith(QStringLiteral("not current")));
  values.set_old(phasor_outer_circle, false);
  EXPECT_EQ(diagram(), current);
}

// A resistive load: the current of phase 1 points where its voltage does. The current of phase 2 stands 200
// units lower, most of a line's 280, and V31 beside them.
TEST_F(PhasorFormTest, ALabelBehindAnotherOneIsListedInTheCorner) {
  const auto put = [this](const char* label, float left, float top) {
    values.set_text(label, std::string(label, 2));
    const Place& now = values[label];
    values.set_place(label, {left, top, now.width, now.height});
  };
  put("v1_vector_label", 9530, 3560);
  put("i1_vector_label", 9530, 3600);
  put("i2_vector_label", 9530, 3760);
  put("V31_vector_label", 10080, 3560);
  form.show_changes();
  const auto* const diagram = static_cast<PhasorDiagram*>(widget("phasor_diagram"));
  std::string in_place, in_corner;
  for (const DiagramLabel& label : diagram->drawn_labels())
    (label.place.right() < diagram->width() / 10.0 ? in_corner : in_place) += from_qt(label.text) + " ";
  EXPECT_EQ(in_place, "v1 i2 V3 ");
  EXPECT_EQ(in_corner, "i1 ");
}

// Lines of line voltages ran through the labels, and other labels through the text of a near one.
TEST_F(PhasorFormTest, NoLineRunsThroughALabel) {
  const auto* const diagram = static_cast<PhasorDiagram*>(widget("phasor_diagram"));
  const auto text_of_label = [&](float line_y) {
    values.set_text("v1_vector_label", "V1 < 230.1V, 0.0 >");
    values.set_place("v1_vector_label", {9530, 3560, 2500, 280});
    values.set_place("v12_vector", {phasor_center_x, line_y, 5000, 0});
    form.show_changes();
    return widget("phasor_diagram")->grab(diagram->labels().front().place.toAlignedRect()).toImage();
  };
  const QImage clear = text_of_label(2000);
  EXPECT_EQ(text_of_label(3700), clear);
}

// The page is 12800 x 8400: in a window that is too wide the diagram is as high as the window lets it, and
// still 10320 x 6880.
TEST_F(PhasorFormTest, CirclesStayRound) {
  for (const QSize size : {QSize(2000, 700), QSize(800, 1400)}) {
    form.resize(size);
    QCoreApplication::sendPostedEvents();
    const QSize diagram = widget("phasor_diagram")->size();
    EXPECT_NEAR(diagram.width() / 10320.0, diagram.height() / 6880.0, 0.0005);
  }
  ASSERT_TRUE(run_events_until([this] { return resizes > 0; }));
}

TEST_F(PhasorFormTest, NoTextIsClippedAtAnySize) {
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
  for (const QSize size : {QSize(640, 440), QSize(1280, 720), QSize(700, 1400), QSize(3840, 2160)}) {
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
