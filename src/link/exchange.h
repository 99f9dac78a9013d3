// The steps around every exchange with the meter: stop polling, do the work, read the meter's status again,
// resume polling.
#pragma once

#include <functional>
#include <utility>
#include <vector>

#include "link/polling.h"
#include "link/status_query.h"

namespace halden {

enum class Afterwards { read_status, just_poll };

class Exchange {
 public:
  // Both outlive the exchange.
  Exchange(Polling& polling, StatusQuery& query) : polling_(polling), query_(query) {}

  // `work` says whether the status is to be read when it is done; the same is returned.
  Afterwards run(const std::function<Afterwards()>& work) {
    polling_.stop_polling();
    const Afterwards afterwards = work();
    if (afterwards == Afterwards::read_status) query_.query_meter_status();
    polling_.resume_polling(1);
    tell_ended();
    return afterwards;
  }

  // For an exchange that runs without these steps, such as a download.
  void tell_ended() const {
    for (const auto& handler : ended_) handler();
  }

  // Called after each exchange, once polling goes on.
  void on_ended(std::function<void()> handler) { ended_.push_back(std::move(handler)); }

 private:
  Polling& polling_;
  StatusQuery& query_;
  std::vector<std::function<void()>> ended_;
};

}  // namespace halden
