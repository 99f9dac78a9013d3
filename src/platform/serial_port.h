// The one serial line to the meter: 9600 baud, no parity, 8 data bits, 1 stop bit.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace halden {

inline constexpr int first_port_number = 1;
inline constexpr int last_port_number = 16;

// Why a port did not open; `none` means that it did.
enum class PortRefusal { none, invalid_number, missing, forbidden, in_use, not_serial, failed };

// A port that vanished (adapter pulled) is for the logic an open port on which nothing arrives. The platform
// looks for it and opens it again by itself.
enum class PortState { closed, open, vanished };

class SerialPort {
 public:
  virtual ~SerialPort() = default;

  // Opens port `number` (1..16). Closes the one that was open before.
  virtual PortRefusal open(int number) = 0;
  virtual void close() = 0;

  // Treats port `number` as vanished, for a port that was open a moment ago and could not be opened again: it
  // is opened without a further call as soon as it is back.
  virtual void keep_looking(int number) = 0;
  virtual PortState state() const = 0;

  // Sends the bytes; drops them silently when nothing is open.
  virtual void send(std::string_view bytes) = 0;

  // Takes what was received so far. The piece is bounded; when more has arrived, the next call returns it.
  virtual std::string receive() = 0;

  // How many received bytes wait to be taken.
  virtual std::size_t received_count() = 0;

  // The device of a port number ("/dev/ttyUSB0", "COM3", "simulated meter"), and whether it is there now.
  virtual std::string device_name(int number) const = 0;
  virtual bool present(int number) const = 0;

  // The file by which a program, which may have ended long ago, keeps others from opening a port number;
  // empty when there is none.
  virtual std::string lock_file(int) const { return {}; }
};

}  // namespace halden
