#include "chart/ui/chart_view.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>
#include <utility>

#include "chart/thinning.h"
#include "chart/ui/chart_paper.h"
#include "chart/ui/chart_plot.h"
#include "screen/ui/card.h"
#include "screen/ui/form_window.h"
#include "screen/ui/mirror.h"

namespace halden {

namespace {

constexpr int card_margin = 6;
constexpr QSize smallest_view(200, 140);
constexpr double wheel_step = 120;
constexpr double zoom_of_a_step = 0.8;

// In points: a view that rounding has made slightly wider shows no further point.
constexpr double place_rounding = 1e-6;

// No closer than this: a few points, and a small part of the whole height.
constexpr double fewest_points = 4;
constexpr double smallest_height = 1e-4;

// Longer than it takes from one step of the wheel to the next.
constexpr int settled_after_ms = 250;

constexpr double picture_scale = 2;

bool same_limits(const Chart& a, const Chart& b) { return a.y_low == b.y_low && a.y_high == b.y_high; }

}  // namespace

ChartView::ChartView(const Theme& theme, QWidget* parent)
    : QWidget(parent), theme_(theme), plot_(new ChartPlot(theme, this)) {
  plot_->setAttribute(Qt::WA_TransparentForMouseEvents);
  plot_->setFocusPolicy(Qt::NoFocus);
  setMinimumSize(smallest_view);
  setMouseTracking(true);
  setFocusPolicy(Qt::StrongFocus);
  settling_.setSingleShot(true);
  connect(&settling_, &QTimer::timeout, this, [this] {
    Q_EMIT view_settled(static_cast<int>(std::floor(shown_.x.low + place_rounding)),
                        static_cast<int>(std::ceil(shown_.x.high - place_rounding)));
  });
  set_chart(nullptr);
}

void ChartView::set_chart(std::shared_ptr<const Chart> chart) {
  if (!chart) chart = std::make_shared<const Chart>();
  if (chart == chart_) return;
  if (!chart_ || !same_points(*chart_, *chart)) {
    zoomed_x_.reset();
    cursor_.reset();
    settling_.stop();
  }
  if (!chart_ || !same_subject(*chart_, *chart) || !same_limits(*chart_, *chart)) zoomed_y_.reset();
  chart_ = std::move(chart);
  whole_ = {x_reach(*chart_), y_range(*chart_)};
  if (!zoomed_x_ && x_range(*chart_) != whole_.x) zoomed_x_ = x_range(*chart_);
  setAccessibleName(to_qt(chart_->title.empty() ? chart_->y_title : chart_->title));
  plot_->set_chart(*chart_);
  draw();
}

QRect ChartView::plot_area() const {
  return rect().adjusted(card_margin, card_margin, -card_margin, -card_margin);
}

void ChartView::draw() {
  shown_.x = moved(zoomed_x_.value_or(whole_.x), whole_.x, 0);
  shown_.y = moved(zoomed_y_.value_or(whole_.y), whole_.y, 0);
  plot_->show_part(shown_, plot_area().size());
  plot_->replot(QCustomPlot::rpQueuedRefresh);
  show_cursor();
}

std::optional<std::size_t> ChartView::cursor() const { return cursor_ ? cursor_ : chart_->marked; }

QString ChartView::readout() const {
  const std::optional<std::size_t> point = cursor();
  return point ? to_qt(readout_at(*chart_, *point)) : QString();
}

void ChartView::set_cursor(std::optional<std::size_t> point) {
  if (point == cursor_) return;
  cursor_ = point;
  show_cursor();
}

void ChartView::show_cursor() {
  plot_->show_cursor(cursor());
  QString description = to_qt(chart_->description);
  const QString says = readout();
  if (!says.isEmpty()) description += QLatin1Char('\n') + says;
  if (accessibleDescription() != description) setAccessibleDescription(description);
}

QPointF ChartView::to_pixels(double x, double y) const {
  return QPointF(plot_->pos()) + QPointF(plot_->xAxis->coordToPixel(x), plot_->yAxis->coordToPixel(y));
}

QPointF ChartView::to_chart(const QPointF& pixels) const {
  const QPointF in_plot = pixels - QPointF(plot_->pos());
  return {plot_->xAxis->pixelToCoord(in_plot.x()), plot_->yAxis->pixelToCoord(in_plot.y())};
}

std::optional<std::size_t> ChartView::point_at(const QPointF& pixels) const {
  const double x = to_chart(pixels).x();
  return x >= shown_.x.low && x <= shown_.x.high ? nearest_point(*chart_, x) : std::nullopt;
}

QImage ChartView::paper_image() const {
  return chart_image(*chart_, shown_, plot_area().size(), picture_scale);
}

void ChartView::show_as(const QWidget& on_screen) {
  const auto* const other = qobject_cast<const ChartView*>(&on_screen);
  if (other == nullptr) return;
  zoomed_x_ = other->zoomed_x_;
  zoomed_y_ = other->zoomed_y_;
  draw();
}

void ChartView::zoom_x(double factor, double about) {
  show_x(zoomed(shown_.x, whole_.x, factor, about, fewest_points));
  settle(settled_after_ms);
}

void ChartView::show_x(const Range& x) {
  zoomed_x_ = x;
  if (x == whole_.x) zoomed_x_.reset();
  draw();
}

void ChartView::settle(int after_ms) { settling_.start(after_ms); }

// The whole height stays automatic, so that the next frame may have another.
void ChartView::zoom_y(double factor, double about) {
  zoomed_y_ = zoomed(shown_.y, whole_.y, factor, about, whole_.y.span() * smallest_height);
  if (*zoomed_y_ == whole_.y) zoomed_y_.reset();
  draw();
}

void ChartView::paintEvent(QPaintEvent*) {
  Theme card = theme_;
  if (hasFocus()) card.line = theme_.accent;
  paint_card(*this, card);
}

void ChartView::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  plot_->setGeometry(plot_area());
  draw();
}

