// A thin bar with a piece that wanders along it, so that a long wait is seen to be alive.
#pragma once

#include <QTimer>
#include <QWidget>

#include "screen/ui/theme.h"

namespace halden {

// Moves only while it is visible, a few steps a second.
class BusyBar : public QWidget {
  Q_OBJECT

 public:
  explicit BusyBar(const Theme& theme, QWidget* parent = nullptr);

 protected:
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  Theme theme_;
  QTimer steps_;
  int step_ = 0;
};

}  // namespace halden
