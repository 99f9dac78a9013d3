#include "app/program.h"

#include "platform/timer.h"

namespace halden {

namespace {

// The periods of the two timers before the first tick.
constexpr int designed_clock_period_ms = 2000;
constexpr int designed_poll_period_ms = 250;

}  // namespace

Program::Program(const Platform& outside, const StartOptions& start_options)
    : platform(outside), options(start_options) {
  platform.timer1.set_period_ms(designed_clock_period_ms);
  platform.timer2.set_period_ms(designed_poll_period_ms);
  viewer.on_print([this](const TextToPrint& text, Window& view) { print.open(text, view); });
  live.recording.on_started([this] { link.pause.end_all(); });
  files.connect(FileKind::power, "OpenPlotFile", plot);
  files.connect(FileKind::harmonics, "show_plot_harmonics", playback);
  files.connect(FileKind::waveform, "show_plot_waveform", playback);
  files.connect(FileKind::hardcopy, "show_plot_hardcopy", hardcopy);
  files.connect(FileKind::text, "ViewFile", viewer);
  files.read_recent();
  shared.windows["ExportNumbers"].on_drop([this](const Lines& paths) { numbers.open_file(paths.front()); });
  platform.timer1.on_tick([this] {
    live.sample_clock.tick();
    application.refresh_status_line();
  });
  platform.timer2.on_tick([this] {
    link.gate.run_tick([this] { live.poll.tick(); });
    application.refresh_status_line();
  });
}

}  // namespace halden
