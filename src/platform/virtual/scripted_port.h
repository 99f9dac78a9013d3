// A serial port whose other end is a script: bytes arrive at given moments, and what was sent is recorded
// with its time.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "platform/serial_port.h"
#include "platform/virtual/virtual_world.h"

namespace halden {

class ScriptedPort : public SerialPort {
 public:
  explicit ScriptedPort(VirtualWorld& world) : world_(world) {}

  PortRefusal open(int number) override;
  void close() override { state_ = PortState::closed; }
  void keep_looking(int) override { state_ = PortState::vanished; }
  PortState state() const override { return state_; }
  void send(std::string_view bytes) override;
  std::string receive() override;
  std::size_t received_count() override;
  std::string device_name(int number) const override { return "script " + std::to_string(number); }
  bool present(int number) const override { return refusals.count(number) == 0; }

  struct Sent {
    double time_s;
    std::string bytes;
    bool operator==(const Sent&) const = default;
  };

  // Lets the bytes arrive, `after_s` from now.
  void arrive(double after_s, std::string bytes);

  // Lets the bytes arrive `after_s` after the next send of `request`.
  void answer(std::string request, std::string reply, double after_s = 0.05);

  std::map<int, PortRefusal> refusals;
  std::vector<Sent> sent;
  std::vector<int> opened;

 private:
  void gather();

  struct Answer {
    std::string request, reply;
    double after_s;
  };

  VirtualWorld& world_;
  PortState state_ = PortState::closed;
  std::multimap<std::int64_t, std::string> coming_;
  std::vector<Answer> answers_;
  std::string waiting_;
};

}  // namespace halden
