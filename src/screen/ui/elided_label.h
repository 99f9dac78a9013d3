// A label that shortens its text with an ellipsis where there is no room, and then shows the whole text as
// tooltip.
#pragma once

#include <QLabel>
#include <string_view>

namespace halden {

class FormWindow;

class ElidedLabel : public QLabel {
  Q_OBJECT

 public:
  // Where the row is too short, it gives up its room down to `least_width` pixels.
  explicit ElidedLabel(int least_width, QWidget* parent = nullptr);

  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  bool event(QEvent* event) override;

 private:
  int least_width_;
};

// A line of a window that shows the text of a control, shortened where it has no room.
ElidedLabel* build_text_line(std::string_view control, FormWindow& form);

}  // namespace halden
