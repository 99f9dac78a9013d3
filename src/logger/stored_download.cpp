#include "logger/stored_download.h"

#include <string_view>

#include "formats/record_field.h"
#include "logger/file_conversion.h"
#include "logger/meter_time.h"
#include "logger/recorded_settings.h"
#include "logger/transfer.h"
#include "readings/wiring.h"

namespace halden {

namespace {

constexpr double after_conversion_s = 2.0;
constexpr double after_hardcopy_s = 5.0;  // no status query follows, which would notice late bytes, too

constexpr int mismatch_error = 13;  // a text that is no date or time

constexpr Text unknown_wiring = {
    "The wiring system of this recording is not known. Its file will have no records.",
    "此記錄的接線系統不明，檔案將沒有任何資料。"};

}  // namespace

DownloadResult StoredDownload::run(const std::string& path) {
  if (kind_.conversion == nullptr) result_.amount = Amount::words;
  tell_unknown_wiring();
  words_path_ = kind_.conversion != nullptr ? parts_.work_path(kind_.conversion->words_file) : path;
  OutputFile output(parts_.platform.files, path);
  if (!try_files(output)) return result_;
  receive();
  if (result_.end == DownloadEnd::cancelled && result_.bytes == 0)
    parts_.panel.hide_notice();
  else if (kind_.conversion != nullptr)
    convert(path);
  finish();
  return result_;
}

void StoredDownload::tell_unknown_wiring() const {
  if (&kind_ != &power_kind || is_known(Wiring{parts_.link.status.logger_system})) return;
  parts_.messages.say(unknown_wiring.in(parts_.link.state.language), Icon::exclamation);
}

// Before the meter is asked, because it sends a file of an hour only once.
bool StoredDownload::try_files(OutputFile& output) {
  note_failure(output.try_to_write());
  if (kind_.conversion != nullptr) note_failure(parts_.platform.files.replace(words_path_, ""));
  return result_.end != DownloadEnd::unwritable;
}

void StoredDownload::receive() {
  const std::size_t record = record_bytes(kind_, parts_.link.status);
  const bool counts = result_.amount == Amount::records;
  parts_.panel.show_notice("Status", "  Waiting");
  Transfer transfer(
      parts_.platform.clock, parts_.platform.files, parts_.line,
      [&](const TransferFigures& figures) { parts_.panel.show_figures(figures, counts ? record : 0); });
  const std::string first_line =
      counts ? std::string() : start_.date + " " + start_.time + std::string(line_end);
  const TransferResult received =
      transfer.run({kind_.unit_bytes, kind_.after_request_s, words_path_, first_line});
  result_.bytes = received.bytes;
  if (!counts) result_.records = received.bytes / record;
  if (received.end == TransferEnd::cancelled)
    result_.end = DownloadEnd::cancelled;
  else if (received.end == TransferEnd::unwritable)
    note_failure(received.failure);
  else if (received.bytes == 0)
    result_.end = DownloadEnd::nothing;
  else if (received.bytes % record != 0 || parts_.line.was_gone())
    result_.end = DownloadEnd::incomplete;
}

void StoredDownload::convert(const std::string& path) {
  parts_.panel.show_notice("", "Converting");
  if (!meter_time_of(start_.date, start_.time))
    parts_.messages.say("ERROR CODE " + std::to_string(mismatch_error) + " Date or Time is not correct");
  const RecordedSettings recorded = recorded_settings_of(parts_.link.status, start_.date, start_.time);
  const FileConversion converted = kind_.conversion->convert(parts_.platform.files, words_path_, recorded,
                                                             path, [this](std::size_t records) {
                                                               parts_.panel.show_records(records);
                                                               parts_.line.yield();
                                                             });
  result_.records = converted.records;
  result_.sign_cut = converted.sign_cut;
  note_failure(converted.failure);
  if (result_.end == DownloadEnd::unwritable) return;
  if (converted.incomplete && result_.end == DownloadEnd::whole) result_.end = DownloadEnd::incomplete;
  if (result_.end == DownloadEnd::incomplete) note_lost_bytes();
  parts_.panel.show_notice("", kind_.conversion->count_text(result_.records));
}

// After a failure the handler ends: no status is read.
void StoredDownload::finish() {
  if (kind_.conversion == nullptr) {
    parts_.panel.hide_notice();
    if (result_.end == DownloadEnd::incomplete) note_lost_bytes();
  }
  look_for_late_bytes();
  if (&kind_ == &harmonics_kind || result_.end == DownloadEnd::unwritable) parts_.panel.hide_notice();
  if (result_.end == DownloadEnd::unwritable) result_.goes_on = false;
  const bool asked = result_.end != DownloadEnd::cancelled || result_.bytes > 0;
  if (result_.goes_on && kind_.conversion != nullptr && asked) query_status();
}

// They are the rest of a file that was cut. The rest of one that was cancelled comes certainly.
void StoredDownload::look_for_late_bytes() {
  if (!was_stopped()) {
    const double wait_s = kind_.conversion != nullptr ? after_conversion_s : after_hardcopy_s;
    parts_.link.waits.timed_wait(wait_s, Yield::yes);
  }
  const bool file_comes = parts_.line.file_comes();
  if (file_comes && !was_stopped() && result_.end != DownloadEnd::incomplete) note_lost_bytes();
  const bool may_come = was_stopped() && parts_.link.state.file_bytes != FileBytes::none;
  if (file_comes || may_come) result_.goes_on = wait_for_silence(parts_);
}

// The seconds before its request are a last look for late bytes.
void StoredDownload::query_status() {
  while (result_.goes_on && !parts_.link.query.query_unless_file_comes()) {
    if (!was_stopped() && result_.end != DownloadEnd::incomplete) note_lost_bytes();
    result_.goes_on = wait_for_silence(parts_);
  }
  result_.goes_on = result_.goes_on && parts_.link.query.succeeded();
}

bool StoredDownload::was_stopped() const {
  return result_.end == DownloadEnd::cancelled || result_.end == DownloadEnd::unwritable;
}

void StoredDownload::note_lost_bytes() {
  result_.end = DownloadEnd::incomplete;
  parts_.messages.say(incomplete_message, Icon::exclamation);
}

void StoredDownload::note_failure(FileFailure failure) {
  if (failure == FileFailure::none || result_.end == DownloadEnd::unwritable) return;
  result_.end = DownloadEnd::unwritable;
  result_.failure = failure;
  result_.goes_on = false;
  parts_.messages.say(kind_.conversion != nullptr ? kind_.conversion->failure_message(failure)
                                                  : unwritable_message(failure, parts_.link.state.language));
}

}  // namespace halden
