#include "app/program.h"

#include "platform/timer.h"

namespace halden {

namespace {

// Designer periods of the two timers of the main window.
constexpr int designed_clock_period_ms = 2000;
constexpr int designed_poll_period_ms = 250;

}  // namespace

Shared::Shared() {
  windows.add(meter_rec);
  windows.add(notice);
}

Live::Live(const Platform& platform, Shared& shared, Link& link, const StartOptions& options)
    : chain(link.status),
      sample_clock(platform.clock, platform.timer1, shared.meter_rec),
      phasors(platform, shared.windows, shared.meter_rec, link.state, link.status, chain.raw),
      power(platform.clock, link.waits, link.polling, link.state, link.status, chain, sample_clock, phasors,
            shared.meter_rec),
      harmonics(RecordKind::harmonics, link.polling, link.state, link.status, harmonics_options,
                shared.meter_rec),
      waveform(RecordKind::waveform, link.polling, link.state, link.status, harmonics_options,
               shared.meter_rec),
      views{link.state, link.status, power, harmonics, waveform},
      monitor(platform.clock, views, sample_clock),
      poll(platform, link.waits, link.polling, link.state, shared.meter_rec, monitor),
      selection(link.exchange, link.polling, link.state, link.status, harmonics_options, shared.meter_rec),
      rescue(platform.files, options.work_folder, options.temporary_folder),
      recording(platform, link.state, views, sample_clock, shared.meter_rec, shared.notice, rescue),
      settings(platform, link, power, shared.meter_rec) {
  sample_clock.connect(platform.dialogs);
  power.connect();
  recording.connect();
  settings.connect();
  monitor.add_listener(recording);
}

Program::Program(const Platform& outside, const StartOptions& options)
    : platform(outside),
      link(platform, shared.meter_rec, shared.notice, shared.label_column_left),
      live(platform, shared, link, options),
      logger(shared.windows, link.query, link.status),
      desk(platform, options, shared.windows, shared.meter_rec, shared.notice, shared.label_column_left, link,
           live.sample_clock, live.monitor, live.selection, live.recording) {
  platform.timer1.set_period_ms(designed_clock_period_ms);
  platform.timer2.set_period_ms(designed_poll_period_ms);
  platform.timer1.on_tick([this] {
    live.sample_clock.tick();
    desk.refresh_status_line();
  });
  platform.timer2.on_tick([this] {
    link.gate.run_tick([this] { live.poll.tick(); });
    desk.refresh_status_line();
  });
}

}  // namespace halden
