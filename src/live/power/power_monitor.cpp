#include "live/power/power_monitor.h"

#include "screen/meter_rec/panels.h"

namespace halden {

namespace {

constexpr std::size_t group_length = 51;  // a group is longer than this with what follows it
constexpr double group_wait_s = 0.1;

// Where "B" and the tag of the channel begin a harmonics frame, which "E" ends: noise that holds both letters
// is none.
std::size_t harmonics_channel(const std::string& buffer) {
  const std::size_t begin = buffer.find('B');
  return begin == std::string::npos ? begin : buffer.find("O=", begin);
}

}  // namespace

PowerFrame PowerMonitor::handle_frame() {
  if (const std::size_t channel = harmonics_channel(buffer_); channel != std::string::npos) {
    other_phase_count_ = 0;
    const std::size_t end = buffer_.find('E', channel);
    if (end == std::string::npos) return PowerFrame::harmonics_arriving;
    buffer_.erase(0, end + 1);
    return PowerFrame::of_harmonics;
  }
  if (buffer_.size() <= group_length) return PowerFrame::incomplete;
  const PowerFrameText frame = read_arriving_frame();
  const std::size_t phases = phases_in_use(status_.wiring_system);
  if (frame.phases_sent != 0 || frame.ended)
    other_phase_count_ = frame.phases_sent != phases ? frame.phases_sent : 0;
  // What stands behind the frame answers an older request. Read at the next tick, it would keep every reading
  // one frame behind from then on.
  if (frame.ended) {
    buffer_.clear();
    polling_.send_live_request();
  }
  show(frame);
  if (!frame.ended) return PowerFrame::incomplete;
  if (!frame.whole()) return PowerFrame::damaged;
  show_system();
  return PowerFrame::complete;
}

// Waits a tenth of a second at a time as long as more of the frame arrives.
PowerFrameText PowerMonitor::read_arriving_frame() {
  const std::size_t phases = phases_in_use(status_.wiring_system);
  PowerFrameText frame = read_power_frame(buffer_, phases);
  for (std::size_t turn = 0; !frame.ended && turn < phase_count; ++turn) {
    if (!waits_.drain_next(group_wait_s, buffer_)) break;
    waits_.drain_while_arriving(group_wait_s, buffer_);
    frame = read_power_frame(buffer_, phases);
  }
  return frame;
}

void PowerMonitor::show(const PowerFrameText& frame) {
  for (const PowerGroup& group : frame.groups)
    show_phase(group.phase, chain_.take_phase(group.phase, group.values));
}

void PowerMonitor::show_phase(std::size_t phase, const PhaseTexts& texts) {
  for (const PhaseQuantity quantity : phase_quantities)
    if (texts[quantity]) window_.set_text(phase_panel(quantity, phase).value, *texts[quantity]);
}

void PowerMonitor::show_system() {
  const SystemTexts texts = chain_.take_system();
  window_.set_text("W_sys_value", texts.w);
  window_.set_text("VAR_sys_value", texts.var);
  window_.set_text("VA_sys_value", texts.va);
  window_.set_text("PF_sys_value", texts.pf);
  for (std::size_t line = 0; texts.lines && line < phase_count; ++line)
    window_.set_text(line_panel(line).value, (*texts.lines)[line]);
}

}  // namespace halden
