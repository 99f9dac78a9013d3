#include "cli/view_choice.h"

#include <CLI/CLI.hpp>

namespace halden {

void add_waveform_flag(CLI::App& command, ViewChoice& view, const char* description) {
  command.add_flag_callback(
      "--waveform", [&view] { view = ViewChoice::waveform; }, description);
}

bool open_view(ViewChoice view, Session& session) {
  return view == ViewChoice::by_meter_mode ||
         open_waveform_view(
             session.program(), [&session] { return session.last_message(); }, session);
}

bool open_waveform_view(Program& program, const std::function<std::string()>& last_message,
                        Terminal& terminal) {
  if (program.link.status.meter_mode != harmonics_mode) {
    terminal.failed(needs_harmonics_mode);
    return false;
  }
  terminal.progress("Opening the waveform...");
  program.shared.meter_rec.click("open_waveform");
  terminal.progress("");
  if (program.link.state.display_mode == waveform_view) return true;
  terminal.failed(last_message());
  return false;
}

// A frame cut by noise can look like one of the other mode, so the readings must have become old as well.
std::string other_mode_sentence(const Program& program) {
  const Live& live = program.live;
  const bool readings_come = live.monitor.has_whole_frame() && !live.monitor.old_since_s();
  if (readings_come || !live.views.shown().misfit().other_mode) return {};
  return program.link.state.display_mode == power_view
             ? "The meter is in harmonics mode: press its POWER button."
             : "The meter is in power mode: press its HARMO button.";
}

}  // namespace halden
