#include "app/port_choice.h"

#include <optional>

#include "platform/clock.h"
#include "platform/dialogs.h"
#include "readings/numbers.h"
#include "screen/failure_texts.h"
#include "screen/meter_rec/menus.h"
#include "screen/meter_rec/panels.h"
#include "screen/windows.h"

namespace halden {

namespace {

constexpr double after_open_s = 1.0;
constexpr double open_turn_s = 0.05;
constexpr double open_limit_s = 2.0;

constexpr Text present_device = {"{}, present", "{}，已接上"};
constexpr Text missing_device = {"{}, not there", "{}，未接上"};

}  // namespace

void PortChoice::connect() {
  window_.on_click("comm_port", [this] { describe_ports(); });
  for (int port = first_port_number; port <= last_port_number; ++port)
    link_.gate.connect(window_, element("port_number", port), [this, port] { choose(port); });
}

void PortChoice::open_stored(int first_port) {
  std::optional<std::string> stored = configuration_.read_port();
  if (!stored && first_port != 0) stored = std::to_string(first_port);
  if (stored)
    link_.exchange.run([&] { return try_stored(*stored); });
  else
    platform_.dialogs.message({"Select COM port from the OPTION menu", "", Icon::none});
}

Afterwards PortChoice::try_stored(const std::string& stored) {
  const int number = to_int16(leading_number(stored)).value_or(0);
  const PortRefusal refusal = open(number);
  link_.waits.timed_wait(after_open_s, Yield::no);
  if (refusal != PortRefusal::none) {
    tell_refusal(number, refusal);
    platform_.dialogs.message({"Users select comm port " + stored + " is not available", "", Icon::none});
    return Afterwards::just_poll;
  }
  show_chosen(number);
  link_.state.port_ready = 1;
  wait_until_open();
  return Afterwards::read_status;
}

void PortChoice::choose(int number) {
  const Afterwards afterwards = link_.exchange.run([&] { return try_chosen(number); });
  if (afterwards == Afterwards::read_status) link_.polling.resume_polling(1);
}

Afterwards PortChoice::try_chosen(int number) {
  int old = 0;
  if (link_.state.port_ready == 1) {
    old = number_;
    platform_.port.close();
  }
  if (const PortRefusal refusal = open(number); refusal != PortRefusal::none) {
    tell_refusal(number, refusal);
    fall_back(number, old);
    return Afterwards::just_poll;
  }
  show_chosen(number);
  window_.set_text(status_hint, not_kept_hint(configuration_.write_port(number), link_.state.language));
  link_.state.port_ready = 1;
  wait_until_open();
  return Afterwards::read_status;
}

PortRefusal PortChoice::open(int number) {
  const PortRefusal refusal = platform_.port.open(number);
  if (refusal == PortRefusal::none) number_ = number;
  link_.state.file_bytes = FileBytes::none;  // of the meter at another port
  return refusal;
}

void PortChoice::tell_refusal(int number, PortRefusal refusal) {
  std::string device = platform_.port.device_name(number);
  if (device.empty()) device = "COM " + std::to_string(number);
  const std::string lock_file = platform_.port.lock_file(number);
  window_.set_text(status_hint, refusal_sentence(refusal, device, lock_file, link_.state.language));
}

void PortChoice::fall_back(int number, int old) {
  platform_.dialogs.message({"COM " + std::to_string(number) + " not available", "", Icon::none});
  if (open(old) != PortRefusal::none && link_.state.port_ready == 1) platform_.port.keep_looking(old);
}

void PortChoice::show_chosen(int number) {
  window_.set_text("comm_port", "COM " + std::to_string(number));
  for (int port = first_port_number; port <= last_port_number; ++port)
    window_.set_checked(element("port_number", port), port == number);
  status_line_.set_port(number);
  notice_.set_text(notice_port, "COM " + std::to_string(number) + ", " + platform_.port.device_name(number));
  window_.set_text(status_hint, "");
}

void PortChoice::wait_until_open() {
  const double end_s = platform_.clock.monotonic_s() + open_limit_s;
  while (platform_.port.state() == PortState::closed && platform_.clock.monotonic_s() < end_s)
    platform_.clock.pause(Yield::no, open_turn_s);
}

void PortChoice::describe_ports() {
  for (int port = first_port_number; port <= last_port_number; ++port) {
    const bool present = platform_.port.present(port);
    const std::string entry = element("port_number", port);
    window_.set_tooltip(entry, (present ? present_device : missing_device)
                                   .with(link_.state.language, {platform_.port.device_name(port)}));
    window_.set_tag(entry, present ? present_tag : "");
  }
}

}  // namespace halden
