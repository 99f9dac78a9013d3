// The simulated meter as a SerialPort, for the demo, for tests, and for use without a meter.
#pragma once

#include <array>
#include <string>

#include "platform/clock.h"
#include "platform/serial_port.h"
#include "simulator/meter.h"

namespace halden::simulator {

// Every port number leads to the same meter. What arrives while the port is closed or vanished is lost.
class SimulatedPort : public SerialPort {
 public:
  // Both outlive the port.
  SimulatedPort(Clock& clock, Meter& meter);

  PortRefusal open(int number) override;
  void close() override;
  void keep_looking(int number) override;
  PortState state() const override;
  void send(std::string_view bytes) override;
  std::string receive() override;
  std::size_t received_count() override;

  // "simulated meter" for 1..16, empty otherwise.
  std::string device_name(int number) const override;
  bool present(int number) const override;
  std::string lock_file(int) const override { return lock_file_; }

  // From now on that port (1..16, anything else throws std::out_of_range) is refused; PortRefusal::none lifts
  // the refusal. The lock file is that of every port.
  void refuse(int number, PortRefusal why, std::string lock_file = {});

  // The adapter pulled and put back: an open port vanishes, and is open again by itself.
  void unplug();
  void plug_in();

  // The button of the meter, pressed now.
  void press_transient();

 private:
  void collect();

  Clock& clock_;
  Meter& meter_;
  std::array<PortRefusal, last_port_number + 1> refusals_{};
  std::string lock_file_;
  bool open_ = false;
  bool plugged_ = true;
  std::string received_;  // at most 16 MiB; a full buffer drops what arrives next
};

}  // namespace halden::simulator
