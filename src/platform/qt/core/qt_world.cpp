#include "platform/qt/core/qt_world.h"

#include <QCoreApplication>
#include <utility>

#include "platform/program_end.h"
#include "platform/qt/core/steady_time.h"

namespace halden {

namespace {

// Shorter waits do not change the mouse pointer.
constexpr double long_wait_s = 0.3;

// A mirror that shows a window can cause a handler that changes values again. More rounds than this mean two
// mirrors that keep changing each other's values; they go on at the next turn.
constexpr int max_refresh_rounds = 4;

}  // namespace

QtWorld::QtWorld() = default;

bool QtWorld::run(const std::function<void()>& handler) {
  if (ending_) return false;
  ++running_handlers_;
  const bool complete = dispatch(handler);
  --running_handlers_;
  refresh();
  end_wait();
  if (ending_) leave_event_loop();
  return complete;
}

void QtWorld::run_input(std::function<void()> handler) {
  if (holding())
    kept_inputs_.push_back(std::move(handler));
  else
    run(handler);
}

void QtWorld::run_kept_inputs() {
  std::deque<std::function<void()>> inputs = std::exchange(kept_inputs_, {});
  for (std::function<void()>& input : inputs) run_input(std::move(input));
}

void QtWorld::add_mirror(std::function<void()> mirror) { mirrors_.push_back(std::move(mirror)); }

void QtWorld::refresh() {
  if (refreshing_) {
    refresh_again_ = true;
    return;
  }
  refreshing_ = true;
  refresh_again_ = true;
  for (int round = 0; refresh_again_ && round < max_refresh_rounds; ++round) {
    refresh_again_ = false;
    for (std::size_t i = 0; i < mirrors_.size() && !ending_; ++i) mirrors_[i]();
  }
  refreshing_ = false;
}

void QtWorld::end_program() {
  if (ending_) return;
  ending_ = true;
  for (std::size_t i = 0; i < end_callbacks_.size(); ++i) end_callbacks_[i]();
  Q_EMIT ended();
  leave_event_loop();
}

void QtWorld::on_end(std::function<void()> callback) { end_callbacks_.push_back(std::move(callback)); }

// Queued, so that it also ends a loop that has not started yet, and bound to this object, so that no
// call is left for a later loop. QCoreApplication::quit would first try to close the windows, which may
// refuse.
void QtWorld::leave_event_loop() {
  if (running_handlers_ > 0) return;
  QMetaObject::invokeMethod(
      this, [] { QCoreApplication::exit(0); }, Qt::QueuedConnection);
}

QtWorld::Hold::Hold(QtWorld& world) : world_(world) {
  ++world_.holds_;
  world_.begin_turn();
}

// run() ends the wait at the end of a handler; outside every handler it must be ended here.
QtWorld::Hold::~Hold() {
  --world_.holds_;
  if (world_.running_handlers_ == 0) world_.end_wait();
}

void QtWorld::begin_turn() {
  if (!waiting_) {
    waiting_ = true;
    wait_began_s_ = steady_s();
  }
  if (wait_shown_ || steady_s() - wait_began_s_ < long_wait_s) return;
  wait_shown_ = true;
  Q_EMIT long_wait_began();
}

void QtWorld::end_wait() {
  if (!waiting_ || holding()) return;
  waiting_ = false;
  wait_shown_ = false;
  Q_EMIT wait_over();
  if (!kept_inputs_.empty())
    QMetaObject::invokeMethod(
        this, [this] { run_kept_inputs(); }, Qt::QueuedConnection);
}

}  // namespace halden
