#include "app/port_choice.h"

#include <optional>

#include "platform/clock.h"
#include "platform/dialogs.h"
#include "readings/numbers.h"

namespace halden {

namespace {

constexpr double after_open_s = 1.0;
constexpr double open_turn_s = 0.05;
constexpr double open_limit_s = 2.0;

}  // namespace

void PortChoice::open_stored(int first_port) {
  std::optional<std::string> stored = configuration_.read_port();
  if (!stored && first_port != 0) stored = std::to_string(first_port);
  if (!stored) {
    platform_.dialogs.message({"Select COM port from the OPTION menu", "", Icon::none});
    return;
  }
  const int number = to_int16(leading_number(*stored)).value_or(0);
  const PortRefusal refusal = open(number);
  waits_.timed_wait(after_open_s, Yield::no);
  if (refusal != PortRefusal::none) {
    status_line_.tell_refusal(number, refusal);
    platform_.dialogs.message({"Users select comm port " + *stored + " is not available", "", Icon::none});
    return;
  }
  show_chosen(number);
  state_.port_ready = 1;
  wait_until_open();
  query_.query_meter_status();
  polling_.resume_polling(1);
}

void PortChoice::choose(int number) {
  polling_.stop_polling();
  int old = 0;
  if (state_.port_ready == 1) {
    old = number_;
    platform_.port.close();
  }
  if (const PortRefusal refusal = open(number); refusal != PortRefusal::none) {
    status_line_.tell_refusal(number, refusal);
    fall_back(number, old);
    return;
  }
  show_chosen(number);
  status_line_.tell_saved(configuration_.write_port(number));
  state_.port_ready = 1;
  wait_until_open();
  query_.query_meter_status();
  polling_.resume_polling(1);
  polling_.resume_polling(1);
}

PortRefusal PortChoice::open(int number) {
  const PortRefusal refusal = platform_.port.open(number);
  if (refusal == PortRefusal::none) number_ = number;
  return refusal;
}

void PortChoice::fall_back(int number, int old) {
  platform_.dialogs.message({"COM " + std::to_string(number) + " not available", "", Icon::none});
  if (open(old) != PortRefusal::none && state_.port_ready == 1) platform_.port.keep_looking(old);
  polling_.resume_polling(1);
}

void PortChoice::show_chosen(int number) {
  window_["comm_port"].text = "COM " + std::to_string(number);
  for (int port = first_port_number; port <= last_port_number; ++port)
    window_[element("port_number", port)].checked = port == number;
  status_line_.tell_port(number);
}

void PortChoice::wait_until_open() {
  const double end_s = platform_.clock.monotonic_s() + open_limit_s;
  while (platform_.port.state() == PortState::closed && platform_.clock.monotonic_s() < end_s)
    platform_.clock.pause(Yield::no, open_turn_s);
}

void PortChoice::describe_ports() {
  for (int port = first_port_number; port <= last_port_number; ++port) {
    const bool present = platform_.port.present(port);
    window_[element("port_number", port)].tooltip =
        platform_.port.device_name(port) + (present ? " (present)" : " (not there)");
  }
}

}  // namespace halden
