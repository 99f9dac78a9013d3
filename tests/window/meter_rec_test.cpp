// The main window on the screen: every control is there, shows its values, and passes on what the user does.

#include <QAccessible>
#include <QApplication>
#include <QCloseEvent>
#include <QLineEdit>
#include <QMenu>
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

TEST_F(MeterRecTest, EveryDesignedControlHasItsWidget) {
  for (const DesignedControl& designed : main_window_design()) {
    if (designed.kind == ControlKind::menu_item)
      EXPECT_NE(action(designed.name), nullptr) << designed.name;
    else
      EXPECT_NE(widget(designed.name), nullptr) << designed.name;
  }
}

TEST_F(MeterRecTest, ValuesShowUnderTheirQuantity) {
  struct Case {
    const char* control;
    const char* text;
    const char* quantity;
  };
  const std::array cases = {
      Case{"V12_value", "398.4V", "V12"},        Case{"VAR1_value", "-0.571KVAR", "VAR1"},
      Case{"PF3_value", "  OL ", "PF3"},         Case{"Phase2_value", "-013.2", "Phase 2"},
      Case{"W_sys_value", "8.338KW", "W (SYS)"}, Case{"d0_v_value", "0.21%", "d0% (V, ZERO)"},
      Case{"RMS_value", "230.1V", "RMS"},        Case{"power_system", "3P4W", "System"},
      Case{"Label1_3", "12:30:44", "Time"},      Case{"ct_value", "100", "CT"},
  };
  for (const Case& wanted : cases) values[wanted.control].text = wanted.text;
  rec.show_changes();
  for (const Case& wanted : cases) {
    QAccessibleInterface* const reading = QAccessible::queryAccessibleInterface(widget(wanted.control));
    ASSERT_NE(reading, nullptr) << wanted.control;
    EXPECT_EQ(reading->text(QAccessible::Name), QLatin1String(wanted.quantity));
    EXPECT_EQ(reading->text(QAccessible::Value), QLatin1String(wanted.text)) << wanted.control;
  }
}

TEST_F(MeterRecTest, FrameOfAPanelIsVisibleWithItsValue) {
  QWidget* const value = widget("V2_value");
  EXPECT_TRUE(value->isVisible());
  arrange_for_system(2, values, columns);
  rec.show_changes();
  EXPECT_FALSE(value->isVisible());
  EXPECT_FALSE(value->parentWidget()->isVisible());
  EXPECT_FALSE(widget("V2_label")->isVisible());
  EXPECT_TRUE(widget("V23_value")->isVisible());
}

TEST_F(MeterRecTest, PanelsMoveWithTheirColumn) {
  const auto left_of = [this](const char* value) { return widget(value)->parentWidget()->geometry().left(); };
  const int second_column = left_of("V1_value");
  const int va_column = left_of("VA1_value");
  const int va_width = widget("VA1_value")->parentWidget()->width();
  arrange_for_system(0, values, columns);
  rec.show_changes();
  EXPECT_EQ(left_of("V1_value"), va_column);
  EXPECT_EQ(widget("V1_value")->parentWidget()->width(), va_width);
  arrange_for_system(3, values, columns);
  rec.show_changes();
  EXPECT_EQ(left_of("V1_value"), second_column);
}

TEST_F(MeterRecTest, ChartCoversThePowerPanelsWhileItIsShown) {
  const QWidget* const content = widget("V1_value")->parentWidget()->parentWidget();
  const QPoint on_panel = widget("V1_value")->parentWidget()->geometry().center();
  const QWidget* const panel = widget("V1_value")->parentWidget();
  EXPECT_TRUE(panel->isAncestorOf(content->childAt(on_panel)));
  values["Harmo_Graph1"].visible = true;
  for (const Panel& cursor : harmonic_cursor_panels())
    values[cursor.value].visible = values[cursor.label].visible = true;
  rec.show_changes();
  EXPECT_EQ(content->childAt(on_panel), widget("Harmo_Graph1"));
  const QWidget* const index = widget("har_index_value")->parentWidget();
  EXPECT_TRUE(index->isAncestorOf(content->childAt(index->geometry().center())));
  const QWidget* const unbalance = widget("d2_i_value")->parentWidget();
  EXPECT_EQ(content->childAt(unbalance->geometry().center())->objectName(),
            QStringLiteral("harmonics_backdrop"));
  for (const DesignedControl& designed : main_window_design()) {
    if (designed.kind != ControlKind::value || !values[designed.name].visible) continue;
    const QWidget* const covered = widget(designed.name)->parentWidget();
    const QWidget* const on_top = content->childAt(covered->geometry().topRight() + QPoint(-1, 5));
    const bool of_harmonics = designed.name.starts_with("har_");
    EXPECT_EQ(covered->isAncestorOf(on_top) || covered == on_top, of_harmonics) << designed.name;
  }
}

// Counts the windows that come to the screen.
class ShownWindows : public QObject {
 public:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Show && watched->isWidgetType() &&
        static_cast<QWidget*>(watched)->isWindow())
      ++count;
    return false;
  }
  int count = 0;
};

TEST_F(MeterRecTest, APictureForPaperIsLightAndOpensNoWindow) {
  ShownWindows shown;
  qApp->installEventFilter(&shown);
  const QImage paper = rec.paper_image();
  EXPECT_EQ(shown.count, 0);
  EXPECT_EQ(paper.deviceIndependentSize().toSize(), rec.size());
  EXPECT_EQ(paper.pixelColor(paper.width() - 4, paper.height() / 2).name(), QStringLiteral("#eef0f2"));
}

