#include "logger/datalogger.h"

#include "logger/meter_commands.h"
#include "logger/status_panel.h"
#include "logger/stored_download.h"
#include "logger/transient_download.h"
#include "readings/patterns.h"

namespace halden {

namespace {

constexpr std::string_view in_waveform_mode = "In waveform mode";

}  // namespace

Datalogger::Datalogger(const Platform& platform, Window& logger, Window& notice, Link& link,
                       const std::string& work_folder)
    : platform_(platform),
      link_(link),
      window_(logger),
      line_(platform.clock, platform.port, link.state),
      messages_(platform.dialogs, link.state),
      panel_(logger, notice, link.state),
      parts_{platform, link, line_, messages_, panel_, work_folder},
      download_all_(parts_, logger, [this] { return read_status(); }) {
  link_.query.on_status_read([this] { show_status(link_.status, link_.state.language, window_); });
}

void Datalogger::take_line() {
  link_.polling.hold_line();
  link_.polling.stop_polling();
}

void Datalogger::give_line_back() {
  download_all_.clear_base_name();
  link_.polling.release_line();
  link_.polling.resume_polling(1);
}

StatusRead Datalogger::read_status() {
  if (link_.state.display_mode == waveform_view) messages_.say(in_waveform_mode);
  let_events_run(platform_.clock);
  const bool read = query_stored_file();
  let_events_run(platform_.clock);
  if (!read) return StatusRead::failed;
  return nothing_is_stored() ? StatusRead::nothing_stored : StatusRead::read;
}

bool Datalogger::nothing_is_stored() {
  if (link_.status.logger_file_count > 0) return false;
  messages_.say(no_data_recorded.in(link_.state.language));
  return true;
}

bool Datalogger::select(int number) {
  if (!is_ready()) return false;
  select_stored_file(link_.waits, platform_.port, format_pattern(number, "00"));
  return read_status() == StatusRead::read && link_.status.logger_file_index == number;
}

DownloadResult Datalogger::download(const StoredKind& kind, const std::string& path) {
  return StoredDownload(parts_, kind, start_of(window_)).run(path);
}

DownloadResult Datalogger::download_transient(const std::string& path) {
  return TransientDownload(parts_).run(path);
}

RunResult Datalogger::download_all(const std::string& folder,
                                   const std::function<void(const FileOfRun&)>& file_done) {
  return download_all_.run(folder, file_done);
}

Cleared Datalogger::clear_memory() {
  erase_memory(link_.waits, platform_.port);
  link_.query.query_meter_status();
  if (!link_.query.succeeded()) return Cleared::unknown;
  return link_.status.logger_file_count == 0 ? Cleared::yes : Cleared::no;
}

}  // namespace halden
