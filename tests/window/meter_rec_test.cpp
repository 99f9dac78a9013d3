// The main window on the screen: every control is there, shows its values, and passes on what the user does.

#include <QAccessible>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPushButton>
#include <QScrollBar>
#include <QShortcut>
#include <array>

#include "../platform/qt_events.h"
#include "form_fixture.h"
#include "screen/meter_rec/panels.h"

namespace halden {

namespace {

using Clicks = std::vector<std::string>;

TEST_F(MeterRecTest, ValuesShowUnderTheirQuantity) {
  const std::array<const char*, 3> rows[] = {
      {"V12_value", "398.4V", "線電壓"},     {"PF3_value", "  OL ", "PF3"},
      {"W_sys_value", "8.338KW", "W (SYS)"}, {"d0_v_value", "0.21%", "d0% (V, ZERO)"},
      {"RMS_value", "230.1V", "RMS"},        {"power_system", "三相四線", "System"},
      {"Label1_3", "12:30:44", "Time"},      {"ct_value", "100", "CT"}};
  values.set_text("V12_label", "線電壓");
  for (const auto& [control, text, quantity] : rows) values.set_text(control, text);
  form.show_changes();
  for (const auto& [control, text, quantity] : rows) {
    QAccessibleInterface* const reading = QAccessible::queryAccessibleInterface(widget(control));
    EXPECT_EQ(from_qt(reading->text(QAccessible::Name)), quantity);
    EXPECT_EQ(from_qt(reading->text(QAccessible::Value)), text) << control;
  }
  EXPECT_EQ(widget("V12_label")->property("text"), QStringLiteral("線電壓"));
}

TEST_F(MeterRecTest, PanelsMoveAndHideWithTheirColumn) {
  const auto place = [this](const char* value) { return widget(value)->parentWidget()->geometry(); };
  const QRect designed = place("V1_value");
  const QRect va_column = place("VA1_value");
  arrange_for_system(Wiring::w1p2w, values, columns);
  form.show_changes();
  EXPECT_EQ(place("V1_value"), va_column);
  EXPECT_FALSE(widget("V2_value")->parentWidget()->isVisible());
  arrange_for_system(Wiring::w3p4w, values, columns);
  form.show_changes();
  EXPECT_EQ(place("V1_value"), designed);
  EXPECT_TRUE(widget("V2_value")->isVisible());
}

TEST_F(MeterRecTest, ChartCoversThePowerPanelsWhileItIsShown) {
  const QWidget* const content = widget("V1_value")->parentWidget()->parentWidget();
  const auto is_on_top = [&](const std::string& value) {
    const QWidget* const panel = widget(value)->parentWidget();
    const QWidget* const on_top = content->childAt(panel->geometry().topRight() + QPoint(-1, 5));
    return panel->isAncestorOf(on_top) || panel == on_top;
  };
  for (const bool chart : {false, true}) {
    values.set_visible("Harmo_Graph1", chart);
    for (const Panel& cursor : harmonic_cursor_panels())
      for (const std::string& name : {cursor.value, cursor.label}) values.set_visible(name, chart);
    form.show_changes();
    for (const DesignedControl& designed : main_window_design()) {
      if (designed.kind != ControlKind::value || !values[designed.name].visible) continue;
      EXPECT_EQ(is_on_top(designed.name), !chart || designed.name.starts_with("har_")) << designed.name;
    }
  }
  const QPoint on_panel = widget("V1_value")->parentWidget()->geometry().center();
  EXPECT_EQ(content->childAt(on_panel), widget("Harmo_Graph1"));
}

// Entries that cannot be chosen stand in brackets.
TEST_F(MeterRecTest, MenusShowTheirEntries) {
  values.set_text("comm_port", "COM 12");
  values.set_tooltip("port_number_16", "/dev/rfcomm3");
  form.show_changes();
  const auto entries = [](const QWidget& menu) {
    std::string all;
    for (const QAction* entry : menu.actions())
      all += entry->isEnabled() ? from_qt(entry->text()) + " " : "(" + from_qt(entry->text()) + ") ";
    return all;
  };
  EXPECT_EQ(entries(*form.menuBar()), "File Harmonics Waveform (Datalogger) Option &Help ");
  EXPECT_EQ(entries(*menu("zmenu")),
            "&Create Data File (&Start Recording) (&End Recording) (&View File) (&Plot Power Data) "
            "(Plot &Harmonics) (Plot &Waveform) (Plot &Hardcopy) E&xit ");
  EXPECT_EQ(entries(*menu("Option_Menu")), "&Sample Rate COM 12 Baud Rate (9600) Language ");
  EXPECT_EQ(menu("comm_port")->actions().back()->toolTip(), QStringLiteral("/dev/rfcomm3"));
  EXPECT_TRUE(menu("comm_port")->toolTipsVisible());
}

TEST_F(MeterRecTest, WhatTheUserDoesIsToldAndLeftToTheLogic) {
  values.set_checked("port_number_3", true);
  values.set_enabled("set_ct", false);
  values.set_range("HScroll1", 0, 51);
  values.set_value("HScroll1", 7);
  form.show_changes();
  for (const char* entry : {"port_number_3", "port_number_12"}) action(entry)->trigger();
  EXPECT_TRUE(action("port_number_3")->isChecked());
  EXPECT_FALSE(action("port_number_12")->isChecked());
  values.set_checked("port_number_3", false);
  form.show_changes();
  EXPECT_FALSE(action("port_number_3")->isChecked());
  menu("comm_port")->popup(QPoint(0, 0));
  menu("comm_port")->close();
  for (const char* name : {"get_hz", "set_ct", "Command3D1"})  // the second is disabled
    static_cast<QPushButton*>(widget(name))->click();
  for (const char* label : {"Label1_0", "Label1_3"}) {
    QMouseEvent twice(QEvent::MouseButtonDblClick, QPointF(3, 3), widget(label)->mapToGlobal(QPointF(3, 3)),
                      Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(widget(label), &twice);
  }
  auto* const bar = static_cast<QScrollBar*>(widget("HScroll1"));
  bar->triggerAction(QAbstractSlider::SliderSingleStepAdd);
  EXPECT_EQ(values["HScroll1"].value, 8);
  bar->triggerAction(QAbstractSlider::SliderToMaximum);
  EXPECT_EQ(values["HScroll1"].value, 51);
  EXPECT_EQ(clicks, (Clicks{"port_number_3", "port_number_12", "comm_port", "get_hz", "Command3D1",
                            "Label1_0", "Label1_3"}));
  EXPECT_EQ(changes, (Clicks{"HScroll1", "HScroll1"}));
  EXPECT_FALSE(form.close());
  EXPECT_TRUE(form.isVisible());
  EXPECT_EQ(closes, 1);
}

TEST_F(MeterRecTest, KeysReachEverything) {
  for (const char* keys : {"F5", "Ctrl+P", "F10"})
    for (QShortcut* shortcut : form.findChildren<QShortcut*>())
      if (shortcut->key() == QKeySequence(QLatin1String(keys))) Q_EMIT shortcut->activated();
  EXPECT_EQ(clicks, (Clicks{"get_hz", "Command3D1", "zmenu"}));
  EXPECT_TRUE(menu("zmenu")->isVisible());
  menu("zmenu")->close();
  EXPECT_EQ(action("quit")->shortcut(), QKeySequence(QStringLiteral("Ctrl+Q")));
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
  auto* const box = static_cast<QLineEdit*>(widget("pt_value"));
  EXPECT_EQ(static_cast<QLineEdit*>(widget("W1_value"))->text(), QString());
  EXPECT_EQ(values["pt_value"].text, "1234567890") << "each further character would hold the program up";
  form.set_typing(Typing::refused);
  for (const int key : {Qt::Key_Backspace, Qt::Key_Return}) press("pt_value", key);
  EXPECT_EQ(values["pt_value"].text, "1234567890");
  EXPECT_EQ(clicks, Clicks{});
  form.set_typing(Typing::taken);
  box->setCursorPosition(1);
  values.set_text("ct_value", "40");
  form.show_changes();  // nothing is written into the box while the user is in it
  for (const int key : {Qt::Key_Backspace, Qt::Key_Return}) press("pt_value", key);
  EXPECT_EQ(values["pt_value"].text, "234567890");
  EXPECT_EQ(clicks, Clicks{"set_pt"});
  values.set_text("pt_value", "7");
  form.show_changes();
  EXPECT_EQ(box->text(), QStringLiteral("7"));
}

TEST_F(MeterRecTest, ShowingAndASettledDragAreToldOnceEachWhenTheLogicIsFree) {
  input.is_busy = true;
  run_events_for(500);
  EXPECT_EQ(resizes, 0);
  input.is_busy = false;
  ASSERT_TRUE(run_events_until([this] { return resizes == 1; }));
  for (int width = 1100; width < 1200; width += 20) resize(width, 760);
  EXPECT_EQ(resizes, 1);
  ASSERT_TRUE(run_events_until([this] { return resizes == 2; }));
  arrange_for_system(Wiring::w1p2w, values, columns);
  form.show_changes();
  run_events_for(400);  // neither our own re-arranging nor the end of the drag is told again
  EXPECT_EQ(resizes, 2);
}

TEST(Mirror, TouchesWhatDiffersAndSaysWhenPlaceOrVisibilityChanged) {
  Window window("Sample");
  Mirror mirror(window);
  std::string shown;
  for (const char* name : {"one", "two"}) {
    window.add(name, {});
    mirror.tie(name, [&shown, name](const Control&) { shown += std::string(name) + " "; });
  }
  EXPECT_TRUE(mirror.show_changes());
  for (int time = 0; time < 2; ++time) {
    window.set_text("two", "new");
    EXPECT_FALSE(mirror.show_changes());
  }
  EXPECT_EQ(shown, "one two two ");
  window.set_place("one", {15, 0, 0, 0});
  EXPECT_TRUE(mirror.show_changes());
  window.set_visible("one", false);
  EXPECT_TRUE(mirror.show_changes());
}

}  // namespace

}  // namespace halden
