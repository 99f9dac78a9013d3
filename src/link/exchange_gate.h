// Keeps exchanges from overlapping: a click that would start one while another runs is kept, and runs once
// after that one has ended.
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

  // Runs `exchange` now, or keeps it under `name` while an exchange or a live tick runs. A name that is kept
  // already is not kept twice.
  void run(const std::string& name, const std::function<void()>& exchange);

  // The same, but nothing follows: what the user starts meanwhile is refused. For a transfer that may last an
  // hour, after which nobody expects an earlier click to take effect.
  void run_alone(const std::string& name, const std::function<void()>& exchange);

  // Called for each click that run_alone refuses.
  void on_refused(std::function<void(const std::string& name)> handler) { refused_ = std::move(handler); }

  // Runs a live tick. Exchanges that the user starts during the tick run after it in a handler of their own,
  // so that ticks continue during them. A tick during an exchange or another tick runs at once.
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
  bool alone_ = false;
  std::function<void(const std::string& name)> refused_;
  std::vector<std::pair<std::string, std::function<void()>>> kept_;
};

}  // namespace halden
