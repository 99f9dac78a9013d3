#include "logger/transient_download.h"

#include "logger/output_file.h"
#include "logger/transient_report.h"

namespace halden {

namespace {

constexpr double drain_s = 1.0;
constexpr double press_s = 12.0;
constexpr double report_silence_s = 2.0;
constexpr double show_period_s = 0.1;
constexpr double after_conversion_s = 2.0;

constexpr std::string_view report_file = "temp_data.tra";

}  // namespace

DownloadResult TransientDownload::run(const std::string& path) {
  OutputFile output(parts_.platform.files, path);
  note_failure(output.try_to_write());
  note_failure(parts_.platform.files.replace(parts_.work_path(report_file), ""));
  if (result_.end != DownloadEnd::unwritable) receive();
  if (!report_.empty())
    convert(output);
  else if (result_.end == DownloadEnd::nothing)
    parts_.messages.say(no_transient_data_message);
  finish();
  return result_;
}

// The text is kept as it comes.
void TransientDownload::receive() {
  MeterLine& line = parts_.line;
  if (!line.drain(drain_s)) {
    result_.end = DownloadEnd::cancelled;
    return;
  }
  parts_.panel.show_notice("Status", "  Waiting for 12 sec. Press the Transient Button");
  began_s_ = parts_.platform.clock.monotonic_s();
  const auto ending =
      line.receive_until_silent(press_s, report_silence_s, [this](const std::string& received) {
        report_ += received;
        if (!received.empty()) parts_.line.expect_file();
        if (parts_.platform.clock.monotonic_s() - shown_s_ >= show_period_s) keep_and_show();
        return true;
      });
  keep_and_show();
  result_.bytes = report_.size();
  if (ending == MeterLine::Ending::cancelled)
    result_.end = DownloadEnd::cancelled;
  else if (report_.empty())
    result_.end = DownloadEnd::nothing;
}

void TransientDownload::keep_and_show() {
  shown_s_ = parts_.platform.clock.monotonic_s();
  write_report();
  parts_.panel.show_figures({report_.size(), shown_s_ - began_s_, 0}, 0);
}

// A report that cannot be kept is converted all the same.
void TransientDownload::write_report() {
  if (written_ == report_.size()) return;
  const std::string_view rest = std::string_view(report_).substr(written_);
  parts_.platform.files.append(parts_.work_path(report_file), rest);
  written_ = report_.size();
}

void TransientDownload::convert(OutputFile& output) {
  const TransientEvents events = convert_transient_report(report_, parts_.platform.clock.today());
  if (events.outcome == TransientOutcome::incomplete) return note_lost_bytes();
  parts_.panel.show_notice("", "Converting");
  note_failure(output.append_lines(events.lines));
  if (result_.end == DownloadEnd::unwritable) return;
  result_.records = events.records;
  parts_.panel.show_records(events.records);
  parts_.panel.show_notice("", transient_count_text(events));
}

void TransientDownload::finish() {
  const bool converted = result_.records > 0 || result_.end == DownloadEnd::whole;
  if (converted && result_.end != DownloadEnd::cancelled)
    parts_.link.waits.timed_wait(after_conversion_s, Yield::yes);
  parts_.panel.hide_notice();
  const bool late = parts_.line.file_comes();
  if ((late || parts_.line.was_gone()) && result_.end == DownloadEnd::whole) note_lost_bytes();
  const bool stopped = result_.end == DownloadEnd::cancelled && !report_.empty();
  if (late || stopped) result_.goes_on = wait_for_silence(parts_);
}

void TransientDownload::note_lost_bytes() {
  if (result_.end == DownloadEnd::cancelled) return;
  result_.end = DownloadEnd::incomplete;
  parts_.messages.say(incomplete_message, Icon::exclamation);
}

void TransientDownload::note_failure(FileFailure failure) {
  if (failure == FileFailure::none || result_.end == DownloadEnd::unwritable) return;
  result_.end = DownloadEnd::unwritable;
  result_.failure = failure;
  parts_.messages.say(unwritable_message(failure, parts_.link.state.language), Icon::exclamation);
}

}  // namespace halden
