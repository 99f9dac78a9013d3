#include "live/recording/recording.h"

#include <optional>

#include "formats/record_field.h"
#include "platform/clock.h"
#include "platform/dialogs.h"
#include "readings/patterns.h"
#include "screen/meter_rec/panels.h"

namespace halden {

namespace {

constexpr double shortest_waveform_sampling_s = 4;

const FileFilter any_file = {"All Files (*.*)", "*.*"};

FileQuestion file_question(RecordKind kind) {
  if (kind == RecordKind::waveform) return {{{"dat Files(*.dat)", "*.dat"}, any_file}, ".dat", ""};
  return {{{"csv Files(*.csv)", "*.csv"}, any_file}, ".csv", ""};
}

// "halden-2026-11-23-1602"
std::string suggested_name(const Moment& now) {
  const int minutes = static_cast<int>(now.seconds_since_midnight) / 60;
  return "halden-" + format_pattern(now.date.year, "0000") + "-" + format_pattern(now.date.month, "00") +
         "-" + format_pattern(now.date.day, "00") + "-" + format_pattern(minutes / 60, "00") +
         format_pattern(minutes % 60, "00");
}

}  // namespace

Recording::Recording(const Platform& platform, const LinkState& link, Exchange& exchange,
                     const LiveViews& views, SampleClock& sample_clock, Window& meter_rec, Window& notice,
                     Rescue& rescue)
    : platform_(platform),
      link_(link),
      views_(views),
      sample_clock_(sample_clock),
      window_(meter_rec),
      notice_(notice),
      rescue_(rescue),
      file_(platform.files) {
  connect();
  // The status query writes into the same notice.
  exchange.on_ended([this] {
    if (runs()) set_recording_notice(1);
  });
}

void Recording::connect() {
  window_.on_click("FileName", [this] { window_.set_text(status_hint, create_data_file()); });
  window_.on_click("auto_record", [this] { start_automatic(); });
  window_.on_click("manual_record", [this] { start_manual(); });
  window_.on_click("record_button", [this] { record_once(); });
  window_.on_click("FileStop", [this] { window_.set_text(status_hint, end_recording()); });
}

void Recording::tell_rescued() {
  for (const std::string& path : rescue_.found())
    platform_.dialogs.tell({rescued_sentence(path, link_.language), "", Icon::information});
}

std::string Recording::create_data_file() {
  std::string fate = settle_waiting();
  FileQuestion question = file_question(views_.shown().source().kind);
  question.suggested_name = suggested_name(now_of(platform_.clock));
  const std::optional<std::string> chosen = platform_.dialogs.save_file(question);
  if (!chosen || chosen->empty())
    no_file_chosen();
  else if (may_append_to(*chosen))
    begin_data_file(*chosen);
  return fate;
}

void Recording::begin_data_file(const std::string& path) {
  records_ = 0;
  lost_lines_ = 0;
  sign_cut_ = false;
  columns_changed_ = false;
  header_wiring_ = views_.status.wiring_system;
  window_.set_text("FileName", window_["FileName"].text + " = " + path);
  LiveView* const view = views_.to_record();
  source_ = view != nullptr ? view->source() : RecordSource{RecordKind::harmonics};
  if (source_.kind == RecordKind::waveform) raise_short_sampling_time();
  file_.begin(path, view != nullptr ? view->header() : std::string());
  data_file_ready_ = 1;
  window_.set_enabled("FileStart", true);
}

void Recording::set_create_caption() { window_.restore_caption("FileName", link_.language); }

void Recording::no_file_chosen() {
  file_.end();
  set_create_caption();
  data_file_ready_ = 0;
  window_.set_enabled("FileStart", false);
  window_.set_enabled("FileStop", false);
}

// A file that cannot be read exists too.
bool Recording::may_append_to(const std::string& path) {
  if (platform_.files.read(path, 0, 1).failure == FileFailure::not_found) return true;
  return platform_.dialogs.confirm({"File exists, append data to it", "", Icon::question});
}

void Recording::raise_short_sampling_time() {
  if (sample_clock_.sample_time_s() >= shortest_waveform_sampling_s) return;
  platform_.dialogs.message({std::string(shortest_waveform_sampling_text), "", Icon::none});
  window_.set_text(sample_time_label, "4 SEC");
}

void Recording::start_automatic() {
  if (!window_["FileStart"].enabled) return;
  window_.set_visible("record_button", false);
  start(0);
  sample_clock_.remember_instant();  // the last one was before the recording
  sample_clock_.restart_counting();
}

void Recording::start_manual() {
  if (!window_["FileStart"].enabled) return;
  window_.set_visible("record_button", true);
  start(1);
}

void Recording::start(std::int16_t manual) {
  window_.set_enabled("FileStop", true);
  window_.set_enabled("FileStart", false);
  window_.set_enabled("FileName", false);
  manual_recording_ = manual;
  record_pending_ = 0;  // a press of the button during an earlier recording does not count
  set_recording_notice(1);
  started_();
}

void Recording::record_once() { record_pending_ = 1; }

void Recording::set_recording_notice(std::int16_t flag) {
  if (flag == 1) {
    notice_.set_caption("");
    notice_.set_text("Text1", "Recording (" + sample_clock_.sampling_instant() + ")");
    notice_.set_enabled("Text1", false);
    notice_.show();
  } else {
    notice_.set_enabled("Text1", true);
    notice_.hide();
  }
}

bool Recording::runs() const { return window_["FileStop"].enabled; }

RecordingStatus Recording::status() const {
  RecordingStatus status;
  if (runs())
    status.state = manual_recording_ == 1 ? RecordingState::manual : RecordingState::automatic;
  else if (data_file_ready_ == 1)
    status.state = RecordingState::file_ready;
  status.lost_lines = lost_lines_;
  status.columns_changed = columns_changed_;
  status.sign_cut = sign_cut_;
  status.other_source = runs() && views_.shown().source() != source_;
  return status;
}

void Recording::frame_shown() {
  if (data_file_ready_ == 0) {
    window_.set_enabled("FileName", true);
    return;
  }
  if (!runs() || sample_clock_.sampling_instant() == no_sampling_instant) return;
  if (manual_recording_ != 1 && sample_clock_.new_instant()) record_pending_ = 1;
  if (record_pending_ != 1 || views_.shown().source() != source_) return;
  record_pending_ = 0;
  const RecordLine record = views_.shown().record();
  if (!record.refusal.empty()) {
    platform_.dialogs.tell({std::string(record.refusal), "", Icon::none});
    return;
  }
  file_.append_line(record.text);
  sign_cut_ = sign_cut_ || record.sign_cut;
  columns_changed_ = columns_changed_ ||
                     (source_.kind == RecordKind::power && views_.status.wiring_system != header_wiring_);
  ++records_;
}

void Recording::no_communication() {
  const std::string& time = sample_clock_.sampling_instant();
  if (!runs() || time == no_sampling_instant || time == last_lost_time_) return;
  file_.append_line(no_communication_line(sample_clock_.instant_date(), time));
  ++lost_lines_;
  last_lost_time_ = time;
}

std::string Recording::end_recording() {
  window_.set_enabled("FileStop", false);
  set_create_caption();
  data_file_ready_ = 0;
  window_.set_enabled("FileName", true);
  window_.set_visible("record_button", false);
  set_recording_notice(0);
  file_.end();
  return settle_waiting();
}

std::string Recording::settle_waiting() {
  const Language language = link_.language;
  while (file_.lines_waiting() > 0 && !file_.write_waiting()) {
    if (platform_.dialogs.confirm(question_for_another_file(file_, language))) {
      if (const auto other = platform_.dialogs.save_file(file_question(source_.kind)))
        file_.write_waiting_to(*other);
    } else {
      if (const auto path = rescue_.save(file_, source_.kind)) return rescued_sentence(*path, language);
      if (platform_.dialogs.confirm(question_before_giving_up(file_, language))) continue;
      const std::string lost = lost_sentence(file_, language);
      file_.give_up_waiting();
      return lost;
    }
  }
  return {};
}

void Recording::rescue_waiting() {
  if (file_.lines_waiting() > 0 && !file_.write_waiting()) rescue_.save(file_, source_.kind);
}

}  // namespace halden
