#include "cli/logger_run.h"

#include <algorithm>
#include <cmath>
#include <nlohmann/json.hpp>
#include <utility>

#include "logger/logger_texts.h"
#include "logger/status_panel.h"
#include "logger/stored_kind.h"
#include "readings/wave_texts.h"

namespace halden {

namespace {

constexpr int patient_interruptions = 2;

constexpr const char* was_interrupted = "It was interrupted.";

int selected_number(const MeterStatus& status) {
  return static_cast<int>(std::lround(status.logger_file_index));
}

std::string english_files(int count) {
  return files_text(static_cast<std::size_t>(std::max(count, 0)), Language::english);
}

// The texts are those of the datalogger window, the names those of `haldenctl set`.
Record stored_file_record(const MeterStatus& status, const Window& logger) {
  const RecordedStart start = start_of(logger);
  Record record = {{"index", selected_number(status)},
                   {"kind", kind_text(status.logger_data_type, Language::english)},
                   {"start", start.date + "T" + start.time},
                   {"system", logger["SYS_REC_value"].text},
                   {"hz", logger["HZ_REC_value"].text},
                   {"ct", status.logger_ct_ratio},
                   {"pt", status.logger_pt_ratio},
                   {"sec", status.logger_sample_seconds}};
  if (kind_of(status.logger_data_type) == &harmonics_kind)
    record["channel"] = input_name(status.logger_channel);
  return record;
}

std::string_view fate_text(FileFate fate) {
  if (fate == FileFate::was_there) return "was there already";
  return fate == FileFate::downloaded ? "downloaded" : "not whole";
}

}  // namespace

LoggerRun::LoggerRun(Program& program, std::function<std::string()> last_message, Format format,
                     Terminal& terminal)
    : program_(program),
      status_(program.link.status),
      datalogger_(program.logger.exchanges()),
      last_message_(std::move(last_message)),
      format_(format),
      terminal_(terminal) {}

void LoggerRun::interrupt() {
  datalogger_.cancel();
  if (++interruptions_ > patient_interruptions) return terminal_.failed(was_interrupted);
  terminal_.progress("Ending...");
}

// Nothing when the meter does not say; the command has failed then.
std::optional<int> LoggerRun::count_stored_files() {
  datalogger_.take_line();
  if (datalogger_.read_status() == StatusRead::failed) {
    terminal_.failed(last_message_());
    return std::nullopt;
  }
  if (stopped()) return std::nullopt;
  return status_.logger_file_count;
}

bool LoggerRun::stopped() {
  if (interruptions_ > 0) terminal_.failed(was_interrupted);
  return interruptions_ > 0;
}

bool LoggerRun::select(int number) {
  if (selected_number(status_) == number) return true;
  terminal_.progress("Selecting file " + std::to_string(number) + "...");
  if (datalogger_.select(number)) return true;
  const int selected = selected_number(status_);
  terminal_.failed(program_.link.query.succeeded() && selected != number
                       ? "The meter has selected file " + std::to_string(selected) + " instead of file " +
                             std::to_string(number) + "."
                       : last_message_());
  return false;
}

void LoggerRun::list() {
  const std::optional<int> count = count_stored_files();
  if (!count) return;
  if (*count == 0) terminal_.note(last_message_());
  const char* const block_end = format_ == Format::text ? "\n" : "";
  const int former = selected_number(status_);
  for (int number = 0; number < *count && interruptions_ == 0; ++number) {
    if (!select(number)) return;
    terminal_.print(formatted(stored_file_record(status_, program_.shared.windows["Logger"]), format_) +
                    block_end);
  }
  if (*count > 0 && !select(former)) return;
  if (!stopped()) terminal_.done();
}

void LoggerRun::download(const std::string& file, std::optional<int> number) {
  const std::optional<int> count = count_stored_files();
  if (!count) return;
  if (*count == 0) return terminal_.failed(last_message_());
  if (number && *number >= *count)
    return terminal_.failed("The meter holds " + english_files(*count) +
                            ", numbered from 0: there is no file " + std::to_string(*number) + ".");
  if ((number && !select(*number)) || stopped()) return;
  const StoredKind* const kind = kind_of(status_.logger_data_type);
  if (kind == nullptr) return terminal_.failed("The kind of the selected file is not known.");
  const std::string before = last_message_();
  const DownloadResult result = datalogger_.download(*kind, file);
  note_messages(before);
  tell_result({{"file", file}, {"kind", kind->name.in(Language::english)}}, file, result);
}

void LoggerRun::download_transient(const std::string& file) {
  datalogger_.take_line();
  terminal_.note("Press the TRANSIENT button of the meter within 12 seconds.");
  const std::string before = last_message_();
  const DownloadResult result = datalogger_.download_transient(file);
  note_messages(before);
  tell_result({{"file", file}, {"kind", "Transient"}}, file, result);
}

// The last one that was said since then.
void LoggerRun::note_messages(const std::string& before) {
  if (const std::string message = last_message_(); message != before) terminal_.note(message);
}

void LoggerRun::tell_result(Record record, const std::string& file, const DownloadResult& result) {
  if (result.amount == Amount::records) record["records"] = result.records;
  record["bytes"] = result.bytes;
  if (result.bytes > 0) terminal_.print(formatted(record, format_));
  if (result.end == DownloadEnd::whole) return terminal_.done();
  terminal_.failed(file + ": " + result_text(result, Language::english) + ".");
}

void LoggerRun::download_all(const std::string& folder) {
  datalogger_.take_line();
  end_run(datalogger_.download_all(folder, [&](const FileOfRun& file) { print_file(file, folder); }), folder);
}

void LoggerRun::print_file(const FileOfRun& file, const std::string& folder) {
  const bool whole = file.fate != FileFate::not_whole;
  if (!whole) terminal_.note(line_of(file, Language::english) + ".");
  const std::string path = folder + "/" + file.name + std::string(whole ? "" : part_ending);
  if (!program_.platform.files.exists(path)) return;
  Record record = {
      {"file", path}, {"kind", file.kind->name.in(Language::english)}, {"state", fate_text(file.fate)}};
  if (file.fate != FileFate::was_there) {
    if (file.result.amount == Amount::records) record["records"] = file.result.records;
    record["bytes"] = file.result.bytes;
  }
  terminal_.print(formatted(record, format_) + (format_ == Format::text ? "\n" : ""));
}

void LoggerRun::end_run(const RunResult& run, const std::string& folder) {
  for (const std::string& message : run.messages) terminal_.note(message);
  const bool answered = program_.link.query.succeeded();
  if (run.end == RunEnd::nothing_stored) terminal_.note(last_message_());
  const bool whole = std::none_of(run.files.begin(), run.files.end(),
                                  [](const FileOfRun& file) { return file.fate == FileFate::not_whole; });
  if (run.end == RunEnd::nothing_stored || (run.end == RunEnd::complete && whole)) return terminal_.done();
  if (run.files.empty() && !answered) return terminal_.failed(last_message_());
  terminal_.failed((answered ? "" : "The meter does not answer; ") +
                   run_text(run, folder, Language::english) + ".");
}

void LoggerRun::clear() {
  const std::optional<int> count = count_stored_files();
  if (!count) return;
  if (*count == 0) {
    terminal_.note(last_message_());
    return terminal_.done();
  }
  terminal_.progress("Clearing " + english_files(*count) + "...");
  const Cleared cleared = datalogger_.clear_memory();
  if (cleared == Cleared::yes) {
    terminal_.print(formatted({{"cleared_files", *count}}, format_));
    return terminal_.done();
  }
  terminal_.failed(cleared == Cleared::no ? "The memory was not cleared: it holds " +
                                                english_files(status_.logger_file_count) + "."
                                          : last_message_());
}

}  // namespace halden
