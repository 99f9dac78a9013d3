#include "live/power_monitor.h"

#include <string_view>

#include "readings/numbers.h"

namespace halden {

namespace {

constexpr std::size_t group_length = 51;  // a group is longer than this with what follows it
constexpr std::size_t value_offset = 3;
constexpr std::size_t value_length = 6;
constexpr std::size_t field_length = value_offset + value_length;
constexpr double group_wait_s = 0.1;

std::string label(char symbol, int phase) { return {symbol, static_cast<char>('1' + phase)}; }

// Whether the field that begins at `at` has arrived in full. Where a frame was cut and asked for again, the
// next label begins inside the value; such a value is no reading.
bool is_whole(const std::string& buffer, std::size_t at) {
  return at + field_length <= buffer.size() &&
         std::string_view(buffer).substr(at + value_offset, value_length).find_first_of("VIWPQ=") ==
             std::string_view::npos;
}

std::size_t find_field(const std::string& buffer, const std::string& label, std::size_t from = 0) {
  std::size_t at = buffer.find(label, from);
  while (at != std::string::npos && !is_whole(buffer, at)) at = buffer.find(label, at + 1);
  return at;
}

// Where the group of a phase begins. The head of a frame that was cut and asked for again stands before the
// new one: the last voltage before the group's end is the one that belongs to the other values.
std::size_t group_start(const std::string& buffer, int phase) {
  const std::string first = label('V', phase);
  const std::size_t start = find_field(buffer, first);
  if (start == std::string::npos) return start;
  const std::size_t end = find_field(buffer, label('Q', phase), start);
  return end == std::string::npos ? start : buffer.rfind(first, end);
}

}  // namespace

PowerFrame PowerMonitor::handle_frame() {
  if (buffer_.find('B') != std::string::npos && buffer_.find('E') != std::string::npos) {
    buffer_.clear();
    return PowerFrame::of_harmonics;
  }
  PowerFrame result = PowerFrame::without_group;
  const int phases = phases_in_use(status_.wiring_system);
  for (int phase = 0; phase < phases; ++phase) {
    const bool last = phase + 1 == phases;
    if (take_group(phase)) {
      result = last ? PowerFrame::complete : PowerFrame::partial;
      if (last) {
        polling_.send_live_request();
        system_step();
      }
    }
    if (!last) waits_.drain_while_arriving(group_wait_s, buffer_);
  }
  return result;
}

bool PowerMonitor::take_group(int phase) {
  const std::size_t start = group_start(buffer_, phase);
  if (start == std::string::npos || buffer_.size() <= group_length) return false;
  group_came_first_ = start == 0;
  buffer_.erase(0, start);
  raw_.v_raw[static_cast<std::size_t>(phase)] = value('V', phase);
  readings_.voltage(value('V', phase));
  show(PhaseQuantity::V, phase, readings_.voltage_text);
  take_powers(phase);
  take_angles(phase);
  return true;
}

void PowerMonitor::take_powers(int phase) {
  const auto p = static_cast<std::size_t>(phase);
  if (has('I', phase)) {
    raw_.i_raw[p] = value('I', phase);
    readings_.current(raw_.i_raw[p]);
    show(PhaseQuantity::I, phase, readings_.current_text);
  }
  if (has('W', phase)) {
    raw_.w_raw[p] = value('W', phase);
    readings_.active_power(raw_.w_raw[p]);
    show(PhaseQuantity::W, phase, readings_.power_text);
  }
  if (!has('I', phase) || !has('W', phase)) return;
  readings_.apparent_power(raw_.v_raw[p], raw_.i_raw[p], raw_.w_raw[p]);
  raw_.va_raw[p] = readings_.va_raw;
  show(PhaseQuantity::VA, phase, readings_.va_text);
  readings_.power_factor(raw_.w_raw[p], raw_.va_raw[p]);
  raw_.pf_raw[p] = readings_.pf_raw;
  show(PhaseQuantity::PF, phase, readings_.pf_text);
}

void PowerMonitor::take_angles(int phase) {
  const auto p = static_cast<std::size_t>(phase);
  const std::string last_label = label('Q', phase);
  const std::size_t last_field = buffer_.rfind(last_label);
  if (!has('P', phase) || last_field == std::string::npos) return;
  if (!group_came_first_) wait_and_drain();
  if (buffer_.size() < last_field + field_length) wait_and_drain();
  if (!has('Q', phase)) return;
  raw_.v_angle[p] = raw_.v_raw[p] == 0 ? 0 : value('P', phase);
  raw_.i_angle[p] = raw_.i_raw[p] == 0 ? 0 : to_int32(value('Q', phase)).value_or(raw_.i_angle[p]);
  readings_.phase_angle(raw_.v_raw[p], raw_.i_raw[p], raw_.v_angle[p], raw_.i_angle[p]);
  raw_.angle_raw[p] = readings_.angle_raw;
  show(PhaseQuantity::Phase, phase, readings_.angle_text);
  readings_.reactive_power(raw_.va_raw[p], raw_.w_raw[p], raw_.v_angle[p], raw_.i_angle[p]);
  raw_.var_raw[p] = readings_.var_raw;
  show(PhaseQuantity::VAR, phase, readings_.var_text);
  buffer_.erase(0, find_field(buffer_, last_label) + field_length);
  if (phase + 1 < phases_in_use(status_.wiring_system))
    waits_.drain_until_length(group_length, group_wait_s, buffer_);
}

void PowerMonitor::system_step() {
  PerPhase<double> w{}, var{};  // phases that are not in use count nothing, whatever they last held
  const int phases = phases_in_use(status_.wiring_system);
  for (std::size_t p = 0; p < static_cast<std::size_t>(phases); ++p) {
    w[p] = raw_.w_raw[p];
    var[p] = raw_.var_raw[p];
  }
  readings_.system_active_power(w[0], w[1], w[2]);
  readings_.system_reactive_power(var[0], var[1], var[2]);
  readings_.system_apparent_power();
  readings_.system_power_factor();
  window_["W_sys_value"].text = readings_.system_w_text;
  window_["VAR_sys_value"].text = readings_.system_var_text;
  window_["VA_sys_value"].text = readings_.system_va_text;
  window_["PF_sys_value"].text = readings_.system_pf_text;
  const bool three_phase = phases == phase_count;
  for (int index = 0; three_phase && index < phase_count; ++index) show_line_voltage(index);
  if (steps_.calculate_vi_angles) steps_.calculate_vi_angles();
  if (three_phase && steps_.calculate_unbalance) steps_.calculate_unbalance();
  if (steps_.update_phasors) steps_.update_phasors();
}

// V12, V23, V31: from one phase to the next.
void PowerMonitor::show_line_voltage(int index) {
  const auto a = static_cast<std::size_t>(index);
  const std::size_t b = (a + 1) % phase_count;
  readings_.line_voltage(raw_.v_raw[a], raw_.v_raw[b], raw_.v_angle[a], raw_.v_angle[b]);
  raw_.line_raw[a] = readings_.line_voltage_raw;
  window_[line_panel(index).value].text = readings_.line_voltage_text;
}

void PowerMonitor::wait_and_drain() {
  waits_.timed_wait(group_wait_s, Yield::no);
  waits_.drain(buffer_);
}

bool PowerMonitor::has(char symbol, int phase) const {
  return find_field(buffer_, label(symbol, phase)) != std::string::npos;
}

double PowerMonitor::value(char symbol, int phase) const {
  const std::size_t at = find_field(buffer_, label(symbol, phase));
  return leading_number(std::string_view(buffer_).substr(at + value_offset, value_length));
}

void PowerMonitor::show(PhaseQuantity quantity, int phase, const std::string& text) {
  window_[phase_panel(quantity, phase).value].text = text;
}

}  // namespace halden
