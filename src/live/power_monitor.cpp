#include "live/power_monitor.h"

#include <algorithm>
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

// Whether the field that begins at `at` has arrived in full before `limit`. Where a frame was cut and asked
// for again, the next label begins inside the value; such a value is no reading.
bool is_whole(std::string_view buffer, std::size_t at, std::size_t limit) {
  return at + field_length <= limit &&
         buffer.substr(at + value_offset, value_length).find_first_of("VIWPQ=") == std::string_view::npos;
}

// The first whole field of that label in [from, limit).
std::size_t find_field(std::string_view buffer, const std::string& label, std::size_t from,
                       std::size_t limit) {
  std::size_t at = buffer.find(label, from);
  while (at != std::string_view::npos && !is_whole(buffer, at, limit)) at = buffer.find(label, at + 1);
  return at;
}

// Where the group of a phase begins; npos without a group. The head of a frame that was cut and asked for
// again stands before the new one: the last voltage before the group's end is the one that belongs to the
// other values.
std::size_t group_start(std::string_view buffer, int phase) {
  const std::string first = label('V', phase);
  const std::size_t start = find_field(buffer, first, 0, buffer.size());
  if (start == std::string_view::npos) return start;
  const std::size_t end = find_field(buffer, label('Q', phase), start, buffer.size());
  if (end == std::string_view::npos) return start;
  const std::size_t last = buffer.rfind(first, end);
  return is_whole(buffer, last, end) ? last : std::string_view::npos;
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
    if (take_group(phase)) {
      result = phase + 1 == phases ? PowerFrame::complete : PowerFrame::partial;
      if (result == PowerFrame::complete) finish_frame();
    }
    if (phase + 1 < phase_count) waits_.drain_while_arriving(group_wait_s, buffer_);
  }
  return result;
}

// What still stands in the buffer answers an older request. Read first at the next tick, it would keep every
// reading one frame behind from then on.
void PowerMonitor::finish_frame() {
  buffer_.clear();
  polling_.send_live_request();
  system_step();
}

bool PowerMonitor::take_group(int phase) {
  const std::size_t start = group_start(buffer_, phase);
  if (start == std::string::npos || buffer_.size() <= group_length) return false;
  group_came_first_ = start == 0;
  buffer_.erase(0, start);
  const auto p = static_cast<std::size_t>(phase);
  raw_.v_raw[p] = field('V', phase).value_or(raw_.v_raw[p]);
  readings_.voltage(raw_.v_raw[p]);
  show(PhaseQuantity::V, phase, readings_.voltage_text);
  take_powers(phase);
  take_angles(phase);
  if (phase + 1 < phases_in_use(status_.wiring_system))
    waits_.drain_until_length(group_length, group_wait_s, buffer_);
  return true;
}

void PowerMonitor::take_powers(int phase) {
  const auto p = static_cast<std::size_t>(phase);
  const std::optional<double> i = field('I', phase);
  if (i) {
    raw_.i_raw[p] = *i;
    readings_.current(*i);
    show(PhaseQuantity::I, phase, readings_.current_text);
  }
  const std::optional<double> w = field('W', phase);
  if (w) {
    raw_.w_raw[p] = *w;
    readings_.active_power(*w);
    show(PhaseQuantity::W, phase, readings_.power_text);
  }
  if (!i || !w) return;
  readings_.apparent_power(raw_.v_raw[p], *i, *w);
  raw_.va_raw[p] = readings_.va_raw;
  show(PhaseQuantity::VA, phase, readings_.va_text);
  readings_.power_factor(*w, raw_.va_raw[p]);
  raw_.pf_raw[p] = readings_.pf_raw;
  show(PhaseQuantity::PF, phase, readings_.pf_text);
}

void PowerMonitor::take_angles(int phase) {
  const std::string last_label = label('Q', phase);
  const std::size_t last_field = buffer_.find(last_label);
  if (!field('P', phase) || last_field == std::string::npos) return;
  if (!group_came_first_) wait_and_drain();
  if (buffer_.size() < last_field + field_length) wait_and_drain();
  const std::optional<double> v_angle = field('P', phase);
  const std::optional<double> i_angle = field('Q', phase);
  if (!v_angle || !i_angle) return;
  show_angles(phase, *v_angle, *i_angle);
  buffer_.erase(0, find_field(buffer_, last_label, 0, group_end()) + field_length);
}

void PowerMonitor::show_angles(int phase, double v_angle, double i_angle) {
  const auto p = static_cast<std::size_t>(phase);
  raw_.v_angle[p] = raw_.v_raw[p] == 0 ? 0 : v_angle;
  raw_.i_angle[p] = raw_.i_raw[p] == 0 ? 0 : to_int32(i_angle).value_or(raw_.i_angle[p]);
  readings_.phase_angle(raw_.v_raw[p], raw_.i_raw[p], raw_.v_angle[p], raw_.i_angle[p]);
  raw_.angle_raw[p] = readings_.angle_raw;
  show(PhaseQuantity::Phase, phase, readings_.angle_text);
  readings_.reactive_power(raw_.va_raw[p], raw_.w_raw[p], raw_.v_angle[p], raw_.i_angle[p]);
  raw_.var_raw[p] = readings_.var_raw;
  show(PhaseQuantity::VAR, phase, readings_.var_text);
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

// The group that is being read begins the buffer and ends where the next voltage label begins.
std::size_t PowerMonitor::group_end() const { return std::min(buffer_.find('V', 1), buffer_.size()); }

std::optional<double> PowerMonitor::field(char symbol, int phase) const {
  const std::size_t at = find_field(buffer_, label(symbol, phase), 0, group_end());
  if (at == std::string::npos) return std::nullopt;
  return leading_number(std::string_view(buffer_).substr(at + value_offset, value_length));
}

void PowerMonitor::show(PhaseQuantity quantity, int phase, const std::string& text) {
  window_[phase_panel(quantity, phase).value].text = text;
}

}  // namespace halden
