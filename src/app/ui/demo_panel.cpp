#include "app/ui/demo_panel.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <algorithm>
#include <array>
#include <utility>

#include "screen/ui/fonts.h"
#include "screen/ui/form_window.h"
#include "screen/ui/mirror.h"
#include "screen/ui/theme.h"
#include "simulator/meter.h"
#include "simulator/simulated_port.h"

namespace halden {

namespace {

constexpr int columns = 6;
constexpr int button_height = 30;
constexpr int text_pixels = 13;
constexpr int gap = 12;  // between the panel and the main window

QPushButton* make_button(const QString& name, const QString& text) {
  auto* const button = new QPushButton(text);
  button->setObjectName(name);
  button->setFont(with_pixel_size(text_font(), text_pixels));
  button->setMinimumSize(40, button_height);
  return button;
}

QString object_name(std::string_view choice) { return QStringLiteral("demo_") + to_qt(choice).toLower(); }

}  // namespace

DemoPanel::DemoPanel(simulator::Meter& meter, simulator::SimulatedPort& port, QWidget* main_window)
    : QWidget(main_window, Qt::Tool | Qt::CustomizeWindowHint | Qt::WindowTitleHint),
      grid_(new QGridLayout(this)) {
  setObjectName(QStringLiteral("demo_panel"));
  setWindowTitle(QStringLiteral("Halden meter (demo)"));
  setAttribute(Qt::WA_ShowWithoutActivating);
  grid_->setContentsMargins(gap, gap, gap, gap);
  simulator::MeterSettings& settings = meter.settings();
  add_choices("Mode", std::array{Choice{"POWER", 1}, Choice{"HARMONICS", 0}}, static_cast<int>(settings.mode),
              [&settings](int value) { settings.mode = static_cast<simulator::MeterMode>(value); });
  add_choices("Wiring",
              std::array{Choice{"1P2W", 0}, Choice{"1P3W", 1}, Choice{"3P3W", 2}, Choice{"3P4W", 3}},
              static_cast<int>(settings.wiring),
              [&settings](int value) { settings.wiring = static_cast<simulator::Wiring>(value); });
  add_choices("Input",
              std::array{Choice{"V1", 0}, Choice{"I1", 1}, Choice{"V2", 2}, Choice{"I2", 3}, Choice{"V3", 4},
                         Choice{"I3", 5}},
              settings.channel, [&settings](int value) { settings.channel = value; });
  add_transient(port);
  add_cable(port);
}

void DemoPanel::add_heading(const char* title) {
  auto* const heading = new QLabel(QLatin1String(title));
  heading->setFont(with_pixel_size(text_font(), text_pixels));
  set_role(*heading, Role::quiet);
  grid_->addWidget(heading, grid_->rowCount(), 0, 1, columns);
}

// One row of buttons of which one is pressed.
template <typename Choices>
void DemoPanel::add_choices(const char* title, const Choices& choices, int chosen,
                            std::function<void(int)> choose) {
  add_heading(title);
  auto* const group = new QButtonGroup(this);
  const int row = grid_->rowCount();
  auto* const line = new QHBoxLayout;
  grid_->addLayout(line, row, 0, 1, columns);
  for (const Choice& choice : choices) {
    auto* const button = make_button(object_name(choice.name), to_qt(choice.name));
    button->setCheckable(true);
    button->setChecked(choice.value == chosen);
    group->addButton(button, choice.value);
    line->addWidget(button);
  }
  // Also without a click, by assistive technology.
  connect(group, &QButtonGroup::idToggled, this, [choose = std::move(choose)](int chosen_now, bool on) {
    if (on) choose(chosen_now);
  });
}

void DemoPanel::add_transient(simulator::SimulatedPort& port) {
  add_heading("Event");
  auto* const button = make_button(QStringLiteral("demo_transient"), QStringLiteral("TRANSIENT"));
  connect(button, &QPushButton::clicked, this, [&port] { port.press_transient(); });
  grid_->addWidget(button, grid_->rowCount(), 0, 1, columns);
}

void DemoPanel::add_cable(simulator::SimulatedPort& port) {
  auto* const button = make_button(QStringLiteral("demo_cable_out"), QStringLiteral("Cable out"));
  button->setCheckable(true);
  connect(button, &QPushButton::toggled, this, [&port](bool out) { out ? port.unplug() : port.plug_in(); });
  grid_->addWidget(button, grid_->rowCount(), 0, 1, columns);
}

void DemoPanel::place_beside(QWidget& main_window) {
  adjustSize();
  const QRect desk = screen()->availableGeometry();
  const int left = desk.right() - width() - window_frame.width();
  const int room = left - gap - window_frame.width() - desk.left();
  main_window.resize(std::min(main_window.width(), room), main_window.height());
  main_window.move(desk.topLeft());
  move(std::min(left, desk.left() + main_window.width() + window_frame.width() + gap), desk.top());
}

}  // namespace halden
