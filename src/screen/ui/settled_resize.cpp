#include "screen/ui/settled_resize.h"

#include <utility>

namespace halden {

namespace {

// The size has settled when it stays the same for this long.
constexpr int quiet_ms = 200;

}  // namespace

SettledResize::SettledResize(std::function<bool()> busy, std::function<void()> settled)
    : busy_(std::move(busy)), settled_(std::move(settled)) {
  quiet_.setSingleShot(true);
  quiet_.setInterval(quiet_ms);
  QObject::connect(&quiet_, &QTimer::timeout, &quiet_, [this] { report_when_idle(); });
}

void SettledResize::shown() {
  if (was_shown_) return;
  was_shown_ = true;
  quiet_.start();
}

void SettledResize::resized(QSize size) {
  const bool changed = size != size_;
  size_ = size;
  if (was_shown_ && changed) quiet_.start();
}

void SettledResize::report_when_idle() {
  if (busy_())
    quiet_.start();
  else
    settled_();
}

}  // namespace halden
