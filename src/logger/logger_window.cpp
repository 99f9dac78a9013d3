#include "logger/logger_window.h"

#include <optional>
#include <utility>

#include "logger/logger_form.h"
#include "logger/logger_texts.h"
#include "logger/meter_commands.h"
#include "logger/meter_time.h"
#include "logger/result_texts.h"
#include "logger/status_panel.h"
#include "logger/stored_download.h"
#include "logger/transient_download.h"
#include "platform/dialogs.h"
#include "platform/shell.h"
#include "readings/patterns.h"
#include "screen/meter_rec/panels.h"

namespace halden {

namespace {

constexpr std::string_view in_waveform_mode = "In waveform mode";
constexpr Text closing_window = {"Close Data Logger Window", "關閉記錄器視窗"};

constexpr Text recording_runs = {
    "A recording runs. It makes no records while the datalogger window is open. Open the window?",
    "記錄進行中。記錄器視窗開啟時不會寫入資料。要開啟視窗嗎？"};
constexpr Text refused_meanwhile = {"Not while the datalogger works with the meter.",
                                    "記錄器正在與電表通訊，請稍候。"};

constexpr Text reading_setup = {"Reading the setup", "讀取設定中"};
constexpr Text clearing = {"Clear Memory", "清除所有記錄"};
constexpr Text transients = {"Down Load Transient", "下載驟升驟降記錄"};
constexpr Text all_files = {"Down Load All Files", "下載所有檔案"};
constexpr Text files_go = {"Clear Memory: {}", "清除所有記錄：{}"};
constexpr Text still_stored = {"The memory was not cleared.", "記錄未清除。"};
constexpr Text cleared = {"The memory is empty.", "記錄已清除。"};

std::string folder_of(const std::string& path) {
  const std::size_t end = path.find_last_of("/\\");
  return end == std::string::npos ? std::string(".") : path.substr(0, end);
}

}  // namespace

LoggerWindow::LoggerWindow(const Platform& platform, Windows& windows, Window& meter_rec, Window& notice,
                           Link& link, const std::string& work_folder)
    : platform_(platform),
      meter_rec_(meter_rec),
      link_(link),
      window_(make_logger_window()),
      line_(platform.clock, platform.port),
      messages_(platform.dialogs, link.state),
      panel_(window_, notice, link.state),
      parts_{platform, link, line_, messages_, panel_, work_folder},
      download_all_(parts_, window_, [this] { return read_status(); }) {
  windows.add(window_);
  connect();
}

void LoggerWindow::connect() {
  link_.query.on_status_read([this] { show_status(); });
  link_.gate.on_refused(
      [this] { meter_rec_.set_text(status_hint, refused_meanwhile.in(link_.state.language)); });
  link_.gate.connect(meter_rec_, "loggerPWR", [this] { open_asked(); });
  window_.on_click(read_status_button, [this] {
    exchange(read_status_button, reading_setup, Cancelling::impossible, [this] { read_status(); });
  });
  for (const auto& [button, kind] :
       {std::pair{"Read_All", &power_kind}, std::pair{"Command2", &harmonics_kind},
        std::pair{"DL_HC", &hardcopy_kind}})
    window_.on_click(button, [this, button = button, kind = kind] {
      exchange(button, kind->name, Cancelling::possible, [this, kind] { ask_and_download(*kind); });
    });
  window_.on_click("Command3", [this] {
    exchange("Command3", transients, Cancelling::possible, [this] { ask_and_download_transient(); });
  });
  window_.on_click("DL_All", [this] {
    exchange("DL_All", all_files, Cancelling::possible, [this] { download_all_into_work_folder(); });
  });
  window_.on_click("Command1", [this] {
    exchange("Command1", clearing, Cancelling::impossible, [this] { ask_and_clear(); });
  });
  window_.on_press(transfer_cancel, [this] { line_.cancel(); });
  window_.on_click(open_folder, [this] { platform_.shell.open_document(results_folder_); });
  for (const LoggerPanel& box : start_boxes()) window_.on_change(box.value, [this] { start_edited_ = true; });
  window_.on_close([this] { close(); });
}

void LoggerWindow::open_asked() {
  const bool recording = meter_rec_["FileStop"].enabled;
  if (!window_.visible() && recording &&
      !platform_.dialogs.confirm({std::string(recording_runs.in(link_.state.language)), "", Icon::question}))
    return;
  open();
}

void LoggerWindow::open() {
  link_.polling.hold_line();
  link_.polling.stop_polling();
  window_.apply_captions(link_.state.language);
  window_.show();
}

void LoggerWindow::close() {
  if (busy_) {
    close_wanted_ = true;
    line_.cancel();
    return;
  }
  link_.gate.run_alone("Logger.close", [this] { unload(); });
}

void LoggerWindow::unload() {
  close_wanted_ = false;
  platform_.dialogs.message({std::string(closing_window.in(link_.state.language)), "", Icon::none});
  download_all_.clear_base_name();
  window_.hide();
  link_.polling.release_line();
  link_.polling.resume_polling(1);
}

// Only one at a time, and none of a window that was closed before its turn came.
void LoggerWindow::exchange(std::string_view name, const Text& task, Cancelling cancelling,
                            const std::function<void()>& work) {
  link_.gate.run_alone("Logger." + std::string(name), [this, task, cancelling, work] {
    if (!window_.visible()) return;
    lock(true);
    line_.begin();
    panel_.say("");
    if (cancelling == Cancelling::possible) panel_.begin(task);
    work();
    panel_.end();
    lock(false);
    link_.exchange.tell_ended();
    if (close_wanted_) unload();
  });
}

void LoggerWindow::lock(bool locked) {
  busy_ = locked;
  for (const std::string_view button : logger_buttons()) window_.set_enabled(button, !locked);
  window_.set_enabled(read_status_button, !locked);
  for (const LoggerPanel& box : start_boxes()) window_.set_enabled(box.value, !locked);
}

// A meter that answers a query sends nothing else any more.
void LoggerWindow::show_status() {
  line_.expect_nothing();
  show_start(link_.status, link_.state.language, window_);
  if (link_.status.logger_file_count != 0) show_recorded_status(link_.status, link_.state.language, window_);
}

// ---- the exchanges ----

bool LoggerWindow::read_status() {
  if (link_.state.display_mode == waveform_view) messages_.say(in_waveform_mode);
  if (!is_ready_for_request(parts_)) return false;
  let_events_run(platform_.clock);
  link_.query.query_meter_status();
  let_events_run(platform_.clock);
  start_edited_ = false;
  return link_.query.succeeded() && !nothing_is_stored();
}

bool LoggerWindow::nothing_is_stored() {
  if (link_.status.logger_file_count != 0) return false;
  messages_.say(no_data_recorded.in(link_.state.language));
  return true;
}

bool LoggerWindow::select(int number) {
  if (!is_ready_for_request(parts_)) return false;
  select_stored_file(link_.waits, platform_.port, format_pattern(number, "00"));
  return read_status() && link_.status.logger_file_index == number;
}

DownloadResult LoggerWindow::download(const StoredKind& kind, const std::string& path) {
  return StoredDownload(parts_, kind, start_of(window_)).run(path);
}

DownloadResult LoggerWindow::download_transient(const std::string& path) {
  return TransientDownload(parts_).run(path);
}

RunResult LoggerWindow::download_all(const std::string& folder,
                                     const std::function<void(const FileOfRun&)>& file_done) {
  return download_all_.run(folder, [&](const FileOfRun& file) {
    add_result(line_of(file, link_.state.language));
    if (file_done) file_done(file);
  });
}

bool LoggerWindow::clear_memory() {
  erase_memory(link_.waits, platform_.port);
  link_.query.query_meter_status();
  return link_.query.succeeded() && link_.status.logger_file_count == 0;
}

// ---- what the user is asked before ----

void LoggerWindow::ask_and_download(const StoredKind& kind) {
  if (!query_keeping_start() || nothing_is_stored()) return;
  if (kind_of(link_.status.logger_data_type) != &kind) return messages_.say(kind.wrong_kind_message);
  panel_.show_notice("", "");
  const std::string path =
      chosen_file(kind.extension, stored_file_stamp(link_.status) + std::string(kind.suffix));
  if (path.empty()) return;
  show_result(path, download(kind, path), kind.convert == nullptr ? Amount::screen : Amount::records);
}

void LoggerWindow::ask_and_download_transient() {
  const std::string path = chosen_file(".csv", "transients-" + date_text({platform_.clock.today()}) + ".csv");
  if (path.empty() || !is_ready_for_request(parts_)) return;
  show_result(path, download_transient(path), Amount::records);
}

// What the user has typed into the boxes counts as long as the meter tells the same file and start.
bool LoggerWindow::query_keeping_start() {
  const std::optional<RecordedStart> typed = start_edited_ ? std::optional(start_of(window_)) : std::nullopt;
  const std::string stamp = stored_file_stamp(link_.status);
  if (!is_ready_for_request(parts_)) return false;
  link_.query.query_meter_status();
  start_edited_ = false;
  if (!link_.query.succeeded()) return false;
  if (line_.is_cancelled()) return false;
  if (!typed || stamp != stored_file_stamp(link_.status)) return true;
  window_.set_text(start_boxes()[0].value, typed->date);
  window_.set_text(start_boxes()[1].value, typed->time);
  return true;
}

// Empty when the user chose none or does not want to add to it.
std::string LoggerWindow::chosen_file(std::string_view extension, const std::string& suggested_name) {
  const std::string name(extension.substr(1));
  const FileQuestion question = {{{name + " Files(*." + name + ")", "*." + name}, {"All Files (*.*)", "*.*"}},
                                 std::string(extension),
                                 suggested_name};
  const std::optional<std::string> path = platform_.dialogs.save_file(question);
  if (!path || path->empty()) return {};
  const bool missing = platform_.files.read(*path, 0, 1).failure == FileFailure::not_found;
  if (missing ||
      platform_.dialogs.confirm({"File  " + *path + "  exists, add data to it", "", Icon::question}))
    return *path;
  return {};
}

void LoggerWindow::ask_and_clear() {
  if (!query_keeping_start() || nothing_is_stored()) return;
  const Language language = link_.state.language;
  const std::string count = files_text(static_cast<std::size_t>(link_.status.logger_file_count), language);
  if (!platform_.dialogs.confirm(
          {"Are you sure ?", files_go.with(language, {count}), Icon::question, Preset::no}))
    return;
  panel_.say((clear_memory() ? cleared : still_stored).in(language));
}

// ---- what became of them ----

void LoggerWindow::show_result(const std::string& path, const DownloadResult& result, Amount amount) {
  const Language language = link_.state.language;
  const std::string text = result_text(result, amount, language);
  results_folder_ = folder_of(path);
  add_result(path + ": " + text);
  panel_.say(result.end == DownloadEnd::incomplete ? bytes_lost.in(language) : text);
}

void LoggerWindow::download_all_into_work_folder() {
  results_folder_ = parts_.work_folder;
  const RunResult run = download_all(results_folder_);
  if (run.end == RunEnd::nothing_stored) return;
  for (const std::string& message : run.messages) add_result(message);
  panel_.say(run_text(run, results_folder_, link_.state.language));
}

void LoggerWindow::add_result(const std::string& line) {
  results_.push_back(line);
  window_.set_lines(results, std::make_shared<const Lines>(results_));
  for (const std::string_view name : {results, results_title, open_folder}) window_.set_visible(name, true);
}

}  // namespace halden
