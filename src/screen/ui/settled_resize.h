// Reports once that a window was shown or its size has settled after a drag; never while the logic is busy.
#pragma once

#include <QSize>
#include <QTimer>
#include <functional>

namespace halden {

class SettledResize {
 public:
  // `busy` says whether a handler or a wait is running.
  SettledResize(std::function<bool()> busy, std::function<void()> settled);

  // The window has been shown, or has this size now. The same size again is no change.
  void shown();
  void resized(QSize size);

 private:
  void report_when_idle();

  std::function<bool()> busy_;
  std::function<void()> settled_;
  QTimer quiet_;
  QSize size_;
  bool was_shown_ = false;
};

}  // namespace halden
