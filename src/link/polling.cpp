#include "link/polling.h"

#include "platform/clock.h"
#include "platform/serial_port.h"
#include "platform/timer.h"

namespace halden {

namespace {

constexpr double settle_s = 1.0;

}  // namespace

void Polling::resume_polling(std::int16_t flag) {
  if (flag == 1 && state_.port_ready == 1 && state_.logger_active == 0 && may_poll())
    start();
  else
    stop();
  state_.missed_polls = 0;
  let_events_run(platform_.clock);
}

void Polling::start() {
  waits_.timed_wait(settle_s, Yield::no);
  waits_.discard();
  // The rest of a frame cut by the exchange must not be taken for the start of the next one.
  state_.poll_buffer.clear();
  state_.wave_buffer.clear();
  send_live_request();
  platform_.timer1.set_enabled(true);
  platform_.timer2.set_enabled(true);
}

void Polling::stop() {
  platform_.timer1.set_enabled(false);
  platform_.timer2.set_enabled(false);
}

void Polling::set_live_period() {
  switch (state_.display_mode) {
    case harmonics_view:
    case power_view:
      platform_.timer2.set_period_ms(frame_period_ms);
      break;
    case waveform_view:
      platform_.timer2.set_period_ms(waveform_period_ms);
      break;
    default:
      break;
  }
}

void Polling::set_live_timer() {
  set_live_period();
  if (state_.display_mode != harmonics_view || !may_poll()) return;
  waits_.timed_wait(settle_s, Yield::no);
  waits_.discard();
  state_.poll_buffer.clear();
  send_live_request();
}

void Polling::send_live_request() { platform_.port.send(state_.display_mode == waveform_view ? "W" : " "); }

}  // namespace halden
