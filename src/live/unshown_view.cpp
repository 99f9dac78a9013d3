#include "live/unshown_view.h"

#include <string>

#include "formats/file_headers.h"
#include "live/setting_texts.h"

namespace halden {

FrameOutcome UnshownView::take_frame() {
  sent_power_frames_ = false;
  live_buffer(link_.state).clear();
  link_.polling.send_live_request();
  return FrameOutcome::not_shown;
}

Misfit UnshownView::misfit() const {
  return {kind_ == RecordKind::harmonics && (sent_power_frames_ || holds_power_frame()), 0};
}

// A frame of the power mode has labels with a phase digit, which no tag of a harmonics frame has.
bool UnshownView::holds_power_frame() const {
  const std::string& buffer = link_.state.poll_buffer;
  return buffer.find("V1") != std::string::npos && buffer.find("Q1") != std::string::npos;
}

std::string UnshownView::header() {
  const WaveSource source = {link_.status.wiring_system, link_.status.harmonic_channel,
                             options_.harmonic_option};
  const SettingTexts settings = setting_texts(meter_rec_);
  if (kind_ == RecordKind::waveform)
    return header_lines(waveform_settings_line(source, settings), waveform_column_line());
  return header_lines(harmonics_settings_line(source, settings), harmonics_column_line());
}

}  // namespace halden
