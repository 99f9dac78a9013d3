#include "live/recording.h"

#include <optional>
#include <utility>

#include "formats/file_headers.h"
#include "formats/power_file.h"
#include "formats/record_field.h"
#include "platform/clock.h"
#include "platform/dialogs.h"
#include "readings/numbers.h"
#include "screen/captions.h"
#include "screen/panels.h"

namespace halden {

namespace {

constexpr double shortest_waveform_sampling_s = 4;

const FileFilter any_file = {"All Files (*.*)", "*.*"};

FileQuestion file_question(RecordKind kind) {
  if (kind == RecordKind::waveform) return {{{"dat Files(*.dat)", "*.dat"}, any_file}, ".dat", ""};
  return {{{"csv Files(*.csv)", "*.csv"}, any_file}, ".csv", ""};
}

std::string two_lines(std::string first, const std::string& second) {
  return first.append(line_end).append(second).append(line_end);
}

std::string_view create_caption(std::int16_t language) {
  return language == chinese ? "建立檔案名稱" : "&Create Data File";
}

}  // namespace

Recording::Recording(const Platform& platform, RecordingSources sources, SampleClock& sample_clock,
                     Screen& screen, Rescue& rescue)
    : platform_(platform),
      from_(sources),
      sample_clock_(sample_clock),
      window_(screen.meter_rec),
      notice_(screen.chkspeed),
      rescue_(rescue),
      file_(platform.files) {}

std::string Recording::create_data_file() {
  std::string elsewhere = settle_waiting();
  const std::optional<std::string> chosen = platform_.dialogs.save_file(file_question(kind_of_view()));
  if (!chosen || chosen->empty())
    no_file_chosen();
  else if (may_append_to(*chosen))
    begin_data_file(*chosen);
  return elsewhere;
}

void Recording::begin_data_file(const std::string& path) {
  data_file_name = path;
  kind_ = kind_of_view();
  records_ = 0;
  window_["FileName"].text += " = " + data_file_name;
  if (kind_ == RecordKind::waveform && from_.status.meter_mode == harmonics_mode) raise_short_sampling_time();
  file_.begin(data_file_name, header());
  data_file_ready = 1;
  window_["FileStart"].enabled = true;
}

void Recording::no_file_chosen() {
  data_file_name.clear();
  file_.end();
  window_["FileName"].text = create_caption(from_.link.language);
  data_file_ready = 0;
  window_["FileStart"].enabled = false;
  window_["FileStop"].enabled = false;
}

// The dialogs follow the view that is open, the contents of the file the meter's mode.
RecordKind Recording::kind_of_view() const {
  if (from_.link.display_mode == waveform_view) return RecordKind::waveform;
  return from_.status.meter_mode == power_mode ? RecordKind::power : RecordKind::harmonics;
}

// Only a file that was not found does not exist: one that cannot be read is there as well.
bool Recording::may_append_to(const std::string& path) {
  if (platform_.files.read(path, 0, 1).failure == FileFailure::not_found) return true;
  return platform_.dialogs.confirm({"File exists, append data to it", "", Icon::question});
}

void Recording::raise_short_sampling_time() {
  if (sample_clock_.sample_time_s() >= shortest_waveform_sampling_s) return;
  platform_.dialogs.message(
      {"The minimum sampling time for recording waveform is 4 seconds", "", Icon::none});
  window_[sample_time_label].text = "4 SEC";
}

std::string Recording::header() {
  const SettingTexts settings = setting_texts(window_);
  const MeterStatus& status = from_.status;
  const WaveSource source = {status.wiring_system, status.harmonic_channel, from_.view.harmonic_option};
  if (status.meter_mode == power_mode) {
    write_header();
    return two_lines(power_settings_line(status.wiring_system, settings), header_line);
  }
  if (status.meter_mode != harmonics_mode) return {};
  if (from_.link.display_mode == waveform_view)
    return two_lines(waveform_settings_line(source, settings), waveform_column_line());
  return two_lines(harmonics_settings_line(source, settings), harmonics_column_line());
}

void Recording::write_header() {
  std::string line = power_column_line(from_.status.wiring_system);
  if (!line.empty()) header_line = std::move(line);
}

void Recording::start_automatic() {
  if (!window_["FileStart"].enabled) return;
  window_["record_button"].visible = false;
  start(0);
  // The next whole second is a sampling instant.
  sample_clock_.sample_tick_count =
      static_cast<std::int16_t>(static_cast<int>(sample_clock_.sample_time_s()) - 1);
}

void Recording::start_manual() {
  if (!window_["FileStart"].enabled) return;
  window_["record_button"].visible = true;
  start(1);
}

void Recording::start(std::int16_t manual) {
  window_["FileStop"].enabled = true;
  window_["FileStart"].enabled = false;
  window_["FileName"].enabled = false;
  manual_recording = manual;
  record_pending = 0;  // a press of the button belongs to the recording it was made in
  set_recording_notice(1);
}

void Recording::record_once() { record_pending = 1; }

void Recording::set_recording_notice(std::int16_t flag) {
  if (flag == 1) {
    notice_.set_caption("");
    notice_["Text1"].text = "Recording (" + sampling_instant() + ")";
    notice_["Text1"].enabled = false;
    notice_.show();
  } else {
    notice_["Text1"].enabled = true;
    notice_.hide();
  }
}

bool Recording::runs() const { return std::as_const(window_)["FileStop"].enabled; }

RecordingState Recording::state() const {
  if (runs()) return manual_recording == 1 ? RecordingState::manual : RecordingState::automatic;
  return data_file_ready == 1 ? RecordingState::file_ready : RecordingState::no_file;
}

const std::string& Recording::sampling_instant() const {
  return std::as_const(window_)[sample_clock_label].text;
}

void Recording::recording_step() {
  if (data_file_ready == 0) {
    if (!std::as_const(window_)["FileName"].enabled) window_["FileName"].enabled = true;
    return;
  }
  if (!runs() || sampling_instant() == no_sampling_instant) return;
  if (manual_recording != 1 && sampling_instant() != from_.last_sample_time) record_pending = 1;
  if (record_pending != 1) return;
  save_sys_data();
  file_.append_line(data_record);
  ++records_;
  record_pending = 0;
}

void Recording::save_sys_data() {
  data_record = power_record(from_.status.wiring_system, platform_.clock.today(), window_);
}

void Recording::no_communication_step() {
  const std::string& time = sampling_instant();
  if (!runs() || time == last_lost_time_) return;
  file_.append_line(no_communication_line(platform_.clock.today(), time));
  last_lost_time_ = time;
}

std::string Recording::end_recording() {
  window_["FileStop"].enabled = false;
  window_["FileName"].text = create_caption(from_.link.language);
  data_file_ready = 0;
  window_["FileName"].enabled = true;
  window_["record_button"].visible = false;
  set_recording_notice(0);
  file_.end();
  return settle_waiting();
}

std::string Recording::settle_waiting() {
  const std::int16_t language = from_.link.language;
  while (file_.lines_waiting() > 0 && !file_.write_waiting()) {
    if (platform_.dialogs.confirm(question_for_another_file(file_, language))) {
      if (const auto other = platform_.dialogs.save_file(file_question(kind_)))
        file_.write_waiting_to(*other);
    } else {
      if (const auto path = rescue_.save(file_, kind_)) return rescued_sentence(*path, language);
      if (!platform_.dialogs.confirm(question_before_giving_up(file_, language))) break;
    }
  }
  return {};
}

void Recording::rescue_waiting() {
  if (file_.lines_waiting() > 0 && !file_.write_waiting()) rescue_.save(file_, kind_);
}

}  // namespace halden
