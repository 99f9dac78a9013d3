// A periodic timer of the main window on Qt's event loop. While ticks must wait (a tick or a wait without
// input is running) no Qt timer runs at all, so that holding back takes no processor time.
#pragma once

#include <QTimer>

#include "platform/timer.h"
#include "platform/timer_schedule.h"

namespace halden {

class QtWorld;

class QtTimer : public Timer {
 public:
  explicit QtTimer(QtWorld& world);

  bool enabled() const override { return schedule_.enabled(); }
  void set_enabled(bool enabled) override;
  int period_ms() const override { return schedule_.period_ms(); }
  void set_period_ms(int period_ms) override;
  void on_tick(std::function<void()> handler) override { handler_ = std::move(handler); }

 private:
  void arm();
  void fire();

  QtWorld& world_;
  TimerSchedule schedule_;
  std::function<void()> handler_;
  QTimer alarm_;
  bool in_tick_ = false;
};

}  // namespace halden
