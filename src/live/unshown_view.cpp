#include "live/unshown_view.h"

#include "formats/file_headers.h"
#include "live/setting_texts.h"

namespace halden {

FrameOutcome UnshownView::take_frame() {
  live_buffer(state_).clear();
  polling_.send_live_request();
  return FrameOutcome::not_shown;
}

std::string UnshownView::header() {
  const WaveSource source = {status_.wiring_system, status_.harmonic_channel, options_.harmonic_option};
  const SettingTexts settings = setting_texts(meter_rec_);
  if (kind_ == RecordKind::waveform)
    return header_lines(waveform_settings_line(source, settings), waveform_column_line());
  return header_lines(harmonics_settings_line(source, settings), harmonics_column_line());
}

}  // namespace halden
