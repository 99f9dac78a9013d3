// The small notice window CHKSPEED on the screen: says what the program is busy with, on which port, and how
// much of the wait is over. It takes no focus, cannot be closed, and does not block the other windows. The
// recording mark shows the notice of a recording.
#pragma once

#include <QLabel>
#include <QLineEdit>
#include <QWidget>

#include "screen/ui/mirror.h"
#include "screen/ui/theme.h"

namespace halden {

class NoticeWindow : public QWidget {
  Q_OBJECT

 public:
  // Stands over the middle of `main_window` while that is visible, otherwise in the middle of the screen.
  NoticeWindow(Window& window, QWidget& main_window, Look look);

  // Not shown while that window, which shows the notice itself, is on the screen.
  void give_way_to(const QWidget& host) { host_ = &host; }

  void show_changes();

 protected:
  void closeEvent(QCloseEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void build();
  QWidget* build_port();
  QWidget* build_bar();
  void centre();
  bool wanted() const;

  Window& window_;
  QWidget& main_window_;
  const QWidget* host_ = nullptr;
  Theme theme_;
  Mirror mirror_;
  QLabel* caption_;
  QLineEdit* message_;
};

}  // namespace halden
