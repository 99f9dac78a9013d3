#include "simulator/demo_port.h"

namespace halden::simulator {

namespace {

constexpr int demo_port_number = 1;

}  // namespace

PortRefusal DemoPort::open(int number) {
  close();
  active_ = &port_for(number);
  return active_->open(number);
}

void DemoPort::keep_looking(int number) {
  close();
  active_ = &port_for(number);
  active_->keep_looking(number);
}

void DemoPort::close() { active_->close(); }

SerialPort& DemoPort::port_for(int number) const {
  if (number == demo_port_number) return simulated_;
  return real_;
}

}  // namespace halden::simulator
