#include "logger/meter_commands.h"

namespace halden {

namespace {

constexpr double after_character_s = 2.0;
constexpr double after_return_s = 3.0;
constexpr double before_erase_s = 0.5;
constexpr double between_erase_bytes_s = 2.0;

constexpr std::string_view erase_byte = "\x03";

}  // namespace

void select_stored_file(Waits& waits, SerialPort& port, std::string_view digits) {
  const auto send = [&](std::string_view character, double wait_s) {
    port.send(character);
    waits.timed_wait(wait_s, Yield::no);
  };
  send("R", after_character_s);
  for (std::size_t i = 0; i < digits.size(); ++i) send(digits.substr(i, 1), after_character_s);
  send("\r", after_return_s);
}

void erase_memory(Waits& waits, SerialPort& port) {
  waits.timed_wait(before_erase_s, Yield::no);
  port.send(erase_byte);
  waits.timed_wait(between_erase_bytes_s, Yield::no);
  port.send(erase_byte);
}

}  // namespace halden
