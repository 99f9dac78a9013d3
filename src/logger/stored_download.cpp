#include "logger/stored_download.h"

#include <array>
#include <functional>
#include <string_view>

#include "formats/record_field.h"
#include "logger/file_conversion.h"
#include "logger/harmonics_conversion.h"
#include "logger/recorded_settings.h"
#include "logger/transfer.h"
#include "readings/wiring.h"

namespace halden {

namespace {

constexpr double look_for_late_bytes_s = 2.0;

constexpr std::size_t group_bytes = 10;
constexpr std::size_t harmonics_record_bytes = 128;

constexpr int mismatch_error = 13;  // a text that is no date or time

constexpr Text unknown_wiring = {
    "The wiring system of this recording is not known. Its file will have no records.",
    "此記錄的接線系統不明，檔案將沒有任何資料。"};

// The numbers by which users report these failures.
int error_number(FileFailure failure) {
  constexpr std::array<int, 8> numbers = {0, 76, 70, 75, 70, 61, 61, 57};
  return numbers[static_cast<std::size_t>(failure)];
}

}  // namespace

DownloadResult StoredDownload::run(const std::string& path) {
  tell_unknown_wiring();
  words_path_ = converts() ? parts_.work_path(kind_.words_file) : path;
  OutputFile output(parts_.platform.files, path);
  if (!try_files(output)) return result_;
  receive();
  if (result_.end == DownloadEnd::cancelled && result_.bytes == 0)
    output.remove_if_new();
  else if (converts())
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
  FileFailure failure = output.try_to_write();
  if (failure == FileFailure::none && converts()) failure = parts_.platform.files.replace(words_path_, "");
  if (failure == FileFailure::none && !converts())
    failure = output.append_lines(start_.date + " " + start_.time + std::string(line_end));
  if (failure != FileFailure::none) {
    output.remove_if_new();
    note_failure(failure);
  }
  return failure == FileFailure::none;
}

void StoredDownload::receive() {
  parts_.panel.show_notice("Status", "  Waiting");
  Transfer transfer(parts_.platform.clock, parts_.platform.files, parts_.line,
                    [this](const TransferFigures& figures) {
                      parts_.panel.show_figures(figures, converts() ? record_bytes() : 0);
                    });
  const TransferResult received = transfer.run({kind_.unit_bytes, kind_.after_request_s, words_path_});
  result_.bytes = received.bytes;
  if (received.end == TransferEnd::cancelled)
    result_.end = DownloadEnd::cancelled;
  else if (received.end == TransferEnd::unwritable)
    note_failure(received.failure);
  else if (received.bytes == 0)
    result_.end = DownloadEnd::nothing;
  else if (received.bytes % record_bytes() != 0 || parts_.line.is_gone())
    result_.end = DownloadEnd::incomplete;
}

std::size_t StoredDownload::record_bytes() const {
  if (&kind_ == &harmonics_kind) return harmonics_record_bytes;
  if (&kind_ != &power_kind) return kind_.unit_bytes;
  const Wiring wiring_system{parts_.link.status.logger_system};
  return is_known(wiring_system) ? group_bytes * phases_in_use(wiring_system) : group_bytes;
}

void StoredDownload::convert(const std::string& path) {
  parts_.panel.show_notice("", "Converting");
  const RecordedSettings recorded = recorded_settings_of(parts_.link.status, start_.date, start_.time);
  const FileConversion converted =
      kind_.convert(parts_.platform.files, words_path_, recorded, path, [this](std::size_t records) {
        parts_.panel.show_records(records);
        parts_.line.yield();
      });
  result_.records = converted.records;
  if (!converted.start_is_valid)
    parts_.messages.say("ERROR CODE " + std::to_string(mismatch_error) + " Date or Time is not correct");
  if (converted.failure != FileFailure::none) return note_failure(converted.failure);
  if (converted.incomplete && result_.end == DownloadEnd::whole) result_.end = DownloadEnd::incomplete;
  if (result_.end == DownloadEnd::incomplete) note_lost_bytes();
  parts_.panel.show_notice("", kind_.count_text(result_.records));
}

// Looks for bytes behind the silence first: they are the rest of a file that was cut.
void StoredDownload::finish() {
  if (!converts()) parts_.panel.hide_notice();
  const bool stopped = result_.end == DownloadEnd::cancelled || result_.end == DownloadEnd::unwritable;
  if (!converts() && result_.end == DownloadEnd::incomplete) note_lost_bytes();
  if (!stopped) parts_.link.waits.timed_wait(look_for_late_bytes_s, Yield::yes);
  const bool late = parts_.line.has_bytes();
  if (late && result_.end == DownloadEnd::whole) note_lost_bytes();
  result_.goes_on = !(late || (stopped && parts_.line.may_send_on())) || wait_for_silence(parts_);
  if (&kind_ == &harmonics_kind || result_.end == DownloadEnd::unwritable) parts_.panel.hide_notice();
  if (result_.end == DownloadEnd::unwritable) result_.goes_on = false;
  if (!result_.goes_on || !converts()) return;
  parts_.link.query.query_meter_status();
  result_.goes_on = parts_.link.query.succeeded();
}

void StoredDownload::note_lost_bytes() {
  result_.end = DownloadEnd::incomplete;
  parts_.messages.say(incomplete_message, Icon::exclamation);
}

void StoredDownload::note_failure(FileFailure failure) {
  if (result_.end == DownloadEnd::unwritable) return;
  result_.end = DownloadEnd::unwritable;
  result_.failure = failure;
  result_.goes_on = false;
  if (&kind_ == &power_kind)
    parts_.messages.say("Please report ERROR CODE " + std::to_string(error_number(failure)));
  else if (&kind_ == &harmonics_kind)
    parts_.messages.say(harmonics_error_message);
  else
    parts_.messages.say(unwritable_message(failure, parts_.link.state.language), Icon::exclamation);
}

}  // namespace halden
