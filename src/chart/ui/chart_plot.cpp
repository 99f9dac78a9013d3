#include "chart/ui/chart_plot.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "screen/ui/fonts.h"
#include "screen/ui/mirror.h"

namespace halden {

namespace {

// Sizes in pixels.
constexpr int text_size = 12;
constexpr int title_size = 15;
constexpr int top_margin = 9;  // half of the label at the end of the Y axis
constexpr int left_margin = 44;
constexpr int right_margin = 14;
constexpr int between_labels = 14;
constexpr int y_step_height = 56;
constexpr int cursor_distance = 14;

constexpr float selection_opacity = 0.2F;

QFont small_text() { return with_pixel_size(text_font(), text_size); }

Theme black_and_white() {
  Theme theme = halden::theme(Look::paper);
  theme.text = theme.accent = theme.warning = Qt::black;
  theme.phase.fill(Qt::black);
  theme.quiet = Qt::darkGray;
  theme.line = Qt::lightGray;
  return theme;
}

QString elided(const QString& text, const QFont& font, int width) {
  return QFontMetrics(font).elidedText(text, Qt::ElideRight, width);
}

// Of the widest of its lines.
int label_width(const QString& label) {
  int width = 0;
  for (const QString& line : label.split(QLatin1Char('\n')))
    width = std::max(width, width_of(small_text(), line));
  return width;
}

}  // namespace

ChartPlot::ChartPlot(const Theme& theme, QWidget* parent)
    : QCustomPlot(parent),
      screen_theme_(theme),
      title_(new QCPTextElement(this)),
      y_title_(new QCPTextElement(this)),
      header_(new QCPLayoutGrid),
      hint_(new QCPItemText(this)),
      cursor_line_(new QCPItemStraightLine(this)),
      readout_(new QCPItemText(this)),
      selection_(new QCPItemRect(this)),
      x_ticks_(new QCPAxisTickerText),
      y_ticks_(new QCPAxisTickerText),
      sets_(*this) {
  setNotAntialiasedElements(QCP::aeAll & ~QCP::AntialiasedElements(QCP::aePlottables));
  setAutoAddPlottableToLegend(false);
  build_layout();
  build_cursor();
}

// From top to bottom: the title, the title of the Y axis with the legend beside it, the axes.
void ChartPlot::build_layout() {
  constexpr double smallest_stretch = 0.001;
  plotLayout()->insertRow(0);
  plotLayout()->insertRow(0);
  plotLayout()->setRowSpacing(0);
  plotLayout()->addElement(0, 0, title_);
  plotLayout()->addElement(1, 0, header_);
  plotLayout()->setRowStretchFactor(0, smallest_stretch);
  plotLayout()->setRowStretchFactor(1, smallest_stretch);
  axisRect()->insetLayout()->take(legend);
  legend->setBorderPen(Qt::NoPen);
  legend->setBrush(Qt::NoBrush);
  legend->setMargins(QMargins(0, 0, right_margin, 0));
  legend->setColumnSpacing(right_margin);
  header_->addElement(0, 0, y_title_);
  header_->addElement(0, 1, legend);
  header_->setColumnStretchFactor(1, smallest_stretch);
  y_title_->setTextFlags(Qt::AlignLeft | Qt::AlignVCenter);
  xAxis->setTicker(x_ticks_);
  yAxis->setTicker(y_ticks_);
}

void ChartPlot::build_cursor() {
  for (QCPAbstractItem* item :
       {static_cast<QCPAbstractItem*>(selection_), static_cast<QCPAbstractItem*>(cursor_line_),
        static_cast<QCPAbstractItem*>(readout_)})
    item->setLayer(QStringLiteral("overlay"));
  readout_->setClipToAxisRect(false);
  readout_->setPadding(QMargins(8, 5, 8, 5));
  readout_->setTextAlignment(Qt::AlignLeft);
  readout_->setPositionAlignment(Qt::AlignTop | Qt::AlignLeft);
  readout_->position->setType(QCPItemPosition::ptAbsolute);
  hint_->setClipToAxisRect(false);
  hint_->position->setType(QCPItemPosition::ptViewportRatio);
  hint_->position->setCoords(0.5, 0.5);
  cursor_line_->setVisible(false);
  readout_->setVisible(false);
  selection_->setVisible(false);
}

void ChartPlot::set_chart(const Chart& chart) {
  chart_ = chart;
  theme_ = chart.colours == ChartColours::colour ? screen_theme_ : black_and_white();
  apply_theme();
  sets_.set_chart(chart, theme_);
  const bool drawable = has_data(chart);
  xAxis->setVisible(drawable);
  yAxis->setVisible(drawable);
  hint_->setVisible(!drawable);
  hint_->setText(to_qt(chart.hint));
}

void ChartPlot::apply_theme() {
  setBackground(QBrush(theme_.panel));
  style_axis(*xAxis, chart_.grid == Grid::vertical || chart_.grid == Grid::both);
  style_axis(*yAxis, chart_.grid == Grid::horizontal || chart_.grid == Grid::both);
  yAxis->setBasePen(Qt::NoPen);
  yAxis->setTickPen(Qt::NoPen);
  title_->setFont(with_pixel_size(reading_font(), title_size));
  title_->setTextColor(theme_.text);
  y_title_->setFont(small_text());
  y_title_->setTextColor(theme_.quiet);
  legend->setFont(small_text());
  legend->setTextColor(theme_.text);
  hint_->setFont(with_pixel_size(text_font(), title_size));
  hint_->setColor(theme_.quiet);
  cursor_line_->setPen(QPen(theme_.text, 1, Qt::DotLine));
  readout_->setFont(small_text());
  readout_->setColor(theme_.panel);
  readout_->setBrush(theme_.text);
  readout_->setPen(Qt::NoPen);
  QColor selected = theme_.accent;
  selection_->setPen(QPen(selected, 1));
  selected.setAlphaF(selection_opacity);
  selection_->setBrush(selected);
}

// The line at zero remains without a grid too: bars and curves below it would float otherwise.
void ChartPlot::style_axis(QCPAxis& axis, bool has_grid) {
  axis.setTickLabelFont(small_text());
  axis.setTickLabelColor(theme_.quiet);
  axis.setLabelFont(small_text());
  axis.setLabelColor(theme_.quiet);
  axis.setBasePen(QPen(theme_.quiet, 1));
  axis.setTickPen(QPen(theme_.quiet, 1));
  axis.setTickLength(0, 4);
  axis.setSubTicks(false);
  axis.grid()->setPen(has_grid ? QPen(theme_.line, 1) : QPen(Qt::NoPen));
  axis.grid()->setZeroLinePen(&axis == yAxis ? QPen(theme_.quiet, 1) : axis.grid()->pen());
}

void ChartPlot::show_part(const ChartPart& part, QSize size) {
  part_ = part;
  setViewport(QRect(QPoint(), size));
  xAxis->setRange(part.x.low, part.x.high);
  yAxis->setRange(part.y.low, part.y.high);
  show_titles(size.width());
  place_x_ticks(size.width());
  place_y_ticks(size.height());
  updateLayout();  // the pixels of the X axis are known only then
  sets_.fill(part, axisRect()->size());
}

// The widest label decides how many have room, and how much is left beside the last one.
void ChartPlot::place_x_ticks(int width) {
  x_ticks_->clear();
  const std::size_t count = point_count(chart_);
  const std::size_t every = std::max<std::size_t>(chart_.label_every, 1);
  int widest = 1;
  for (const std::size_t index : {std::size_t{0}, count / 2, count > 0 ? count - 1 : 0})
    widest = std::max(widest, label_width(to_qt(label_at(chart_, index - index % every))));
  const double room = width - left_margin - right_margin;
  const std::size_t step = label_step(every, part_.x.span(), room / (widest + between_labels));
  axisRect()->setMinimumMargins(QMargins(left_margin, top_margin, std::max(right_margin, widest / 2 + 2), 0));
  for (double x =
           std::ceil(std::max(part_.x.low, 0.0) / static_cast<double>(step)) * static_cast<double>(step);
       x <= part_.x.high && x < static_cast<double>(count); x += static_cast<double>(step)) {
    const std::string label = label_at(chart_, static_cast<std::size_t>(x));
    if (!label.empty()) x_ticks_->addTick(x, to_qt(label));
  }
}

void ChartPlot::place_y_ticks(int height) {
  y_ticks_->clear();
  const double step = nice_step(part_.y.span(), static_cast<double>(height) / y_step_height);
  for (const double y : ticks(part_.y, step)) y_ticks_->addTick(y, to_qt(tick_text(y, step)));
}

void ChartPlot::show_titles(int width) {
  const auto show = [](QCPTextElement& element, const QString& shown) {
    element.setText(shown);
    element.setMinimumSize(shown.isEmpty() ? QSize(1, 1) : QSize());
  };
  show(*title_, elided(to_qt(chart_.title), title_->font(), width));
  show(*y_title_, elided(to_qt(chart_.y_title), y_title_->font(), width / 2));
  xAxis->setLabel(elided(to_qt(chart_.x_title), xAxis->labelFont(), width / 2));
  arrange_legend(width - width_of(small_text(), y_title_->text()));
}

// As many entries side by side as there is room for.
void ChartPlot::arrange_legend(int width) {
  legend->setVisible(legend->itemCount() > 0);
  int widest = 0;
  for (int k = 0; k < plottableCount(); ++k)
    widest = std::max(widest, width_of(small_text(), plottable(k)->name()));
  legend->setWrap(std::max(1, width / (widest + legend->iconSize().width() + 2 * right_margin)));
  legend->setFillOrder(QCPLegend::foColumnsFirst, true);
}

// Beside the line, towards the middle of the chart, and within it.
double ChartPlot::left_of_readout(const QString& says, double line) const {
  const int text_width = QFontMetrics(readout_->font()).boundingRect(QRect(), Qt::TextDontClip, says).width();
  const int width = text_width + readout_->padding().left() + readout_->padding().right();
  const bool leftward = line > axisRect()->center().x();
  const double left = leftward ? line - cursor_distance - width : line + cursor_distance;
  return std::clamp(left, 0.0, std::max(0.0, static_cast<double>(viewport().width() - width)));
}

void ChartPlot::show_cursor(std::optional<std::size_t> point) {
  const double x = point ? static_cast<double>(*point) : 0;
  const bool shown = point && x >= part_.x.low && x <= part_.x.high;
  const QString says = shown ? to_qt(readout_at(chart_, *point)) : QString();
  cursor_line_->setVisible(shown);
  readout_->setVisible(!says.isEmpty());
  cursor_line_->point1->setCoords(x, 0);
  cursor_line_->point2->setCoords(x, 1);
  const double left = left_of_readout(says, xAxis->coordToPixel(x));
  readout_->position->setCoords(left, axisRect()->top() + cursor_distance);
  readout_->setText(says);
  layer(QStringLiteral("overlay"))->replot();
}

void ChartPlot::show_selection(const std::optional<Range>& x) {
  selection_->setVisible(x.has_value());
  const Range shown = x.value_or(Range{});
  selection_->topLeft->setCoords(shown.low, part_.y.high);
  selection_->bottomRight->setCoords(shown.high, part_.y.low);
  layer(QStringLiteral("overlay"))->replot();
}

}  // namespace halden
