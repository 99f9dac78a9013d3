#include "live/power/power_monitor.h"

#include <algorithm>
#include <string_view>

#include "readings/numbers.h"
#include "screen/meter_rec/panels.h"

namespace halden {

namespace {

constexpr std::size_t group_length = 51;  // a group is taken when the buffer holds more than this
constexpr std::size_t value_offset = 3;
constexpr std::size_t value_length = 6;
constexpr std::size_t field_length = value_offset + value_length;
constexpr double group_wait_s = 0.1;

std::string label(char symbol, std::size_t phase) {
  return {symbol, static_cast<char>('1' + static_cast<char>(phase))};
}

// Whether the field that begins at `at` is complete and ends before `limit`. When a frame was cut off and
// requested again, the next label begins inside the value; such a value is not used.
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

// Where the group of a phase begins; npos without a group. When a frame was cut off and requested again, its
// first part precedes the new frame: the last voltage before the group's end belongs to the other values.
std::size_t group_start(std::string_view buffer, std::size_t phase) {
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
  const std::size_t phases = phases_in_use(status_.wiring_system);
  for (std::size_t phase = 0; phase < phases; ++phase) {
    if (take_group(phase)) {
      result = phase + 1 == phases ? PowerFrame::complete : PowerFrame::partial;
      if (result == PowerFrame::complete) finish_frame();
    }
    if (phase + 1 < phase_count) waits_.drain_while_arriving(group_wait_s, buffer_);
  }
  return result;
}

bool PowerMonitor::take_group(std::size_t phase) {
  const std::size_t start = group_start(buffer_, phase);
  if (start == std::string::npos || buffer_.size() <= group_length) return false;
  group_came_first_ = start == 0;
  buffer_.erase(0, start);
  PhaseGroup group = {field('V', phase), field('I', phase), field('W', phase), std::nullopt, std::nullopt};
  read_angles(phase, group);
  show_phase(phase, chain_.take_phase(phase, group));
  if (phase + 1 < phases_in_use(status_.wiring_system))
    waits_.drain_until_length(group_length, group_wait_s, buffer_);
  return true;
}

// Waits for the angles, which end the group, and removes the group from the buffer.
void PowerMonitor::read_angles(std::size_t phase, PhaseGroup& group) {
  const std::string last_label = label('Q', phase);
  const std::size_t last_field = buffer_.find(last_label);
  if (!field('P', phase) || last_field == std::string::npos) return;
  if (!group_came_first_) wait_and_drain();
  if (buffer_.size() < last_field + field_length) wait_and_drain();
  group.v_angle = field('P', phase);
  group.i_angle = field('Q', phase);
  if (group.v_angle && group.i_angle)
    buffer_.erase(0, find_field(buffer_, last_label, 0, group_end()) + field_length);
}

void PowerMonitor::show_phase(std::size_t phase, const PhaseTexts& texts) {
  for (const PhaseQuantity quantity : phase_quantities)
    if (texts[quantity]) window_.set_text(phase_panel(quantity, phase).value, *texts[quantity]);
}

// What is left in the buffer answers an older request. It is dropped: read at the next tick, it would delay
// all later readings by one frame.
void PowerMonitor::finish_frame() {
  buffer_.clear();
  polling_.send_live_request();
  const SystemTexts texts = chain_.take_system();
  window_.set_text("W_sys_value", texts.w);
  window_.set_text("VAR_sys_value", texts.var);
  window_.set_text("VA_sys_value", texts.va);
  window_.set_text("PF_sys_value", texts.pf);
  for (std::size_t line = 0; texts.lines && line < phase_count; ++line)
    window_.set_text(line_panel(line).value, (*texts.lines)[line]);
}

void PowerMonitor::wait_and_drain() {
  waits_.timed_wait(group_wait_s, Yield::no);
  waits_.drain(buffer_);
}

// The group that is being read begins the buffer and ends where the next voltage label begins.
std::size_t PowerMonitor::group_end() const { return std::min(buffer_.find('V', 1), buffer_.size()); }

std::optional<double> PowerMonitor::field(char symbol, std::size_t phase) const {
  const std::size_t at = find_field(buffer_, label(symbol, phase), 0, group_end());
  if (at == std::string::npos) return std::nullopt;
  return leading_number(std::string_view(buffer_).substr(at + value_offset, value_length));
}

}  // namespace halden
