// The computer's clock, and waits during which the windows keep working. Needs a QCoreApplication, no
// windows.
#pragma once

#include "platform/clock.h"

namespace halden {

class QtWorld;

class QtClock : public Clock {
 public:
  explicit QtClock(QtWorld& world) : world_(world) {}

  double seconds_since_midnight() const override;
  double monotonic_s() const override;
  Date today() const override;
  std::string short_date() const override;
  void pause(Yield yield, double at_most_s) override;
  void run_later(std::function<void()> handler) override;

 private:
  void throw_when_ending() const;

  QtWorld& world_;
};

}  // namespace halden
