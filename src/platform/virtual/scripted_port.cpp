#include "platform/virtual/scripted_port.h"

#include <algorithm>
#include <utility>

namespace halden {

PortRefusal ScriptedPort::open(int number) {
  opened.push_back(number);
  if (number < first_port_number || number > last_port_number) return PortRefusal::invalid_number;
  if (const auto refused = refusals.find(number); refused != refusals.end()) return refused->second;
  state_ = PortState::open;
  return PortRefusal::none;
}

void ScriptedPort::send(std::string_view bytes) {
  if (state_ != PortState::open) return;
  sent.push_back({world_.clock.monotonic_s(), std::string(bytes)});
  const auto found = std::find_if(answers_.begin(), answers_.end(),
                                  [bytes](const Answer& answer) { return answer.request == bytes; });
  if (found == answers_.end()) return;
  const Answer answer = std::move(*found);
  answers_.erase(found);
  arrive(answer.after_s, answer.reply);
}

void ScriptedPort::arrive(double after_s, std::string bytes) {
  coming_.emplace(world_.now_us() + static_cast<std::int64_t>(after_s * 1e6), std::move(bytes));
}

void ScriptedPort::answer(std::string request, std::string reply, double after_s) {
  answers_.push_back({std::move(request), std::move(reply), after_s});
}

void ScriptedPort::gather() {
  while (!coming_.empty() && coming_.begin()->first <= world_.now_us()) {
    waiting_ += coming_.begin()->second;
    coming_.erase(coming_.begin());
  }
}

std::string ScriptedPort::receive() {
  gather();
  return std::exchange(waiting_, {});
}

std::size_t ScriptedPort::received_count() {
  gather();
  return waiting_.size();
}

}  // namespace halden
