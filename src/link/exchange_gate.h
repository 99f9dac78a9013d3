// Keeps exchanges from overlapping: a click that would start one while another runs is kept, and runs once
// when that one has ended.
#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace halden {

class ExchangeGate {
 public:
  // Runs `exchange` now, or keeps it under `name` when something runs. A name that is kept already is not
  // kept twice.
  void run(const std::string& name, std::function<void()> exchange);

  // Runs a live tick: clicks made while it lets events run wait for its end. A tick inside an exchange, or
  // inside another tick, just runs.
  void run_tick(const std::function<void()>& tick);

  bool busy() const { return busy_; }

 private:
  class Busy;

  void run_now(const std::function<void()>& work);
  void run_kept();

  bool busy_ = false;
  std::vector<std::pair<std::string, std::function<void()>>> kept_;
};

}  // namespace halden
