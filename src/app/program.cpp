#include "app/program.h"

#include "live/unbalance.h"

namespace halden {

Program::Program(Platform outside, const std::string& work_folder, const std::string& temporary_folder)
    : platform(outside),
      gate(platform.clock),
      waits(platform.clock, platform.port),
      polling(platform, waits, link),
      query(platform, waits, polling, link, status, screen, label_column_left),
      sample_clock(platform.clock, platform.timer1, screen.meter_rec),
      power(waits, polling, link, status, readings, raw, screen.meter_rec, power_frame_steps),
      monitor(platform.clock, polling, link, power, sample_clock, readings, screen.meter_rec, live_steps),
      rescue(platform.files, work_folder, temporary_folder),
      recording(platform, {link, status, harmonics_view, monitor.last_sample_time}, sample_clock, screen,
                rescue),
      live_poll(platform, waits, polling, link, screen.meter_rec, monitor),
      phasors(platform, status, raw, phasor_angles, phasor_geometry, screen),
      views(polling, link, status, harmonics_view, screen.meter_rec),
      settings(platform, waits, polling, query, status, readings, screen.meter_rec, label_column_left),
      configuration(platform.files, work_folder),
      status_line(platform, link, monitor.frame_rate(), recording, screen.meter_rec),
      port_choice(platform, waits, polling, query, link, configuration, status_line, screen.meter_rec) {
  connect_steps();
  platform.timer1.set_period_ms(designed_clock_period_ms);
  platform.timer2.set_period_ms(designed_poll_period_ms);
  platform.timer1.on_tick([this] {
    sample_clock.tick();
    status_line.refresh();
  });
  platform.timer2.on_tick([this] {
    gate.run_tick([this] { live_poll.tick(); });
    status_line.refresh();
  });
}

// What follows each frame.
void Program::connect_steps() {
  power_frame_steps.calculate_vi_angles = [this] { phasor_angles = calculate_vi_angles(raw); };
  power_frame_steps.calculate_unbalance = [this] {
    calculate_unbalance(raw, phasor_angles, status, screen.meter_rec, screen.phasor_form);
  };
  power_frame_steps.update_phasors = [this] { phasors.update_phasors(); };
  live_steps.record = [this] { recording.recording_step(); };
  live_steps.record_lost_line = [this] { recording.no_communication_step(); };
}

}  // namespace halden
