#include "logger/logger_window.h"

#include <array>
#include <memory>
#include <optional>
#include <utility>

#include "logger/logger_texts.h"
#include "logger/meter_time.h"
#include "logger/result_texts.h"
#include "logger/status_panel.h"
#include "platform/dialogs.h"
#include "platform/shell.h"
#include "screen/meter_rec/panels.h"

namespace halden {

namespace {

constexpr Text closing_window = {"Close Data Logger Window", "關閉記錄器視窗"};

constexpr Text recording_runs = {
    "A recording runs. It makes no records while the datalogger window is open. Open the window?",
    "記錄進行中。記錄器視窗開啟時不會寫入資料。要開啟視窗嗎？"};
constexpr Text refused_meanwhile = {"Not while the datalogger works with the meter.",
                                    "記錄器正在與電表通訊，請稍候。"};

constexpr Text files_go = {"Clear Memory: {}", "清除所有記錄：{}"};

// In the order of Cleared.
constexpr std::array<Text, 3> clear_results = {
    {{"The memory is empty.", "記錄已清除。"},
     {"The memory was not cleared.", "記錄未清除。"},
     {"It is not known whether the memory was cleared.", "無法得知記錄是否已清除。"}}};

constexpr Text reserved_name = {"This name is used for the transfer itself. Choose another one.",
                                "此名稱供傳輸使用，請選擇其他名稱。"};

std::string_view name_of(std::string_view path) { return path.substr(path.find_last_of("/\\") + 1); }

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
      datalogger_(platform, window_, notice, link, work_folder) {
  windows.add(window_);
  connect();
  connect_downloads();
}

void LoggerWindow::connect() {
  link_.gate.on_refused([this](const std::string& name) { note_refusal(name); });
  meter_rec_.on_click("loggerPWR", [this] {
    if (window_.visible())
      window_.show();
    else
      link_.gate.run("MeterRec.loggerPWR", [this] { ask_and_open(); });
  });
  window_.on_click(read_status_button, [this] {
    exchange(read_status_button, Cancelling::impossible, [this] {
      if (datalogger_.read_status() != StatusRead::failed) start_edited_ = false;
    });
  });
  window_.on_press(transfer_cancel, [this] { datalogger_.cancel(); });
  window_.on_click(open_folder, [this] { platform_.shell.open_document(results_folder_); });
  for (const LoggerPanel& box : start_boxes()) window_.on_change(box.value, [this] { start_edited_ = true; });
  window_.on_close([this] { close(); });
}

void LoggerWindow::connect_downloads() {
  for (const auto& [button, kind] :
       {std::pair{"Read_All", &power_kind}, std::pair{"Command2", &harmonics_kind},
        std::pair{"DL_HC", &hardcopy_kind}})
    window_.on_click(button, [this, button = button, kind = kind] {
      exchange(button, Cancelling::possible, [this, kind] { ask_and_download(*kind); });
    });
  window_.on_click("Command3", [this] {
    exchange("Command3", Cancelling::possible, [this] { ask_and_download_transient(); });
  });
  window_.on_click("DL_All",
                   [this] { exchange("DL_All", Cancelling::possible, [this] { download_all(); }); });
  window_.on_click("Command1",
                   [this] { exchange("Command1", Cancelling::impossible, [this] { ask_and_clear(); }); });
}

// ---- opening and closing ----

void LoggerWindow::ask_and_open() {
  const bool recording = meter_rec_["FileStop"].enabled;
  if (!recording ||
      platform_.dialogs.confirm({std::string(recording_runs.in(link_.state.language)), "", Icon::question}))
    open();
}

void LoggerWindow::open() {
  datalogger_.take_line();
  window_.apply_captions(link_.state.language);
  window_.show();
}

void LoggerWindow::close() {
  if (busy_) {
    close_wanted_ = true;
    datalogger_.cancel();
    return;
  }
  link_.gate.run_alone("Logger.close", [this] { unload(); });
}

void LoggerWindow::unload() {
  close_wanted_ = false;
  platform_.dialogs.message({std::string(closing_window.in(link_.state.language)), "", Icon::none});
  window_.hide();
  datalogger_.give_line_back();
}

// ---- one exchange ----

// Not of a window that was closed before its turn came.
void LoggerWindow::exchange(std::string_view button, Cancelling cancelling,
                            const std::function<void()>& work) {
  link_.gate.run_alone("Logger." + std::string(button), [this, button, cancelling, work] {
    if (!window_.visible()) return;
    lock(true);
    datalogger_.begin();
    datalogger_.panel().say("");
    if (cancelling == Cancelling::possible) datalogger_.panel().begin(window_[button].text);
    work();
    datalogger_.panel().end();
    lock(false);
    forget_refusal();
    link_.exchange.tell_ended();
    if (close_wanted_) unload();
  });
}

void LoggerWindow::lock(bool locked) {
  busy_ = locked;
  for (const std::string_view button : logger_buttons()) window_.set_enabled(button, !locked);
  window_.set_enabled(read_status_button, !locked);
  window_.set_enabled(open_folder, !locked);
  for (const LoggerPanel& box : start_boxes()) window_.set_enabled(box.value, !locked);
}

// A change of the window's size is nothing that the user would miss.
void LoggerWindow::note_refusal(const std::string& name) {
  if (name == "resize") return;
  refusal_ = refused_meanwhile.in(link_.state.language);
  meter_rec_.set_text(status_hint, refusal_);
}

void LoggerWindow::forget_refusal() {
  if (!refusal_.empty() && meter_rec_[status_hint].text == refusal_) meter_rec_.set_text(status_hint, "");
  refusal_.clear();
}

// ---- what the user is asked before ----

void LoggerWindow::ask_and_download(const StoredKind& kind) {
  if (!query_keeping_start() || datalogger_.nothing_is_stored()) return;
  if (kind_of(link_.status.logger_data_type) != &kind) return datalogger_.say(kind.wrong_kind_message);
  datalogger_.panel().show_notice("", "");
  const std::string path =
      chosen_file(kind.extension, stored_file_stamp(link_.status) + std::string(kind.suffix));
  if (!path.empty()) show_result(path, datalogger_.download(kind, path));
}

void LoggerWindow::ask_and_download_transient() {
  const std::string path = chosen_file(".csv", "transients-" + date_text({platform_.clock.today()}) + ".csv");
  if (!path.empty() && datalogger_.is_ready()) show_result(path, datalogger_.download_transient(path));
}

// What the user has typed into the boxes counts as long as the meter tells the same file and start. False
// also when the user has cancelled meanwhile.
bool LoggerWindow::query_keeping_start() {
  const std::optional<RecordedStart> typed = start_edited_ ? std::optional(start_of(window_)) : std::nullopt;
  const std::string stamp = stored_file_stamp(link_.status);
  if (!datalogger_.query_stored_file()) return false;
  start_edited_ = typed && stamp == stored_file_stamp(link_.status);
  if (start_edited_) {
    window_.set_text(start_boxes()[0].value, typed->date);
    window_.set_text(start_boxes()[1].value, typed->time);
  }
  return !datalogger_.is_cancelled();
}

// Empty when the user chose none or does not want to add to it.
std::string LoggerWindow::chosen_file(std::string_view extension, const std::string& suggested_name) {
  const std::string kind(extension.substr(1));
  const FileQuestion question = {{{kind + " Files(*." + kind + ")", "*." + kind}, {"All Files (*.*)", "*.*"}},
                                 std::string(extension),
                                 suggested_name};
  const std::optional<std::string> path = platform_.dialogs.save_file(question);
  if (!path || path->empty()) return {};
  if (name_of(*path).starts_with("temp_data.")) {
    datalogger_.say(reserved_name.in(link_.state.language));
    return {};
  }
  const bool missing = platform_.files.read(*path, 0, 1).failure == FileFailure::not_found;
  if (missing ||
      platform_.dialogs.confirm({"File  " + *path + "  exists, add data to it", "", Icon::question}))
    return *path;
  return {};
}

void LoggerWindow::ask_and_clear() {
  if (!query_keeping_start() || datalogger_.nothing_is_stored()) return;
  const Language language = link_.state.language;
  const std::string count = files_text(static_cast<std::size_t>(link_.status.logger_file_count), language);
  if (!platform_.dialogs.confirm(
          {"Are you sure ?", files_go.with(language, {count}), Icon::question, Preset::no}))
    return;
  const auto cleared = static_cast<std::size_t>(datalogger_.clear_memory());
  datalogger_.panel().say(clear_results[cleared].in(language));
}

// ---- what became of it ----

void LoggerWindow::show_result(const std::string& path, const DownloadResult& result) {
  const Language language = link_.state.language;
  const std::string text = result_text(result, language);
  start_edited_ = false;
  results_folder_ = folder_of(path);
  add_result(path + ": " + text);
  datalogger_.panel().say(result.end == DownloadEnd::incomplete ? bytes_lost.in(language) : text);
}

void LoggerWindow::download_all() {
  const std::string& folder = datalogger_.work_folder();
  results_folder_ = folder;
  const RunResult run = datalogger_.download_all(
      folder, [this](const FileOfRun& file) { add_result(line_of(file, link_.state.language)); });
  start_edited_ = false;
  if (run.end == RunEnd::nothing_stored) return;
  for (const std::string& message : run.messages) add_result(message);
  datalogger_.panel().say(run_text(run, folder, link_.state.language));
}

void LoggerWindow::add_result(const std::string& line) {
  results_.push_back(line);
  window_.set_lines(results, std::make_shared<const Lines>(results_));
  for (const std::string_view name : {results, results_title, open_folder}) window_.set_visible(name, true);
}

}  // namespace halden