void ChartView::wheelEvent(QWheelEvent* event) {
  const double factor = std::pow(zoom_of_a_step, event->angleDelta().y() / wheel_step);
  const QPointF about = to_chart(event->position());
  const bool over_y_axis = about.x() < shown_.x.low;
  if (over_y_axis || event->modifiers().testFlag(Qt::ControlModifier))
    zoom_y(factor, chart_->kind == ChartKind::bars ? 0 : about.y());  // bars keep their foot
  else
    zoom_x(factor, about.x());
  event->accept();
}

void ChartView::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  dragged_from_ = event->position();
  dragging_ = false;
  selecting_ = drag_ == Drag::selects && !event->modifiers().testFlag(Qt::ShiftModifier);
}

void ChartView::mouseMoveEvent(QMouseEvent* event) {
  const double distance = (event->position() - dragged_from_).manhattanLength();
  if (event->buttons().testFlag(Qt::LeftButton) &&
      (dragging_ || distance >= QApplication::startDragDistance()))
    drag_to(event->position());
  set_cursor(point_at(event->position()));
}

void ChartView::drag_to(const QPointF& position) {
  dragging_ = true;
  if (selecting_) return plot_->show_selection(selected_to(position));
  const QPointF by = to_chart(dragged_from_) - to_chart(position);
  dragged_from_ = position;
  if (zoomed_x_) zoomed_x_ = moved(shown_.x, whole_.x, by.x());
  if (zoomed_y_) zoomed_y_ = moved(shown_.y, whole_.y, by.y());
  draw();
  settle(settled_after_ms);
}

// Within what is shown.
Range ChartView::selected_to(const QPointF& position) const {
  const auto [low, high] = std::minmax({to_chart(dragged_from_).x(), to_chart(position).x()});
  return {std::clamp(low, shown_.x.low, shown_.x.high), std::clamp(high, shown_.x.low, shown_.x.high)};
}

// One that has been dragged back to its start is given up.
void ChartView::end_selection(const QPointF& position) {
  plot_->show_selection(std::nullopt);
  const Range selected = selected_to(position);
  if (std::abs(position.x() - dragged_from_.x()) < QApplication::startDragDistance()) return;
  const double more = std::max(0.0, fewest_points - selected.span()) / 2;
  show_x(moved({selected.low - more, selected.high + more}, whole_.x, 0));
  settle(0);
}

void ChartView::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  if (std::exchange(dragging_, false)) {
    if (std::exchange(selecting_, false)) end_selection(event->position());
    return;
  }
  if (const auto point = point_at(event->position())) Q_EMIT point_chosen(*point);
}

void ChartView::mouseDoubleClickEvent(QMouseEvent*) {
  zoomed_y_.reset();
  show_x(whole_.x);
  settle(0);
}

void ChartView::leaveEvent(QEvent*) { set_cursor(std::nullopt); }

// A cursor that leaves the part shown takes it along.
void ChartView::move_cursor(double points) {
  const double from = static_cast<double>(cursor().value_or(0));
  const auto point = nearest_point(*chart_, std::clamp(from + points, whole_.x.low, whole_.x.high));
  if (!point) return;
  cursor_ = point;
  const double x = static_cast<double>(*point);
  const double room = -x_range(*chart_).low;  // half of a bar
  const double by = std::min(x - room - shown_.x.low, 0.0) + std::max(x + room - shown_.x.high, 0.0);
  if (zoomed_x_) zoomed_x_ = moved(shown_.x, whole_.x, by);
  draw();
  if (by != 0) settle(settled_after_ms);
  Q_EMIT point_chosen(*point);
}

void ChartView::keyPressEvent(QKeyEvent* event) {
  const double about = cursor() ? static_cast<double>(*cursor()) : shown_.x.low + shown_.x.span() / 2;
  switch (event->key()) {
    case Qt::Key_Left:
      return move_cursor(-1);
    case Qt::Key_Right:
      return move_cursor(1);
    case Qt::Key_Home:
      return move_cursor(-whole_.x.span());
    case Qt::Key_End:
      return move_cursor(whole_.x.span());
    case Qt::Key_Plus:
      return zoom_x(zoom_of_a_step, about);
    case Qt::Key_Minus:
      return zoom_x(1 / zoom_of_a_step, about);
    default:
      QWidget::keyPressEvent(event);
  }
}

void ChartView::focusInEvent(QFocusEvent* event) {
  QWidget::focusInEvent(event);
  update();
}

void ChartView::focusOutEvent(QFocusEvent* event) {
  QWidget::focusOutEvent(event);
  update();
}

ChartView* tied_chart(std::string_view control, FormWindow& form) {
  auto* const chart = new ChartView(form.theme(), &form);
  chart->setObjectName(to_qt(control));
  form.mirror().tie(std::string(control), [chart](const Control& now) {
    chart->set_chart(now.chart);
    if (chart->accessibleName().isEmpty()) chart->setAccessibleName(to_qt(now.accessible_name));
  });
  return chart;
}

}  // namespace halden
