// A chart on the screen. The wheel zooms (over the Y axis, or with Ctrl, in its direction), dragging moves or
// selects the part to be shown, a double click shows the whole again; the cursor says what stands at the
// point under the mouse. With the keyboard: arrows, Home and End move the cursor, + and - zoom about it. A
// new chart of the same subject, like the next frame of a live view, keeps zoom and cursor.
#pragma once

#include <QString>
#include <QTimer>
#include <QWidget>
#include <cstddef>
#include <memory>
#include <optional>
#include <string_view>

#include "chart/axes.h"
#include "chart/chart.h"
#include "screen/ui/paper_twin.h"
#include "screen/ui/theme.h"

namespace halden {

class ChartPlot;
class FormWindow;

class ChartView : public QWidget, public PaperTwin {
  Q_OBJECT

 public:
  ChartView(const Theme& theme, QWidget* parent);

  // What dragging does. Where it selects, it moves with the Shift key held.
  enum class Drag { moves, selects };
  void set_drag(Drag drag) { drag_ = drag; }

  // Without a chart the view is empty.
  void set_chart(std::shared_ptr<const Chart> chart);

  const ChartPart& shown() const { return shown_; }

  // Where the cursor stands: at the point of the mouse or the keyboard, otherwise at the marked one.
  std::optional<std::size_t> cursor() const;
  QString readout() const;

  // Where a position of the chart stands in the widget, in pixels.
  QPointF to_pixels(double x, double y) const;

  // Shows the same part as the other view.
  void show_as(const QWidget& on_screen) override;

  // What is shown, as a picture for the clipboard: on white, twice as fine as the screen.
  QImage paper_image() const;

 Q_SIGNALS:
  // The user clicked the point, or moved the cursor there with the keyboard.
  void point_chosen(std::size_t point);

  // The user has zoomed or moved, and what is shown lasts: from one point to another. Numbers may lie before
  // the first point and behind the last one, as far as the chart says that more can be had there.
  void view_settled(int first_point, int last_point);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  QRect plot_area() const;
  void draw();
  void set_cursor(std::optional<std::size_t> point);
  void show_cursor();
  void move_cursor(double points);
  void zoom_x(double factor, double about);
  void zoom_y(double factor, double about);
  void drag_to(const QPointF& position);
  Range selected_to(const QPointF& position) const;
  void end_selection(const QPointF& position);
  void show_x(const Range& x);
  void settle(int after_ms);
  QPointF to_chart(const QPointF& pixels) const;
  std::optional<std::size_t> point_at(const QPointF& pixels) const;

  Theme theme_;
  ChartPlot* plot_;
  std::shared_ptr<const Chart> chart_;
  ChartPart whole_;
  ChartPart shown_;
  std::optional<Range> zoomed_x_;  // absent: the whole
  std::optional<Range> zoomed_y_;
  std::optional<std::size_t> cursor_;
  Drag drag_ = Drag::moves;
  QPointF dragged_from_;
  bool dragging_ = false;
  bool selecting_ = false;
  QTimer settling_;
};

// A view that shows the chart of a control of the window. A chart without titles has the control's accessible
// name.
ChartView* tied_chart(std::string_view control, FormWindow& form);

}  // namespace halden
