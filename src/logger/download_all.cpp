#include "logger/download_all.h"

#include <algorithm>

#include "logger/logger_form.h"
#include "logger/meter_commands.h"
#include "logger/status_panel.h"
#include "logger/stored_download.h"
#include "readings/patterns.h"

namespace halden {

namespace {

constexpr double before_first_file_s = 1.0;
constexpr int most_files = 100;  // a number has two digits

constexpr Text wrong_index = {"File Index Command Error, Stop Down Load", "檔案指標錯誤,停止下載"};
constexpr Text selecting = {"Selecting file {}", "選擇第 {} 號檔案"};
constexpr Text file_of_files = {"file {} of {}", "第 {} 個，共 {} 個"};

std::string two_digits(int number) { return format_pattern(number, "00"); }

}  // namespace

std::string stored_file_stamp(const MeterStatus& status) {
  return status.meter_year + status.meter_month + status.meter_day + status.meter_hour + status.meter_minute +
         status.logger_file_index_text;
}

// The flag and the controls of a run. Also cleared when the program ends in the middle of it.
class DownloadAll::Active {
 public:
  Active(LinkState& state, Window& window) : state_(state), window_(window) {
    state_.logger_active = 1;
    show(true);
  }
  ~Active() {
    show(false);
    state_.logger_active = 0;
  }
  Active(const Active&) = delete;
  Active& operator=(const Active&) = delete;

 private:
  void show(bool visible) {
    for (const std::string_view name : {download_name.label, download_name.value, total_files.label,
                                        total_files.value, file_of_total, transfer_progress})
      window_.set_visible(name, visible);
  }

  LinkState& state_;
  Window& window_;
};

RunResult DownloadAll::run(const std::string& folder,
                           const std::function<void(const FileOfRun&)>& file_done) {
  RunResult result;
  parts_.link.polling.stop_polling();
  const StatusRead read = read_status_();
  if (read != StatusRead::read) {
    if (read == StatusRead::nothing_stored)
      parts_.messages.say(no_data_recorded.in(parts_.link.state.language));
    result.end = end_of(read);
    return result;
  }
  const Active active(parts_.link.state, window_);
  window_.set_text(total_files.value, std::to_string(parts_.link.status.logger_file_count));
  window_.set_range(transfer_progress, 0, parts_.link.status.logger_file_count);
  window_.set_text(download_name.value, "");
  result.end = run_over_files(folder, [&](const FileOfRun& file) {
    result.files.push_back(file);
    file_done(file);
  });
  result.messages = parts_.messages.take_told();
  if (result.end == RunEnd::failed && !parts_.link.query.succeeded())
    result.messages.emplace_back(StatusQuery::failed_message);
  return result;
}

RunEnd DownloadAll::end_of(StatusRead read) const {
  if (parts_.line.is_cancelled()) return RunEnd::cancelled;
  return read == StatusRead::nothing_stored ? RunEnd::nothing_stored : RunEnd::failed;
}

RunEnd DownloadAll::run_over_files(const std::string& folder,
                                   const std::function<void(const FileOfRun&)>& file_done) {
  const int count = std::min<int>(parts_.link.status.logger_file_count, most_files);
  if (!parts_.line.wait(before_first_file_s)) return RunEnd::cancelled;
  StatusRead read = is_selected(0) ? StatusRead::read : select("0");
  for (int number = 0; number < count; ++number) {
    if (read != StatusRead::read || parts_.line.is_cancelled()) return end_of(read);
    if (!is_selected(number)) {
      parts_.messages.say(wrong_index.in(parts_.link.state.language));
      return RunEnd::failed;
    }
    show_file(number);
    const FileOfRun file = download(folder);
    file_done(file);
    if (file.result.end == DownloadEnd::cancelled) return RunEnd::cancelled;
    if (!file.result.goes_on) return RunEnd::failed;
    if (number + 1 < count && !parts_.line.is_cancelled()) read = select(two_digits(number + 1));
  }
  return RunEnd::complete;
}

void DownloadAll::show_file(int number) {
  const std::string count = std::to_string(parts_.link.status.logger_file_count);
  window_.set_value(transfer_progress, number);
  window_.set_text(file_of_total,
                   file_of_files.with(parts_.link.state.language, {std::to_string(number + 1), count}));
}

StatusRead DownloadAll::select(std::string_view digits) {
  if (!is_ready_for_request(parts_)) return StatusRead::failed;
  parts_.panel.say(selecting.with(parts_.link.state.language, {digits}));
  select_stored_file(parts_.link.waits, parts_.platform.port, digits);
  const StatusRead read = read_status_();
  parts_.panel.say("");
  return read;
}

bool DownloadAll::is_selected(int number) const {
  const MeterStatus& status = parts_.link.status;
  return status.logger_file_index_text == two_digits(number) && status.logger_file_index == number;
}

FileOfRun DownloadAll::download(const std::string& folder) {
  const MeterStatus& status = parts_.link.status;
  const StoredKind* const known = kind_of(status.logger_data_type);
  FileOfRun file;
  file.kind = known != nullptr ? known : &hardcopy_kind;
  logger_file_base_name_ = stored_file_stamp(status) + std::string(file.kind->suffix);
  file.name = logger_file_base_name_;
  window_.set_text(download_name.value, file.name);
  const std::string path = folder + "/" + file.name;
  if (parts_.platform.files.exists(path)) {
    file.fate = FileFate::was_there;
    return file;
  }
  const std::string part = path + std::string(part_ending);
  parts_.platform.files.remove(part);
  file.result = StoredDownload(parts_, *file.kind, start_of(window_)).run(part);
  if (file.result.end == DownloadEnd::whole && file.result.goes_on) give_whole_name(part, path, file);
  return file;
}

void DownloadAll::give_whole_name(const std::string& part, const std::string& path, FileOfRun& file) const {
  file.result.failure = parts_.platform.files.rename(part, path);
  if (file.result.failure == FileFailure::none) {
    file.fate = FileFate::downloaded;
    return;
  }
  file.result.end = DownloadEnd::unwritable;
  parts_.messages.say(unwritable_message(file.result.failure, parts_.link.state.language), Icon::exclamation);
}

}  // namespace halden
