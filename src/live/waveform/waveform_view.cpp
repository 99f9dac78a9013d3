#include "live/waveform/waveform_view.h"

#include <string_view>
#include <utility>

#include "chart/waves/waveform_chart.h"
#include "live/setting_texts.h"
#include "live/waiting_chart.h"

namespace halden {

void WaveformView::begin() {
  frame_.reset();
  scaled_.clear();
  summary_.clear();
  show_waiting_chart(window_, link_.state.language);
}

// Several frames stand in the buffer when one was late; the newest one that has ended is shown.
FrameOutcome WaveformView::take_frame() {
  std::string& buffer = link_.state.wave_buffer;
  buffer.erase(0, buffer.find('B'));
  if (!holds_waveform(buffer)) return FrameOutcome::incomplete;
  auto frame = std::make_unique<WaveformFrame>();
  do {
    *frame = read_waveform_frame(buffer);
    if (frame->fault.damaged) return discard(frame->fault);
    buffer.erase(0, frame->end);
    buffer.erase(0, buffer.find('B'));
  } while (holds_waveform(buffer));
  // A rest is the head of the next frame; a request would start it anew.
  if (buffer.empty()) link_.polling.send_live_request();
  frame_ = std::move(frame);
  show();
  return FrameOutcome::complete;
}

FrameOutcome WaveformView::discard(const WaveformFault& fault) {
  if (fault.missing_tag != 0)
    messages_.tell(std::string("Communication Error (Waveform ") + fault.missing_tag + ")");
  else if (fault.cut)
    messages_.tell("Communication Error (Waveform)");
  return FrameOutcome::discarded;
}

void WaveformView::show() {
  summary_.show(frame_->fields);
  const WaveTexts& texts = summary_.texts();
  scaled_ = scaled_samples(frame_->samples, texts.peak_plus, texts.peak_minus);
  const Language language = link_.state.language;
  window_.set_chart("Harmo_Graph1", std::make_shared<const Chart>(
                                        waveform_chart(scaled_, frame_->fields.channel, texts, language)));
  window_.set_text("chart_reference", scale_text(scaled_, texts, language));
}

RecordSource WaveformView::source() const {
  return {RecordKind::waveform, frame_ ? frame_->fields.channel : link_.status.harmonic_channel, 0};
}

std::string WaveformView::header() {
  const WaveSource from = {link_.status.wiring_system, static_cast<std::int16_t>(source().channel),
                           options_.harmonic_option};
  return header_lines(waveform_settings_line(from, setting_texts(window_)), waveform_column_line());
}

RecordLine WaveformView::record() const {
  if (!frame_) return {{}, false, "Data Error in saving waveform data"};
  return waveform_record(summary_.date(), summary_.time(), frame_->samples, frame_->characters);
}

}  // namespace halden
