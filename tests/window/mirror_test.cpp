// Values of a window and the widgets that show them.

#include "screen/ui/mirror.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>

#include "screen/ui/design_area.h"

namespace halden {

namespace {

struct MirrorTest : testing::Test {
  MirrorTest() {
    for (const char* name : {"one", "two"}) window.add(name, {});
  }

  Window window{"Sample"};
  QWidget owner;
  Mirror mirror{window};
};

TEST_F(MirrorTest, LabelTakesTextTooltipAndStates) {
  QLabel label(&owner);
  mirror.tie("one", label);
  window["one"].text = "Störung 電表";
  window["one"].tooltip = "/dev/ttyUSB0";
  for (const bool on : {false, true}) {
    window["one"].visible = window["one"].enabled = on;
    mirror.show_changes();
    EXPECT_EQ(label.isHidden(), !on);
    EXPECT_EQ(label.isEnabled(), on);
  }
  EXPECT_EQ(label.text(), QStringLiteral("Störung 電表"));
  EXPECT_EQ(label.toolTip(), QStringLiteral("/dev/ttyUSB0"));
}

TEST_F(MirrorTest, TouchesWhatDiffersAndSaysWhenPlaceOrVisibilityChanged) {
  int one_shown = 0;
  int two_shown = 0;
  mirror.tie("one", [&one_shown](const Control&) { ++one_shown; });
  mirror.tie("two", [&two_shown](const Control&) { ++two_shown; });
  EXPECT_TRUE(mirror.show_changes());
  for (int time = 0; time < 2; ++time) {
    window["two"].text = "new";
    EXPECT_FALSE(mirror.show_changes());
  }
  EXPECT_EQ(one_shown, 1);
  EXPECT_EQ(two_shown, 2);
  window["one"].left = 15;
  EXPECT_TRUE(mirror.show_changes());
  window["one"].visible = false;
  EXPECT_TRUE(mirror.show_changes());
}

TEST_F(MirrorTest, TypedTextGoesBackAndStays) {
  QLineEdit box;
  mirror.tie_edit_box("one", box);
  window["one"].text = "100";
  mirror.show_changes();
  EXPECT_EQ(box.text(), QStringLiteral("100"));
  box.selectAll();
  for (const char digit : {'2', '5'}) {
    QKeyEvent key(QEvent::KeyPress, Qt::Key_2, Qt::NoModifier, QString(QLatin1Char(digit)));
    QCoreApplication::sendEvent(&box, &key);
  }
  EXPECT_EQ(window["one"].text, "25");
  box.setCursorPosition(1);
  window["two"].text = "another control";
  mirror.show_changes();
  EXPECT_EQ(box.text(), QStringLiteral("25"));
  EXPECT_EQ(box.cursorPosition(), 1);  // nobody wrote into the box while the user was in it
  window["one"].text = "30";
  mirror.show_changes();
  EXPECT_EQ(box.text(), QStringLiteral("30"));
}

TEST_F(MirrorTest, ScrollBarMovedByTheUserWritesBackAndTells) {
  QScrollBar bar;
  int moved = 0;
  mirror.tie("one", bar, [&moved] { ++moved; });
  Control& control = window["one"];
  control.minimum = 1;
  control.maximum = 51;
  control.value = 7;
  mirror.show_changes();
  EXPECT_EQ(bar.value(), 7);
  EXPECT_EQ(bar.maximum(), 51);
  EXPECT_EQ(moved, 0);  // no echo of what the logic wrote
  bar.triggerAction(QAbstractSlider::SliderSingleStepAdd);
  EXPECT_EQ(window["one"].value, 8);
  EXPECT_EQ(moved, 1);
}

TEST_F(MirrorTest, MarksFollowTheValues) {
  QAction action;
  QPushButton button;
  mirror.tie("one", action);
  mirror.tie("two", button);
  mirror.show_changes();
  EXPECT_FALSE(action.isCheckable());
  for (const bool checked : {true, false}) {
    window["one"].checked = window["two"].checked = checked;
    mirror.show_changes();
    EXPECT_EQ(action.isChecked(), checked);
    EXPECT_EQ(button.isChecked(), checked);
  }
}

TEST(DesignArea, StretchesAcrossAndDownIndependently) {
  Window window("Sample");
  window.add("one", {});
  Control& control = window["one"];
  control.left = 150;  // of 1500 across, 750 down
  control.top = 75;
  control.width = 300;
  control.height = 150;
  DesignArea area(window, 1500, 750);
  auto* const child = new QWidget(&area);
  area.put("one", *child);
  for (const auto& [size, place] :
       {std::pair(QSize(200, 50), QRect(20, 5, 40, 10)), std::pair(QSize(100, 200), QRect(10, 20, 20, 40))}) {
    area.resize(size);
    area.arrange();
    EXPECT_EQ(child->geometry(), place);
  }
}

}  // namespace

}  // namespace halden
