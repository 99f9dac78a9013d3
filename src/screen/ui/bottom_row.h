// The line at the bottom of a window: texts side by side, shortened where they have no room.
#pragma once

#include <QWidget>
#include <string>

#include "screen/ui/theme.h"

class QHBoxLayout;

namespace halden {

class ElidedLabel;
class Mirror;

class BottomRow : public QWidget {
  Q_OBJECT

 public:
  explicit BottomRow(const Theme& theme, QWidget* parent = nullptr);

  // Shows the control of that name. Without a stretch the text takes its own width, down to `least_width`
  // pixels, and a gap follows it.
  ElidedLabel* add_field(const std::string& control, Mirror& mirror, int least_width, int stretch = 0);

 protected:
  QHBoxLayout& row() { return *row_; }
  void paintEvent(QPaintEvent* event) override;

 private:
  QHBoxLayout* row_;
  Theme theme_;
};

}  // namespace halden
