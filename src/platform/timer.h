// A periodic timer of the main window.
#pragma once

#include <functional>

namespace halden {

class Timer {
 public:
  virtual ~Timer() = default;

  virtual bool enabled() const = 0;

  // Switching on starts a full period; switching off drops a tick that is held back.
  virtual void set_enabled(bool enabled) = 0;

  virtual int period_ms() const = 0;

  // Starts a full period anew, also while enabled.
  virtual void set_period_ms(int period_ms) = 0;

  // The tick handler. Never called inside itself, never during a wait that does not yield; at most one tick
  // is held back and comes after such a wait.
  virtual void on_tick(std::function<void()> handler) = 0;
};

}  // namespace halden
