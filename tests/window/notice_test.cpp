// The notice window, the status line, the colours, the paper, and the demo's buttons.

#include <QApplication>
#include <QHelpEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <array>

#include "app/ui/demo_panel.h"
#include "app/ui/notice_window.h"
#include "app/ui/status_row.h"
#include "meter_rec_fixture.h"
#include "platform/virtual/virtual_world.h"
#include "simulator/simulated_port.h"

namespace halden {

namespace {

struct NoticeTest : MeterRecTest {
  NoticeWindow notice{screen.chkspeed, rec, Look::light};
};

TEST_F(NoticeTest, SaysWhatTheValuesSayAndLeavesTheUserAlone) {
  notice.show_changes();
  EXPECT_FALSE(notice.isVisible());
  screen.chkspeed.set_caption("Status");
  screen.chkspeed["Text1"].text = "Working, please wait";
  screen.chkspeed.show();
  notice.show_changes();
  EXPECT_TRUE(notice.isVisible());
  EXPECT_FALSE(notice.isModal());
  EXPECT_EQ(notice.windowTitle(), QStringLiteral("Status"));
  EXPECT_EQ(notice.findChild<QLineEdit*>(QStringLiteral("Text1"))->text(),
            QStringLiteral("Working, please wait"));
  EXPECT_TRUE(notice.windowFlags().testFlag(Qt::WindowDoesNotAcceptFocus));
  EXPECT_TRUE(notice.testAttribute(Qt::WA_ShowWithoutActivating));
  EXPECT_TRUE(rec.geometry().contains(notice.geometry()));
  EXPECT_FALSE(notice.close());
  EXPECT_TRUE(notice.isVisible());
  screen.chkspeed.hide();
  notice.show_changes();
  EXPECT_FALSE(notice.isVisible());
}

TEST_F(MeterRecTest, StatusLineShowsItsFields) {
  const int usual_width = rec.width();
  values["status_port"].text = "COM 1";
  values["status_hint"].text = std::string(400, 'x');
  rec.show_changes();
  EXPECT_EQ(static_cast<QLabel*>(widget("status_port"))->text(), QStringLiteral("COM 1"));
  QWidget* const hint = widget("status_hint");
  EXPECT_LE(hint->geometry().right(), rec.width());
  EXPECT_EQ(rec.width(), usual_width);  // a long hint does not widen the window
  QHelpEvent hover(QEvent::ToolTip, QPoint(2, 2), hint->mapToGlobal(QPoint(2, 2)));
  QCoreApplication::sendEvent(hint, &hover);
  EXPECT_EQ(hint->toolTip(), to_qt(std::string(400, 'x')));
}

// Which pixels are marked at all, whatever their colour.
QImage shape_of(LinkMark mark) {
  LinkLight light;
  light.set_mark(mark);
  QImage image(light.size(), QImage::Format_ARGB32);
  image.fill(Qt::transparent);
  light.render(&image, QPoint(), QRegion(), QWidget::RenderFlags());
  return image.createAlphaMask().convertToFormat(QImage::Format_Grayscale8);
}

TEST(LinkLight, StatesDifferInShape) {
  EXPECT_NE(shape_of(LinkMark::linked), shape_of(LinkMark::idle));
  EXPECT_NE(shape_of(LinkMark::linked), shape_of(LinkMark::lost));
  EXPECT_NE(shape_of(LinkMark::idle), shape_of(LinkMark::lost));
  EXPECT_EQ(link_mark("ok"), LinkMark::linked);
  EXPECT_EQ(link_mark("lost"), LinkMark::lost);
  EXPECT_EQ(link_mark(""), LinkMark::none);
}

// The colour in the bar at the left edge of a panel, and in its middle.
std::array<QColor, 2> panel_colours(const QImage& window, const QWidget& panel, const QWidget& top) {
  const QPoint origin = panel.mapTo(&top, QPoint(0, 0));
  return {window.pixelColor(origin + QPoint(2, panel.height() / 2)),
          window.pixelColor(origin + QPoint(panel.width() / 2, panel.height() / 2))};
}

TEST(Colours, PanelsFollowTheLookAndPaperIsLight) {
  struct Case {
    Look look;
    QColor bar;
    QColor panel;
  };
  const std::array cases = {Case{Look::dark, QColor("#4CD3A2"), QColor("#1D2126")},
                            Case{Look::light, QColor("#047857"), QColor("#FFFFFF")}};
  for (const Case& wanted : cases) {
    apply_to_application(wanted.look);
    Screen screen;
    MeterRec rec(screen.meter_rec, {[](std::string_view) {}, [] {}, [] {}}, wanted.look);
    const QWidget* const panel = rec.findChild<QWidget*>(QStringLiteral("V2_value"))->parentWidget();
    const auto shown = panel_colours(rec.grab().toImage(), *panel, rec);
    EXPECT_EQ(shown[0], wanted.bar);
    EXPECT_EQ(shown[1], wanted.panel);
    const QImage paper = rec.paper_image();
    const auto printed = panel_colours(paper, *panel, rec);
    EXPECT_EQ(printed[0], QColor("#047857"));
    EXPECT_EQ(printed[1], QColor("#FFFFFF"));
    EXPECT_EQ(paper.pixelColor(3, paper.height() / 2), QColor("#EEF0F2"));
    EXPECT_EQ(panel_colours(rec.grab().toImage(), *panel, rec), shown);
  }
  apply_to_application(Look::light);
}

TEST(DemoPanel, ButtonsActOnTheMeter) {
  VirtualWorld world({2026, 11, 22}, 0);
  Meter meter;
  SimulatedPort port(world.clock, meter);
  port.open(1);
  DemoPanel panel(meter, port, nullptr);
  const auto press = [&panel](const char* name) {
    auto* const button = panel.findChild<QPushButton*>(QLatin1String(name));
    ASSERT_NE(button, nullptr) << name;
    button->click();
  };
  press("demo_harmonics");
  EXPECT_EQ(meter.settings().mode, MeterMode::harmonics);
  press("demo_power");
  EXPECT_EQ(meter.settings().mode, MeterMode::power);
  press("demo_3p3w");
  EXPECT_EQ(meter.settings().wiring, Wiring::w3p3w);
  press("demo_i2");
  EXPECT_EQ(meter.settings().channel, 3);
  press("demo_cable_out");
  EXPECT_EQ(port.state(), PortState::vanished);
  press("demo_cable_out");
  EXPECT_EQ(port.state(), PortState::open);
  panel.show_beside(QRect(0, 0, 200, 200));
  panel.close();
  EXPECT_FALSE(panel.isVisible());
  EXPECT_FALSE(panel.findChild<QPushButton*>(QStringLiteral("demo_transient"))->isEnabled());
}

}  // namespace

}  // namespace halden
