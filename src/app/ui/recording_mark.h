// The recording notice on the screen: a small mark at the end of the menu bar, where it covers no reading
// during a long recording. It shows the notice window CHKSPEED while that has no caption.
#pragma once

#include <QLabel>
#include <QWidget>

#include "screen/ui/mirror.h"
#include "screen/ui/theme.h"

namespace halden {

class RecordingMark : public QWidget {
  Q_OBJECT

 public:
  RecordingMark(Window& notice, const Theme& theme);

  void show_changes();

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  Window& window_;
  Theme theme_;
  Mirror mirror_;
  QLabel* text_;
};

}  // namespace halden