TEST_F(MeterRecTest, MenusAreTheTable) {
  for (const MenuEntry& entry : menu_entries()) {
    QAction* const shown = action(entry.name);
    ASSERT_NE(shown, nullptr) << entry.name;
    EXPECT_EQ(shown->text(), to_qt(entry.caption));
    EXPECT_EQ(shown->isEnabled(), entry.state == Entry::enabled) << entry.name;
    QWidget* const parent = entry.parent.empty() ? static_cast<QWidget*>(rec.menuBar())
                                                 : rec.findChild<QMenu*>(to_qt(entry.parent));
    ASSERT_NE(parent, nullptr) << entry.parent;
    EXPECT_TRUE(parent->actions().contains(shown)) << entry.name;
  }
  EXPECT_EQ(action("loggerPWR")->menu<QMenu*>(), nullptr);
  values["comm_port"].text = "COM 12";
  rec.show_changes();
  EXPECT_EQ(rec.findChild<QMenu*>(QStringLiteral("comm_port"))->title(), QStringLiteral("COM 12"));
}

TEST_F(MeterRecTest, ChosenEntryIsToldAndMarkedOnlyByTheValues) {
  values["port_number_3"].checked = true;
  rec.show_changes();
  action("port_number_3")->trigger();
  EXPECT_TRUE(action("port_number_3")->isChecked());
  action("port_number_12")->trigger();
  EXPECT_FALSE(action("port_number_12")->isChecked());
  EXPECT_EQ(clicks, (Clicks{"port_number_3", "port_number_12"}));
}

TEST_F(MeterRecTest, OpeningAMenuIsTold) {
  auto* const menu = rec.findChild<QMenu*>(QStringLiteral("comm_port"));
  menu->popup(QPoint(0, 0));
  menu->close();
  EXPECT_EQ(clicks, Clicks{"comm_port"});
}

TEST_F(MeterRecTest, ButtonsTellTheirName) {
  for (const char* name : {"get_hz", "reset_kwh", "Command3D1"})
    static_cast<QPushButton*>(widget(name))->click();
  static_cast<QPushButton*>(widget("set_ct"))->click();  // disabled
  EXPECT_EQ(clicks, (Clicks{"get_hz", "reset_kwh", "Command3D1"}));
}

TEST_F(MeterRecTest, KeysReachEverything) {
  const auto press = [this](const char* keys) {
    for (QShortcut* shortcut : rec.findChildren<QShortcut*>())
      if (shortcut->key() == QKeySequence(QLatin1String(keys))) Q_EMIT shortcut->activated();
  };
  press("F5");
  press("Ctrl+P");
  EXPECT_EQ(clicks, (Clicks{"get_hz", "Command3D1"}));
  EXPECT_EQ(action("quit")->shortcut(), QKeySequence(QStringLiteral("Ctrl+Q")));
  EXPECT_EQ(action("quit")->text(), QStringLiteral("E&xit"));
  press("F10");
  auto* const file = rec.findChild<QMenu*>(QStringLiteral("zmenu"));
  EXPECT_TRUE(file->isVisible());
  file->close();
  for (const char* button : {"phasor_button", "record_button", "Command3D1", "set_hz", "get_hz", "reset_kwh"})
    EXPECT_TRUE((widget(button)->focusPolicy() & Qt::TabFocus) != 0) << button;
  EXPECT_EQ(widget("W1_value")->focusPolicy(), Qt::ClickFocus);
}

TEST_F(MeterRecTest, DoubleClickOnTheSampleClockIsTold) {
  for (const char* label : {"Label1_0", "Label1_3"}) {
    QMouseEvent twice(QEvent::MouseButtonDblClick, QPointF(3, 3), widget(label)->mapToGlobal(QPointF(3, 3)),
                      Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(widget(label), &twice);
  }
  EXPECT_EQ(clicks, (Clicks{"Label1", "Label1"}));
}

TEST_F(MeterRecTest, TypedSettingsReachTheValues) {
  auto* const box = static_cast<QLineEdit*>(widget("ct_value"));
  QKeyEvent seven(QEvent::KeyPress, Qt::Key_7, Qt::NoModifier, QStringLiteral("7"));
  QCoreApplication::sendEvent(box, &seven);
  EXPECT_EQ(values["ct_value"].text, "7");
  auto* const reading = static_cast<QLineEdit*>(widget("W1_value"));
  QCoreApplication::sendEvent(reading, &seven);
  EXPECT_EQ(reading->text(), QString());
}

TEST_F(MeterRecTest, ClosingIsToldAndLeftToTheLogic) {
  EXPECT_FALSE(rec.close());
  EXPECT_TRUE(rec.isVisible());
  EXPECT_EQ(closes, 1);
}

TEST_F(MeterRecTest, ShowingAndASettledDragAreToldOnceEach) {
  ASSERT_TRUE(run_events_until([this] { return resizes == 1; }));
  for (int width = 1100; width < 1200; width += 20) resize(width, 760);
  EXPECT_EQ(resizes, 1);
  ASSERT_TRUE(run_events_until([this] { return resizes == 2; }));
  arrange_for_system(0, values, columns);
  rec.show_changes();
  run_events_for(400);  // neither our own re-arranging nor the end of the drag is told again
  EXPECT_EQ(resizes, 2);
}

TEST_F(MeterRecTest, ResizeWaitsUntilTheLogicIsFree) {
  busy = true;
  run_events_for(500);
  EXPECT_EQ(resizes, 0);
  busy = false;
  EXPECT_TRUE(run_events_until([this] { return resizes == 1; }));
}

}  // namespace

}  // namespace halden
