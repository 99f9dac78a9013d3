// The notice window, the status line, the colours, the paper, and the demo's buttons.

#include <QApplication>
#include <QHelpEvent>
#include <QLineEdit>
#include <QPushButton>
#include <array>

#include "app/ui/demo_panel.h"
#include "app/ui/notice_window.h"
#include "app/ui/status_row.h"
#include "form_fixture.h"
#include "platform/virtual/virtual_world.h"
#include "screen/windows.h"
#include "simulator/simulated_port.h"

namespace halden {

namespace {

TEST_F(MeterRecTest, NoticeSaysWhatTheValuesSayAndLeavesTheUserAlone) {
  Window said = make_notice_window();
  NoticeWindow notice(said, form, Look::light);
  notice.show_changes();
  EXPECT_FALSE(notice.isVisible());
  said.set_caption("Status");
  said.set_text("Text1", "Working");
  said.show();
  notice.show_changes();
  EXPECT_EQ(notice.windowTitle(), QStringLiteral("Status"));
  EXPECT_EQ(notice.findChild<QLineEdit*>(QStringLiteral("Text1"))->text(), QStringLiteral("Working"));
  EXPECT_FALSE(notice.isModal());
  EXPECT_TRUE(notice.windowFlags().testFlag(Qt::WindowDoesNotAcceptFocus));
  EXPECT_TRUE(notice.testAttribute(Qt::WA_ShowWithoutActivating));
  EXPECT_TRUE(form.geometry().contains(notice.geometry()));
  EXPECT_FALSE(notice.close());
  EXPECT_TRUE(notice.isVisible());
  said.hide();
  notice.show_changes();
  EXPECT_FALSE(notice.isVisible());
}

TEST_F(MeterRecTest, ALongHintInTheStatusLineDoesNotWidenTheWindow) {
  const int usual_width = form.width();
  const std::string text(400, 'x');
  values.set_text("status_hint", text);
  form.show_changes();
  QWidget* const hint = widget("status_hint");
  EXPECT_LE(hint->geometry().right(), form.width());
  EXPECT_EQ(form.width(), usual_width);
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

// The colours of the window, the bar at the left edge of a panel, and the panel.
std::array<QString, 3> colours(const QImage& window, const QWidget& panel, const QWidget& top) {
  const QPoint left = panel.mapTo(&top, QPoint(2, panel.height() / 2));
  return {window.pixelColor(3, window.height() / 2).name(), window.pixelColor(left).name(),
          window.pixelColor(left + QPoint(panel.width() / 2, 0)).name()};
}

TEST(Colours, PanelsFollowTheLookAndPaperIsLightAndOpensNoWindow) {
  const std::array dark = {QStringLiteral("#14171a"), QStringLiteral("#4cd3a2"), QStringLiteral("#1d2126")};
  const std::array light = {QStringLiteral("#eef0f2"), QStringLiteral("#047857"), QStringLiteral("#ffffff")};
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
    ShownWindows others;
    qApp->installEventFilter(&others);
    const QImage paper = form.paper_image();
    EXPECT_EQ(others.count, 0);
    EXPECT_EQ(paper.deviceIndependentSize().toSize(), form.size());
    EXPECT_EQ(colours(paper, *panel, form), light);
    EXPECT_EQ(colours(form.grab().toImage(), *panel, form), shown);
  }
}

TEST(DemoPanel, ButtonsActOnTheMeter) {
  VirtualWorld world({2026, 11, 22}, 0);
  simulator::Meter meter;
  simulator::SimulatedPort port(world.clock, meter);
  port.open(1);
  DemoPanel panel(meter, port, nullptr);
  const auto button = [&panel](const char* name) {
    return panel.findChild<QPushButton*>(QLatin1String(name));
  };
  for (const char* pressed : {"demo_harmonics", "demo_3p3w", "demo_i2"}) button(pressed)->click();
  EXPECT_EQ(meter.settings().mode, simulator::MeterMode::harmonics);
  EXPECT_EQ(meter.settings().wiring, simulator::Wiring::w3p3w);
  EXPECT_EQ(meter.settings().channel, 3);
  button("demo_power")->click();
  EXPECT_EQ(meter.settings().mode, simulator::MeterMode::power);
  for (const PortState state : {PortState::vanished, PortState::open}) {
    button("demo_cable_out")->click();
    EXPECT_EQ(port.state(), state);
  }
  EXPECT_FALSE(button("demo_transient")->isEnabled());
}

}  // namespace

}  // namespace halden
