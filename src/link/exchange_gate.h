// Keeps exchanges from overlapping: a click that would start one while another runs is kept, and runs once
// when that one has ended.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/clock.h"
#include "screen/window.h"

namespace halden {

class ExchangeGate {
 public:
  explicit ExchangeGate(Clock& clock) : clock_(clock) {}

  // Runs `exchange` now, or keeps it under `name` when something runs. A name that is kept already is not
  // kept twice.
  void run(const std::string& name, const std::function<void()>& exchange);

  // Runs a live tick: exchanges started while it lets events run follow it in a handler of their own, so that
  // ticks go on during them. A tick inside an exchange, or inside another tick, just runs.
  void run_tick(const std::function<void()>& tick);

  // A click on the control runs the exchange, or keeps it.
  void connect(Window& window, std::string_view control, std::function<void()> exchange);

  bool busy() const { return busy_; }

 private:
  class Busy;

  void run_now(const std::function<void()>& work);
  void run_kept();

  Clock& clock_;
  bool busy_ = false;
  std::vector<std::pair<std::string, std::function<void()>>> kept_;
};

}  // namespace halden
