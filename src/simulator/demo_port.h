// The port of the demo: COM 1 is the simulated meter, every other number a real port.
#pragma once

#include "simulator/simulated_port.h"

namespace halden::simulator {

// Only one of the two is open at a time.
class DemoPort : public SerialPort {
 public:
  // Both outlive the port.
  DemoPort(SimulatedPort& simulated, SerialPort& real) : simulated_(simulated), real_(real) {}

  PortRefusal open(int number) override;
  void close() override;
  void keep_looking(int number) override;
  PortState state() const override { return active_->state(); }
  void send(std::string_view bytes) override { active_->send(bytes); }
  std::string receive() override { return active_->receive(); }
  std::size_t received_count() override { return active_->received_count(); }
  std::string device_name(int number) const override { return port_for(number).device_name(number); }
  bool present(int number) const override { return port_for(number).present(number); }
  std::string lock_file(int number) const override { return port_for(number).lock_file(number); }

 private:
  SerialPort& port_for(int number) const;

  SimulatedPort& simulated_;
  SerialPort& real_;
  SerialPort* active_ = &simulated_;
};

}  // namespace halden::simulator
