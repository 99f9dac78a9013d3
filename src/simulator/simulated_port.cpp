#include "simulator/simulated_port.h"

#include <algorithm>
#include <utility>

namespace halden::simulator {

namespace {

// Nearly five hours of the line, far longer than any stored file.
constexpr std::size_t buffer_bytes = std::size_t{16} * 1024 * 1024;

bool is_port_number(int number) { return number >= first_port_number && number <= last_port_number; }

}  // namespace

SimulatedPort::SimulatedPort(Clock& clock, Meter& meter) : clock_(clock), meter_(meter) { collect(); }

PortRefusal SimulatedPort::open(int number) {
  close();
  if (!is_port_number(number)) return PortRefusal::invalid_number;
  if (!plugged_) return PortRefusal::missing;
  const PortRefusal refusal = refusals_[static_cast<std::size_t>(number)];
  open_ = refusal == PortRefusal::none;
  return refusal;
}

void SimulatedPort::close() {
  collect();
  open_ = false;
  received_.clear();
}

void SimulatedPort::keep_looking(int) { open_ = true; }

PortState SimulatedPort::state() const {
  if (!open_) return PortState::closed;
  return plugged_ ? PortState::open : PortState::vanished;
}

void SimulatedPort::send(std::string_view bytes) {
  if (state() == PortState::open) meter_.receive(bytes, clock_.monotonic_s());
}

std::string SimulatedPort::receive() {
  collect();
  return std::exchange(received_, {});
}

std::size_t SimulatedPort::received_count() {
  collect();
  return received_.size();
}

std::string SimulatedPort::device_name(int number) const {
  return is_port_number(number) ? "simulated meter" : std::string();
}

bool SimulatedPort::present(int number) const {
  return is_port_number(number) && plugged_ &&
         refusals_[static_cast<std::size_t>(number)] != PortRefusal::missing;
}

void SimulatedPort::refuse(int number, PortRefusal why, std::string lock_file) {
  refusals_.at(static_cast<std::size_t>(number)) = why;
  lock_file_ = std::move(lock_file);
}

void SimulatedPort::unplug() {
  collect();
  plugged_ = false;
  received_.clear();
}

void SimulatedPort::plug_in() {
  collect();
  plugged_ = true;
}

void SimulatedPort::press_transient() { meter_.press_transient(clock_.monotonic_s()); }

// The meter sends whether the port is open or not.
void SimulatedPort::collect() {
  const std::string arrived = meter_.take_output(clock_.monotonic_s());
  if (state() == PortState::open)
    received_ += arrived.substr(0, buffer_bytes - std::min(buffer_bytes, received_.size()));
}

}  // namespace halden::simulator
