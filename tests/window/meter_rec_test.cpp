// The main window on the screen: every control is there, shows its values, and passes on what the user does.

#include <QAccessible>
#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPushButton>
#include <QShortcut>
#include <array>

#include "../platform/qt_events.h"
#include "meter_rec_fixture.h"
#include "screen/menus.h"
#include "screen/panels.h"

namespace halden {

namespace {

using Clicks = std::vector<std::string>;

TEST_F(MeterRecTest, ValuesShowUnderTheirQuantity) {
  const std::array<const char*, 3> rows[] = {{"V12_value", "398.4V", "V12"},
                                             {"PF3_value", "  OL ", "PF3"},
                                             {"Phase2_value", "-013.2", "Phase 2"},
                                             {"W_sys_value", "8.338KW", "W (SYS)"},
                                             {"d0_v_value", "0.21%", "d0% (V, ZERO)"},
                                             {"RMS_value", "230.1V", "RMS"},
                                             {"power_system", "3P4W", "System"},
                                             {"Label1_3", "12:30:44", "Time"},
                                             {"ct_value", "100", "CT"}};
  for (const auto& [control, text, quantity] : rows) values[control].text = text;
  rec.show_changes();
  for (const auto& [control, text, quantity] : rows) {
    QAccessibleInterface* const reading = QAccessible::queryAccessibleInterface(widget(control));
    EXPECT_EQ(reading->text(QAccessible::Name), QLatin1String(quantity));
    EXPECT_EQ(reading->text(QAccessible::Value), QLatin1String(text)) << control;
  }
}

TEST_F(MeterRecTest, PanelsMoveAndHideWithTheirColumn) {
  const auto place = [this](const char* value) { return widget(value)->parentWidget()->geometry(); };
  const int second_column = place("V1_value").left();
  const QRect va_column = place("VA1_value");
  arrange_for_system(0, values, columns);
  rec.show_changes();
  EXPECT_EQ(place("V1_value").left(), va_column.left());
  EXPECT_EQ(place("V1_value").width(), va_column.width());
  EXPECT_FALSE(widget("V2_value")->parentWidget()->isVisible());
  EXPECT_FALSE(widget("V2_label")->isVisible());
  arrange_for_system(3, values, columns);
  rec.show_changes();
  EXPECT_EQ(place("V1_value").left(), second_column);
  EXPECT_TRUE(widget("V2_value")->isVisible());
}

TEST_F(MeterRecTest, ChartCoversThePowerPanelsWhileItIsShown) {
  const QWidget* const content = widget("V1_value")->parentWidget()->parentWidget();
  const auto expect_on_top = [&](auto expected) {
    for (const DesignedControl& designed : main_window_design()) {
      if (designed.kind != ControlKind::value || !values[designed.name].visible) continue;
      const QWidget* const panel = widget(designed.name)->parentWidget();
      const QWidget* const on_top = content->childAt(panel->geometry().topRight() + QPoint(-1, 5));
      EXPECT_EQ(panel->isAncestorOf(on_top) || panel == on_top, expected(designed.name)) << designed.name;
    }
  };
  expect_on_top([](std::string_view) { return true; });
  values["Harmo_Graph1"].visible = true;
  for (const Panel& cursor : harmonic_cursor_panels())
    values[cursor.value].visible = values[cursor.label].visible = true;
  rec.show_changes();
  expect_on_top([](std::string_view name) { return name.starts_with("har_"); });
  const QPoint on_panel = widget("V1_value")->parentWidget()->geometry().center();
  EXPECT_EQ(content->childAt(on_panel), widget("Harmo_Graph1"));
}

// Counts the windows that come to the screen.
class ShownWindows : public QObject {
 public:
  bool eventFilter(QObject* watched, QEvent* event) override {
    count += event->type() == QEvent::Show && watched->isWidgetType() &&
             static_cast<QWidget*>(watched)->isWindow();
    return false;
  }
  int count = 0;
};

TEST_F(MeterRecTest, APictureForPaperOpensNoWindow) {
  ShownWindows shown;
  qApp->installEventFilter(&shown);
  EXPECT_EQ(rec.paper_image().deviceIndependentSize().toSize(), rec.size());
  EXPECT_EQ(shown.count, 0);
}

TEST_F(MeterRecTest, MenusAreTheTable) {
  for (const MenuEntry& entry : menu_entries()) {
    QAction* const shown = action(entry.name);
    ASSERT_NE(shown, nullptr) << entry.name;
    EXPECT_EQ(shown->text(), to_qt(entry.caption));
    EXPECT_EQ(shown->isEnabled(), entry.state == Entry::enabled) << entry.name;
    QWidget* const parent = entry.parent.empty() ? static_cast<QWidget*>(rec.menuBar()) : menu(entry.parent);
    ASSERT_NE(parent, nullptr) << entry.parent;
    EXPECT_TRUE(parent->actions().contains(shown)) << entry.name;
  }
  EXPECT_EQ(action("loggerPWR")->menu<QMenu*>(), nullptr);
  values["comm_port"].text = "COM 12";
  rec.show_changes();
  EXPECT_EQ(menu("comm_port")->title(), QStringLiteral("COM 12"));
}

TEST_F(MeterRecTest, WhatTheUserDoesIsToldAndLeftToTheLogic) {
  values["port_number_3"].checked = true;
  values["set_ct"].enabled = false;
  rec.show_changes();
  for (const char* entry : {"port_number_3", "port_number_12"}) action(entry)->trigger();
  EXPECT_TRUE(action("port_number_3")->isChecked());
  EXPECT_FALSE(action("port_number_12")->isChecked());
  menu("comm_port")->popup(QPoint(0, 0));
  menu("comm_port")->close();
  for (const char* name : {"get_hz", "set_ct", "Command3D1"})  // the second is disabled
    static_cast<QPushButton*>(widget(name))->click();
  for (const char* label : {"Label1_0", "Label1_3"}) {
    QMouseEvent twice(QEvent::MouseButtonDblClick, QPointF(3, 3), widget(label)->mapToGlobal(QPointF(3, 3)),
                      Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(widget(label), &twice);
  }
  EXPECT_EQ(clicks, (Clicks{"port_number_3", "port_number_12", "comm_port", "get_hz", "Command3D1",
                            "Label1_0", "Label1_3"}));
  EXPECT_FALSE(rec.close());
  EXPECT_TRUE(rec.isVisible());
  EXPECT_EQ(closes, 1);
}

TEST_F(MeterRecTest, KeysReachEverything) {
  for (const char* keys : {"F5", "Ctrl+P", "F10"})
    for (QShortcut* shortcut : rec.findChildren<QShortcut*>())
      if (shortcut->key() == QKeySequence(QLatin1String(keys))) Q_EMIT shortcut->activated();
  EXPECT_EQ(clicks, (Clicks{"get_hz", "Command3D1", "zmenu"}));
  EXPECT_TRUE(menu("zmenu")->isVisible());
  menu("zmenu")->close();
  EXPECT_EQ(action("quit")->shortcut(), QKeySequence(QStringLiteral("Ctrl+Q")));
  EXPECT_EQ(action("quit")->text(), QStringLiteral("E&xit"));
  for (const char* button : {"phasor_button", "record_button", "Command3D1", "set_hz", "get_hz", "reset_kwh"})
    EXPECT_TRUE((widget(button)->focusPolicy() & Qt::TabFocus) != 0) << button;
  EXPECT_EQ(widget("W1_value")->focusPolicy(), Qt::ClickFocus);
}

TEST_F(MeterRecTest, OnlySettingsCanBeTypedAndEnterSendsThemButNotDuringALongWait) {
  const auto press = [this](const char* field, int key, const QString& text = {}) {
    QKeyEvent pressed(QEvent::KeyPress, key, Qt::NoModifier, text);
    QCoreApplication::sendEvent(widget(field), &pressed);
  };
  for (const char* field : {"pt_value", "W1_value"})
    for (const char digit : std::string("123456789012")) press(field, digit, QString(QLatin1Char(digit)));
  EXPECT_EQ(static_cast<QLineEdit*>(widget("W1_value"))->text(), QString());
  EXPECT_EQ(values["pt_value"].text, "1234567890") << "each further character would hold the program up";
  rec.refuse_typing();
  for (const int key : {Qt::Key_Backspace, Qt::Key_Return}) press("pt_value", key);
  EXPECT_EQ(values["pt_value"].text, "1234567890");
  EXPECT_EQ(clicks, Clicks{});
  rec.take_typing();
  for (const int key : {Qt::Key_Backspace, Qt::Key_Return}) press("pt_value", key);
  EXPECT_EQ(values["pt_value"].text, "123456789");
  EXPECT_EQ(clicks, Clicks{"set_pt"});
}

TEST_F(MeterRecTest, ShowingAndASettledDragAreToldOnceEachWhenTheLogicIsFree) {
  busy = true;
  run_events_for(500);
  EXPECT_EQ(resizes, 0);
  busy = false;
  ASSERT_TRUE(run_events_until([this] { return resizes == 1; }));
  for (int width = 1100; width < 1200; width += 20) resize(width, 760);
  EXPECT_EQ(resizes, 1);
  ASSERT_TRUE(run_events_until([this] { return resizes == 2; }));
  arrange_for_system(0, values, columns);
  rec.show_changes();
  run_events_for(400);  // neither our own re-arranging nor the end of the drag is told again
  EXPECT_EQ(resizes, 2);
}

}  // namespace

}  // namespace halden
