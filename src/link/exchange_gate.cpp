#include "link/exchange_gate.h"

#include <algorithm>

namespace halden {

// Clears the flag also when ProgramEnded is thrown out of a wait.
class ExchangeGate::Busy {
 public:
  explicit Busy(bool& flag) : flag_(flag) { flag_ = true; }
  ~Busy() { flag_ = false; }
  Busy(const Busy&) = delete;
  Busy& operator=(const Busy&) = delete;

 private:
  bool& flag_;
};

void ExchangeGate::run(const std::string& name, const std::function<void()>& exchange) {
  if (!busy_) {
    run_now(exchange);
    run_kept();
    return;
  }
  if (alone_) {
    if (refused_) refused_(name);
    return;
  }
  const bool known =
      std::any_of(kept_.begin(), kept_.end(), [&name](const auto& waiting) { return waiting.first == name; });
  if (!known) kept_.emplace_back(name, exchange);
}

void ExchangeGate::run_alone(const std::string& name, const std::function<void()>& exchange) {
  run(name, [this, exchange] {
    const Busy alone(alone_);
    exchange();
  });
}

void ExchangeGate::run_tick(const std::function<void()>& tick) {
  if (busy_) {
    tick();
    return;
  }
  run_now(tick);
  if (!kept_.empty()) clock_.run_later([this] { run_kept(); });
}

void ExchangeGate::connect(Window& window, std::string_view control, std::function<void()> exchange) {
  const std::string name = window.name() + "." + std::string(control);
  window.on_click(control, [this, name, exchange = std::move(exchange)] { run(name, exchange); });
}

void ExchangeGate::run_now(const std::function<void()>& work) {
  const Busy busy(busy_);
  work();
}

void ExchangeGate::run_kept() {
  while (!busy_ && !kept_.empty()) {
    const auto next = std::move(kept_.front());
    kept_.erase(kept_.begin());
    run_now(next.second);
  }
}

}  // namespace halden
