// The main window on the screen, with its notice, status line and colours: every control shows its values,
// passes on what the user does, and is clipped nowhere.

#include <QApplication>
#include <QDialogButtonBox>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenuBar>
#include <QMouseEvent>
#include <QProgressBar>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QShortcut>
#include <algorithm>
#include <array>
#include <cmath>

#include "../platform/qt_events.h"
#include "app/ui/box_language.h"
#include "app/ui/demo_panel.h"
#include "app/ui/desktop_program.h"
#include "app/ui/meter_rec.h"
#include "app/ui/notice_window.h"
#include "app/ui/recording_mark.h"
#include "app/ui/status_row.h"
#include "form_fixture.h"
#include "platform/virtual/virtual_world.h"
#include "screen/meter_rec/columns.h"
#include "screen/meter_rec/main_window.h"
#include "screen/meter_rec/menus.h"
#include "screen/meter_rec/panels.h"
#include "screen/ui/elided_label.h"
#include "screen/ui/menu_corner.h"
#include "screen/windows.h"
#include "simulator/simulated_port.h"

namespace halden {
namespace {

using Clicks = std::vector<std::string>;

struct MeterRecTest : FormTest {
  MeterRecTest() : FormTest(make_main_window(), meter_rec_design()) {}

  void fill_with_widest() {
    for (const DesignedControl& designed : main_window_design())
      if (!designed.widest.empty()) values.set_text(designed.name, designed.widest);
  }

  void expect_nothing_clipped() {
    for (const DesignedControl& designed : main_window_design())
      if (designed.kind != ControlKind::menu_item && designed.kind != ControlKind::status)
        expect_fits(widget(designed.name), designed.name);
  }

  int digits(std::string_view value) { return widget(value)->font().pixelSize(); }

