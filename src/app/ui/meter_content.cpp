#include "app/ui/meter_content.h"

#include <QEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <utility>

#include "chart/ui/chart_view.h"
#include "screen/meter_rec/columns.h"
#include "screen/meter_rec/panels.h"
#include "screen/ui/fonts.h"
#include "screen/ui/mirror.h"

namespace halden {

namespace {

constexpr double title_pixels = 12.0;
constexpr double reading_pixels = 17.0;
constexpr double form_pixels = 14.0;
constexpr int usual_smallest_text = 11;
constexpr int smallest_text = 7;  // in small windows, where a caption would be cut
constexpr int button_frame = 14;  // line and padding on both sides

// Characters; sending takes half a second for each.
constexpr int longest_setting = 10;

constexpr const char* clock_labels = "Label1";

int scaled(double design_pixels, double scale) {
  return std::max(static_cast<int>(std::lround(design_pixels * scale)), usual_smallest_text);
}

// As large as wanted, but not wider or higher than the widget inside its frame.
void fit_text(QWidget& widget, const QString& text, int frame, int wanted) {
  const QSize room(widget.width() - frame, widget.height());
  widget.setFont(with_pixel_size(text_font(), largest_size(text_font(), text, room, smallest_text, wanted)));
}

Role role_of_reading(const DesignedControl& designed) {
  if (designed.name == "hold" || designed.name == "Warning") return Role::alert;
  constexpr std::array phase_roles = {Role::phase_1, Role::phase_2, Role::phase_3};
  return designed.phase >= 0 ? phase_roles[static_cast<std::size_t>(designed.phase)] : Role::reading;
}

// A line voltage belongs to two phases, so it has the colour of neither.
std::optional<QColor> bar_colour(const DesignedControl& designed, const Theme& theme) {
  if (designed.phase < 0) return std::nullopt;
  const auto phase = static_cast<std::size_t>(designed.phase);
  return designed.name == line_panel(phase).value ? theme.quiet : theme.phase[phase];
}

}  // namespace

MeterContent::MeterContent(FormWindow& form)
    : DesignArea(form.window(), double{design_width}, double{design_height}),
      form_(form),
      mirror_(form.mirror()) {
  for (const DesignedControl& designed : main_window_design()) (this->*builder_of(designed.kind))(designed);
  connect(&form, &FormWindow::places_changed, this, &DesignArea::arrange);
  connect(this, &DesignArea::arranged, this, &MeterContent::fit_texts);
}

MeterContent::Build MeterContent::builder_of(ControlKind kind) {
  constexpr std::array<std::pair<ControlKind, Build>, 7> builders = {
      {{ControlKind::text, &MeterContent::build_text},
       {ControlKind::reading, &MeterContent::build_reading},
       {ControlKind::value, &MeterContent::build_panel},
       {ControlKind::edit_box, &MeterContent::build_edit_box},
       {ControlKind::button, &MeterContent::build_button},
       {ControlKind::scroll_bar, &MeterContent::build_scroll_bar},
       {ControlKind::chart, &MeterContent::build_chart}}};
  for (const auto& [builds, builder] : builders)
    if (builds == kind) return builder;
  // A panel's label comes with its value; status line and menus are built elsewhere.
  return &MeterContent::build_nothing;
}

Place MeterContent::place_of(const std::string& control) const {
  return place_on_screen(form_.window(), control);
}

void MeterContent::build_text(const DesignedControl& designed) {
  auto* const label = new QLabel(this);
  label->setObjectName(to_qt(designed.name));
  label->setTextFormat(Qt::PlainText);
  set_role(*label, Role::quiet);
  mirror_.tie(designed.name, *label);
  put(designed.name, *label);
  watch_double_clicks(designed, *label);
  titles_.push_back(label);
}

void MeterContent::build_reading(const DesignedControl& designed) {
  auto* const field = new ReadingField(to_qt(designed.name), Units::like_the_number, form_.theme(), this);
  set_role(*field, role_of_reading(designed));
  name_after(designed.label.empty() ? designed.name : designed.label, *field);
  mirror_.tie(designed.name, *field);
  put(designed.name, *field);
  watch_double_clicks(designed, *field);
  readings_.push_back(field);
}

void MeterContent::build_panel(const DesignedControl& designed) {
  auto* const panel = new ValuePanel(to_qt(designed.label), to_qt(designed.name),
                                     bar_colour(designed, form_.theme()), form_.theme(), this);
  mirror_.tie(designed.label, panel->caption());
  mirror_.tie(designed.name, panel->value());
  mirror_.tie(designed.name, [panel](const Control& value) {
    panel->setVisible(value.visible);
    panel->setToolTip(to_qt(value.tooltip));
  });
  name_after(designed.label, panel->value());
  put(designed.name, *panel);
  panels_.add(designed.name, designed.phase, designed.widest, *panel);
}

void MeterContent::build_edit_box(const DesignedControl& designed) {
  auto* const field = new QLineEdit(this);
  field->setObjectName(to_qt(designed.name));
  field->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  set_role(*field, Role::edit_box);
  field->setMaxLength(longest_setting);
  connect(field, &QLineEdit::returnPressed, this, [this, field, button = designed.label] {
    if (!field->isReadOnly()) form_.click(button);
  });
  mirror_.tie_edit_box(designed.name, *field);
  put(designed.name, *field);
  form_widgets_.push_back(field);
}

void MeterContent::build_button(const DesignedControl& designed) {
  auto* const button = new QPushButton(this);
  form_.tie_button(designed.name, *button);
  put(designed.name, *button);
  form_widgets_.push_back(button);
}

void MeterContent::build_scroll_bar(const DesignedControl& designed) {
  auto* const bar = new QScrollBar(Qt::Horizontal, this);
  bar->setObjectName(to_qt(designed.name));
  bar->setFocusPolicy(Qt::StrongFocus);
  mirror_.tie(designed.name, *bar);
  put(designed.name, *bar);
}

void MeterContent::build_chart(const DesignedControl& designed) {
  build_backdrop(designed);
  auto* const chart = new ChartView(form_.theme(), this);
  chart->setObjectName(to_qt(designed.name));
  mirror_.tie(designed.name, [chart](const Control& now) {
    chart->setVisible(now.visible);
    chart->set_chart(now.chart);
    chart->setAccessibleName(now.accessible_name.empty() ? tr("chart") : to_qt(now.accessible_name));
  });
  connect(chart, &ChartView::point_chosen, this, [this](std::size_t point) { choose_order(point); });
  put(designed.name, *chart);
}

// A click on a bar moves the order cursor there.
void MeterContent::choose_order(std::size_t point) {
  auto* const cursor = findChild<QScrollBar*>(QStringLiteral("HScroll1"));
  if (cursor->isVisible()) cursor->setValue(static_cast<int>(point));
}

// Covers the power panels while the chart is shown; the controls of the harmonics view are built later and
// are therefore above it.
void MeterContent::build_backdrop(const DesignedControl& chart) {
  auto* const backdrop = new QWidget(this);
  backdrop->setObjectName(QStringLiteral("harmonics_backdrop"));
  backdrop->setAutoFillBackground(true);
  QPalette palette = backdrop->palette();  // that of the application is not the one of paper
  palette.setColor(QPalette::Window, form_.theme().background);
  backdrop->setPalette(palette);
  constexpr float top = 60 * units_per_pixel;
  put_at({0, top, panels_right * units_per_pixel, design_height - top}, *backdrop);
  mirror_.tie(chart.name, [backdrop](const Control& now) { backdrop->setVisible(now.visible); });
}

void MeterContent::name_after(const std::string& label, QWidget& widget) {
  mirror_.tie(label, [&widget](const Control& now) { widget.setAccessibleName(to_qt(now.text)); });
}

void MeterContent::watch_double_clicks(const DesignedControl& designed, QWidget& widget) {
  if (designed.name.starts_with(clock_labels)) widget.installEventFilter(this);
}

bool MeterContent::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::MouseButtonDblClick) return DesignArea::eventFilter(watched, event);
  form_.click(from_qt(watched->objectName()));
  return true;
}

void MeterContent::fit_texts() {
  const double scale = std::min(width() / (double{design_width} / double{units_per_pixel}),
                                height() / (double{design_height} / double{units_per_pixel}));
  for (QLabel* title : titles_) fit_text(*title, title->text(), 0, scaled(title_pixels, scale));
  for (ReadingField* reading : readings_) reading->set_size(scaled(reading_pixels, scale));
  for (QWidget* widget : form_widgets_) {
    const auto* const button = qobject_cast<const QAbstractButton*>(widget);
    fit_text(*widget, button != nullptr ? button->text() : QString(), button_frame,
             scaled(form_pixels, scale));
  }
  panels_.fit(scale);
}

}  // namespace halden