  const LabelColumns columns = read_label_columns(values);
};

TEST_F(MeterRecTest, ValuesShowUnderTheirQuantity) {
  const std::array<const char*, 3> rows[] = {{"V12_value", "398.4V", "線電壓"},
                                             {"d0_v_value", "0.21%", "d0% (V, ZERO)"},
                                             {"RMS_value", "230.1V", "RMS"},
                                             {"power_system", "三相四線", "System"},
                                             {"Label1_3", "12:30:44", "Time"},
                                             {"ct_value", "100", "CT, ratio of the current transformers"},
                                             {"PQA_mode", "Power Mode", "Mode of the meter"}};
  values.apply_captions(Language::english);
  values.set_text("V12_label", "線電壓");
  for (const auto& [control, text, quantity] : rows) values.set_text(control, text);
  form.show_changes();
  for (const auto& [control, text, quantity] : rows) {
    QAccessibleInterface* const reading = QAccessible::queryAccessibleInterface(widget(control));
    EXPECT_EQ(from_qt(reading->text(QAccessible::Name)), quantity);
    EXPECT_EQ(from_qt(reading->text(QAccessible::Value)), text) << control;
  }
  EXPECT_EQ(widget("V12_label")->property("text"), QStringLiteral("線電壓"));
  EXPECT_EQ(widget("set_ct")->accessibleName(), QStringLiteral("Send CT")) << "the box was called CT as well";
  EXPECT_EQ(nameless_in_focus(form), "");
  EXPECT_EQ(form.focusWidget(), &form) << "a container without a name had the focus at the start";
}

// The mark was in the corner of the menu bar, where assistive technology finds nothing.
TEST_F(MeterRecTest, TheRecordingMarkIsFoundInsideTheWindowAndHasNoColourOfAPhase) {
  Window said = make_notice_window();
  said.apply_captions(Language::english);
  auto* const mark = new RecordingMark(said, theme(Look::light));
  new MenuCorner(form, *mark);
  said.set_text("Text1", "Recording (12:30:44)");
  said.show();
  mark->show_changes();
  QCoreApplication::processEvents();
  EXPECT_EQ(spoken(form, mark), "Recording: Recording (12:30:44)");
  EXPECT_TRUE(form.menuBar()->geometry().contains(mark->geometry().center()));
  const QImage picture = mark->grab().toImage();
  EXPECT_EQ(picture.pixelColor(9, picture.height() / 2), theme(Look::light).warning);
}

TEST_F(MeterRecTest, PanelsMoveAndHideWithTheirColumn) {
  const auto place = [this](const char* value) { return widget(value)->parentWidget()->geometry(); };
  const QRect designed = place("V1_value");
  const QRect whole_row = designed | place("V12_value") | place("Phase1_value");
  arrange_for_system(Wiring::w1p2w, values, columns);
  form.show_changes();
  EXPECT_EQ(place("V1_value") | place("Phase1_value"), whole_row);
  EXPECT_GT(place("V1_value").width(), 2 * designed.width());
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
  values.set_tag("port_number_16", present_tag);
  form.show_changes();
  const auto entries = [](const QWidget& menu) {
    std::string all;
    for (const QAction* entry : menu.actions())
      all += entry->isEnabled() ? from_qt(entry->text()) + " " : "(" + from_qt(entry->text()) + ") ";
    return all;
  };
  EXPECT_EQ(entries(*form.menuBar()), "File Harmonics Waveform Datalogger Option &Help ");
  EXPECT_EQ(entries(*menu("zmenu")),
            "&Create Data File (&Start Recording) (&End Recording) &View File &Plot Power Data "
            "Plot &Harmonics Plot &Waveform Plot &Hardcopy Export as &Numbers... (&Recent Files) E&xit ");
  EXPECT_EQ(entries(*menu("Option_Menu")), "&Sample Rate COM 12 Baud Rate (9600) Language ");
  EXPECT_EQ(menu("comm_port")->actions().back()->toolTip(), QStringLiteral("/dev/rfcomm3"));
  EXPECT_TRUE(menu("comm_port")->toolTipsVisible());
  EXPECT_FALSE(action("port_number_16")->icon().isNull());
  EXPECT_TRUE(action("port_number_15")->icon().isNull());
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

TEST_F(MeterRecTest, NoTextIsClippedAtAnySize) {
  fill_with_widest();
  for (const auto& panels : {harmonic_cursor_panels(), wave_summary_panels()})
    for (const Panel& panel : panels) {
      values.set_visible(panel.value, true);
      values.set_visible(panel.label, true);
    }
  for (const char* hidden : {"hold", "Warning", "record_button", "Harmo_Graph1"})
    values.set_visible(hidden, true);
  for (const auto& [label, widest] :
       {std::pair("Label1_1", "3600.0 SEC"), {"Label1_3", "12:30:44"}, {"Label1_5", "2026-11-22"}})
    values.set_text(label, widest);
  for (const Language language : {Language::english, Language::chinese}) {
    values.apply_captions(language);
    values.set_text("PQA_mode", language == Language::chinese ? "諧波與波形" : "Harmo. and Waveform");
    values.set_text("power_system", language == Language::chinese ? "三相四線" : "3P4W");
    for (const QSize size :
         {QSize(640, 440), QSize(1024, 700), QSize(1280, 800), QSize(1024, 1400), QSize(3840, 2160)})
      for (const Wiring system : {Wiring::w1p2w, Wiring::w1p3w, Wiring::w3p3w, Wiring::w3p4w}) {
        arrange_for_system(system, values, columns);
        resize(size.width(), size.height());
        SCOPED_TRACE(testing::Message()
                     << size.width() << "x" << size.height() << " language " << static_cast<int>(language)
                     << " system " << static_cast<int>(system));
        expect_nothing_clipped();
      }
  }
}

TEST_F(MeterRecTest, PanelsStretchBothWaysAndDigitsGrowEquallyInAGroup) {
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
  for (std::size_t phase = 0; phase < phase_count; ++phase) {
    EXPECT_EQ(digits(line_panel(phase).value), digits("PF1_value"));
    EXPECT_EQ(digits(phase_panel(PhaseQuantity::W, phase).value), digits("VAR1_value"));
  }
  EXPECT_LE(digits("VUR_value"), digits("VAR1_value"));
  for (const Panel& panel : system_panels()) EXPECT_EQ(digits(panel.value), digits("W_sys_value"));
  const int large = digits("W_sys_value");
  for (const bool old : {true, false}) {
    values.set_old("W_sys_value", old);
    form.show_changes();
    QCoreApplication::processEvents();
    EXPECT_EQ(digits("W_sys_value"), large) << "an old reading keeps its size";
  }
}

// Digits, without the unit, of 24 pixels can be read from two metres.
TEST_F(MeterRecTest, DigitsAreHighEnoughToReadFromAfar) {
  fill_with_widest();
  resize(1280, 800);
  for (const char* value :
       {"V12_value", "I2_value", "VAR3_value", "PF1_value", "Phase3_value", "W_sys_value"})
    EXPECT_GE(QFontMetricsF(widget(value)->font()).capHeight(), 24) << value;
}

TEST_F(MeterRecTest, ATextLongerThanExpectedShrinksAlone) {
  resize(1024, 700);
  const int usual = digits("W2_value");
  values.set_text("W1_value", "-123456.789KW");
  form.show_changes();
  EXPECT_LT(digits("W1_value"), usual);
  EXPECT_EQ(digits("W2_value"), usual);
  expect_nothing_clipped();
  values.set_text("W1_value", "1.000KW");
  form.show_changes();
  EXPECT_EQ(digits("W1_value"), usual);
}

TEST_F(MeterRecTest, NoticeSaysWhatTheValuesSayAndLeavesTheUserAlone) {
  Window said = make_notice_window();
  NoticeWindow notice(said, form, Look::light);
  notice.show_changes();
  EXPECT_FALSE(notice.isVisible());
  said.set_caption("Status");
  said.set_text("Text1", "Working");
  said.set_text(notice_port, "COM 3, /dev/ttyUSB2");
  said.set_range(notice_progress, 0, 100);
  said.set_value(notice_progress, 38);
  said.show();
  notice.show_changes();
  EXPECT_EQ(notice.windowTitle(), QStringLiteral("Status"));
  EXPECT_EQ(notice.findChild<QLineEdit*>(QStringLiteral("Text1"))->text(), QStringLiteral("Working"));
  EXPECT_EQ(notice.findChild<QLabel*>(to_qt(notice_port))->text(), QStringLiteral("COM 3, /dev/ttyUSB2"));
  EXPECT_EQ(notice.findChild<QProgressBar*>()->value(), 38);
  EXPECT_TRUE(form.geometry().contains(notice.geometry()));
  EXPECT_FALSE(notice.close());
  EXPECT_TRUE(notice.isVisible());
  said.hide();
  notice.show_changes();
  EXPECT_FALSE(notice.isVisible());
}

TEST_F(MeterRecTest, ALongHintInTheStatusLineDoesNotWidenTheWindow) {
  const std::string text(400, 'x');
  values.set_text("status_hint", text);
  form.show_changes();
  EXPECT_LE(form.minimumSizeHint().width(), 1024);
  QWidget* const hint = widget("status_hint");
  QHelpEvent hover(QEvent::ToolTip, QPoint(2, 2), hint->mapToGlobal(QPoint(2, 2)));
  QCoreApplication::sendEvent(hint, &hover);
  EXPECT_EQ(hint->toolTip(), to_qt(text));
}

// Which pixels are marked at all, whatever their colour.
QImage shape_of(const char* tag) {
  LinkLight light(theme(Look::light));
  light.set_mark(link_mark(tag));
  QImage image(light.size(), QImage::Format_ARGB32);
  image.fill(Qt::transparent);
  light.render(&image, QPoint(), QRegion(), QWidget::RenderFlags());
  return image.createAlphaMask().convertToFormat(QImage::Format_Grayscale8);
}

TEST(LinkLight, StatesDifferInShape) {
  const std::array tags = {"ok", "idle", "lost"};
  for (const char* one : tags)
    for (const char* other : tags) EXPECT_EQ(shape_of(one) == shape_of(other), one == other) << one << other;
}

// The colours of the window, the bar at the left edge of a panel, and the panel.
std::array<QString, 3> colours(const QImage& window, const QWidget& panel, const QWidget& top) {
  const QPoint left = panel.mapTo(&top, QPoint(2, panel.height() / 2));
  return {window.pixelColor(3, window.height() / 2).name(), window.pixelColor(left).name(),
          window.pixelColor(left + QPoint(panel.width() / 2, 0)).name()};
}

TEST(Colours, PanelsFollowTheLookAndPaperIsWhiteWithoutMenusAndStatusLine) {
  const std::array dark = {QStringLiteral("#14171a"), QStringLiteral("#4cd3a2"), QStringLiteral("#1d2126")};
  const std::array light = {QStringLiteral("#eef0f2"), QStringLiteral("#047857"), QStringLiteral("#ffffff")};
  const std::array white = {QStringLiteral("#ffffff"), light[1], light[2]};
  for (const Look look : {Look::dark, Look::light}) {
    apply_to_application(look);
    Window values = make_main_window();
    values.show();
    DirectInput input;
    FormWindow form(values, input, meter_rec_design(), look);
    form.show_changes();
    const QWidget* const panel = form.findChild<QWidget*>(QStringLiteral("V2_value"))->parentWidget();
    const auto& shown = look == Look::dark ? dark : light;
    EXPECT_EQ(colours(form.grab().toImage(), *panel, form), shown);
    const QImage paper = form.paper_image();
    EXPECT_EQ(paper.deviceIndependentSize().toSize(), form.size());
    EXPECT_EQ(colours(paper, *panel, form), white);
    // The lines beside menu bar and status line would cross the margin.
    for (int y = 0; y < paper.height(); ++y) ASSERT_EQ(paper.pixelColor(3, y), QColor(Qt::white)) << y;
    EXPECT_EQ(colours(form.grab().toImage(), *panel, form), shown);
  }
}

TEST_F(MeterRecTest, OverRangeHasTheWarningColourUnlessTheReadingIsOld) {
  const auto expect_colour = [this](const char* text, bool old, QColor colour) {
    values.set_text("V12_value", text);
    values.set_old("V12_value", old);
    form.show_changes();
    EXPECT_EQ(widget("V12_value")->palette().color(QPalette::Text), colour) << text << old;
  };
  const Theme& light = theme(Look::light);
  expect_colour("398.4V", false, light.text);
  expect_colour("  OL ", false, light.warning);
  expect_colour("  OL ", true, light.quiet);
  expect_colour("OL %", false, light.warning);
  expect_colour("398.4V", false, light.text);
  EXPECT_EQ(widget("Warning")->palette().color(QPalette::Text), light.warning);
  const QWidget* const panel = widget("V12_value")->parentWidget();
  EXPECT_EQ(colours(form.grab().toImage(), *panel, form)[1], light.quiet.name());
}

// The contrast of WCAG 2: luminance is linear light weighted by colour.
double luminance(const QColor& colour) {
  const auto linear = [](double part) {
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

double contrast(const QColor& ink, const QColor& ground) {
  const auto [dark, bright] = std::minmax({luminance(ink), luminance(ground)});
  return (bright + 0.05) / (dark + 0.05);
}

TEST(Colours, TextIsReadableInEveryLookAndAWarningIsNoPhase) {
  for (const Look look : {Look::light, Look::dark, Look::paper}) {
    const Theme& now = theme(look);
    EXPECT_GE(contrast(now.grid, now.panel), 3) << "the circles of the phasors were faint";
    for (const QColor& ink :
         {now.text, now.quiet, now.accent, now.warning, now.phase[0], now.phase[1], now.phase[2]})
      for (const QColor& ground : {now.background, now.panel})
        EXPECT_GE(contrast(ink, ground), 4.5) << ink.name().toStdString();
    for (const QColor& phase : now.phase) EXPECT_NE(now.warning, phase);
  }
}

TEST(BoxLanguage, ButtonsOfBoxesFollowTheLanguageAlsoWhileABoxIsOpen) {
  BoxLanguage boxes;
  QDialogButtonBox box(QDialogButtonBox::Cancel);
  const auto button = [&] { return box.buttons().front()->text(); };
  const QString english = button();
  for (int time = 0; time < 2; ++time) {
    boxes.follow(Language::chinese);
    QCoreApplication::processEvents();
    EXPECT_EQ(button(), QStringLiteral("取消"));
    boxes.follow(Language::english);
    QCoreApplication::processEvents();
    EXPECT_EQ(button(), english);
  }
}

QImage picture_of(const char* text) {
  ElidedLabel label(0);
  label.setText(QLatin1String(text));
  label.resize(120, 30);
  return label.grab().toImage();
}

TEST_F(MeterRecTest, AnAmpersandInAPathIsShownInMenuAndStatusLine) {
  values.set_text("FileName", "&Create Data File = /a & b/c&d.csv");
  form.show_changes();
  EXPECT_EQ(action("FileName")->text(), QStringLiteral("&Create Data File = /a && b/c&&d.csv"));
  EXPECT_NE(picture_of("A&B"), picture_of("AB"));
}

TEST(ProgramIcon, IsFoundInTheProgramInEverySize) {
  for (const int size : {32, 128}) EXPECT_EQ(program_icon().actualSize(QSize(size, size)), QSize(size, size));
}

TEST(DemoPanel, ButtonsActOnTheMeter) {
  VirtualWorld world({2026, 11, 22}, 0);
  simulator::Meter meter;
  simulator::SimulatedPort port(world.clock, meter);
  port.open(1);
  DemoPanel panel(meter, port, nullptr);
  const auto button = [&](const char* name) { return panel.findChild<QPushButton*>(QLatin1String(name)); };
  for (const char* pressed : {"demo_harmonics", "demo_3p3w", "demo_i2"}) button(pressed)->click();
  EXPECT_EQ(meter.settings().mode, simulator::MeterMode::harmonics);
  EXPECT_EQ(meter.settings().wiring, simulator::Wiring::w3p3w);
  EXPECT_EQ(meter.settings().channel, 3);
  meter.memory().transient_report = "report";
  button("demo_transient")->click();
  world.run_for(1.0);
  EXPECT_EQ(port.receive(), "report");
  for (const PortState state : {PortState::vanished, PortState::open}) {
    button("demo_cable_out")->click();
    EXPECT_EQ(port.state(), state);
  }
}

TEST(DemoPanel, CoversNoReading) {
  VirtualWorld world({2026, 11, 22}, 0);
  simulator::Meter meter;
  simulator::SimulatedPort port(world.clock, meter);
  QWidget main_window;
  const QRect desk = main_window.screen()->availableGeometry();
  main_window.resize(desk.size());
  DemoPanel panel(meter, port, nullptr);
  panel.place_beside(main_window);
  EXPECT_FALSE(panel.geometry().intersects(main_window.geometry()));
  EXPECT_TRUE(desk.contains(panel.geometry()));
}

}  // namespace
}  // namespace halden
