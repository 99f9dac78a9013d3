#include "filetools/playback/playback_window.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>
#include <utility>

#include "filetools/playback/playback_chart.h"
#include "filetools/window_print.h"
#include "platform/dialogs.h"
#include "readings/patterns.h"

namespace halden {

namespace {

constexpr double show_progress_after_s = 0.5;

constexpr std::int16_t harmonics_mode_of_plot = 0;
constexpr std::int16_t waveform_mode_of_plot = 2;
constexpr std::int16_t all_orders_shown = 100;
constexpr std::int16_t fifty_orders_shown = 51;

constexpr Text open_harmonics = {"Open a harmonics data file: File > Open", "請開啟諧波數據檔：File > Open"};
constexpr Text open_waveform = {"Open a waveform data file: File > Open", "請開啟波形數據檔：File > Open"};
constexpr Text is_waveform = {"This is a waveform data file: choose Plot Waveform in the main window.",
                              "這是波形數據檔：請在主視窗選擇 Plot Waveform。"};
constexpr Text is_harmonics = {"This is a harmonics data file: choose Plot Harmonics in the main window.",
                               "這是諧波數據檔：請在主視窗選擇 Plot Harmonics。"};

FileQuestion question_for(WaveFileKind kind) {
  const FileFilter all = {"All Files (*.*)", "*.*"};
  if (kind == WaveFileKind::waveform) return {{{"dat Files(*.dat)", "*.dat"}, all}, "", ""};
  return {{{"csv Files(*.csv)", "*.csv"}, all}, "", ""};
}

}  // namespace

PlaybackWindow::PlaybackWindow(const Platform& platform, Windows& windows, Window& meter_rec,
                               const LinkState& link, const MeterStatus& status)
    : platform_(platform),
      link_(link),
      status_(status),
      reading_(platform_.clock, window_, {playback_reading, playback_progress, playback_cancel},
               show_progress_after_s) {
  windows.add(window_);
  meter_rec.on_click("show_plot_harmonics", [this] { show(WaveFileKind::harmonics); });
  meter_rec.on_click("show_plot_waveform", [this] { show(WaveFileKind::waveform); });
  connect();
  show_empty();
}

void PlaybackWindow::connect() {
  window_.on_click("openfileforplot", [this] { choose_file(); });
  window_.on_click("read_again", [this] {
    if (file_) plot(file_->path, record_.number);
  });
  window_.on_click("set_har_51", [this] { choose_count(fifty_orders_shown); });
  window_.on_click("set_har_100", [this] { choose_count(all_orders_shown); });
  window_.on_click("set_color", [this] { print(ChartColours::colour); });
  window_.on_click("set_BW", [this] { print(ChartColours::black_and_white); });
  window_.on_change(playback_scroll, [this] {
    if (file_) show_record(static_cast<std::size_t>(window_[playback_scroll].value));
  });
  window_.on_language([this] { file_ ? show_record(record_.number) : show_empty(); });
  window_.on_click("exit_plot_harmonics", [this] { close(); });
  window_.on_close([this] { close(); });
}

WaveFileKind PlaybackWindow::kind() const {
  return plot_harmo_mode_ == harmonics_mode_of_plot ? WaveFileKind::harmonics : WaveFileKind::waveform;
}

// What is shown of the other kind of file goes: its controls differ.
void PlaybackWindow::show(WaveFileKind wanted) {
  if (wanted != kind()) {
    reading_.cancel();
    file_.reset();
  }
  const bool harmonics = wanted == WaveFileKind::harmonics;
  plot_harmo_mode_ = harmonics ? harmonics_mode_of_plot : waveform_mode_of_plot;
  window_.set_caption(harmonics ? "Plot Harmonics" : "Plot Waveform");
  if (!file_) show_empty();
  window_.show();
}

void PlaybackWindow::close() {
  reading_.cancel();
  next_.reset();
  window_.hide();
}

// ---- files ----

void PlaybackWindow::choose_file() {
  const std::optional<std::string> path = platform_.dialogs.open_file(question_for(kind()));
  if (path && !path->empty()) open_file(*path);
}

void PlaybackWindow::open_file(const std::string& path) { plot(path, 1); }

// A refusal leaves the picture as it was. What is asked for while a file is being read ends that and follows
// it.
void PlaybackWindow::plot(const std::string& path, std::size_t record) {
  if (reading_.runs()) {
    next_ = {path, record};
    return reading_.cancel();
  }
  window_.set_text(status_hint, "");
  reading_.begin();
  const PlaybackOutcome outcome = open_playback(platform_.files, path, kind(), reading_.progress());
  reading_.end();
  if (const auto next = std::exchange(next_, std::nullopt)) return plot(next->path, next->record);
  if (!outcome.refusal.text.empty()) return refuse(outcome);
  if (!outcome.file || outcome.file->kind != kind()) return;
  if (opened_) opened_(path);
  take(outcome.file, record);
}

void PlaybackWindow::refuse(const PlaybackOutcome& outcome) {
  const Text& other_kind = kind() == WaveFileKind::harmonics ? is_waveform : is_harmonics;
  if (outcome.is_other_kind) window_.set_text(status_hint, other_kind.in(link_.language));
  platform_.dialogs.message(outcome.refusal);
}

// No box opens while the user steps through the records, only here.
void PlaybackWindow::take(std::shared_ptr<const PlaybackFile> file, std::size_t record) {
  file_ = std::move(file);
  ++plots_;
  const std::size_t count = file_->record_count();
  window_.set_range(playback_scroll, 1, static_cast<int>(count));
  window_.set_visible(playback_scroll, true);
  window_.set_enabled("read_again", true);
  window_.set_text("TOTAL_R_value", std::to_string(count));
  show_record(std::min(record, count));
  if (kind() == WaveFileKind::waveform && record_.line == WaveLineKind::torn)
    platform_.dialogs.message({"Data Error", {}});
}

void PlaybackWindow::choose_count(std::int16_t harmonics_shown) {
  harmonics_shown_ = harmonics_shown;
  ++plots_;
  file_ ? show_record(1) : show_empty();
}

// ---- the record ----

void PlaybackWindow::show_record(std::size_t number) {
  record_ = play_record(platform_.files, *file_, number, {harmonics_shown_, currents()});
  window_.set_value(playback_scroll, static_cast<int>(number));
  Chart chart = playback_chart(record_, link_.language);
  chart.colours = colours_;
  chart.subject = plots_;  // the whole of another plot is shown again
  window_.set_chart(playback_chart_name, std::make_shared<const Chart>(std::move(chart)));
  window_.set_text(playback_about_line, playback_about(*file_, record_, currents(), link_.language));
  window_.set_text(playback_note_line, playback_note(record_, link_.language));
  window_.set_text(playback_index, format_pattern(static_cast<double>(number), "####0"));
  show_texts(record_);
}

void PlaybackWindow::show_texts(const PlayedRecord& record) {
  const WaveTexts& texts = record.texts;
  const std::array<std::pair<std::string_view, std::string_view>, 9> panels = {
      {{"DATE_value", record.date},
       {"TIME_value", record.time},
       {"RMS_value", texts.rms},
       {"PEAK_P_value", texts.peak_plus},
       {"PEAK_N_value", texts.peak_minus},
       {"CF_wave_value", texts.crest_factor},
       {"THD_value", texts.thd},
       {"VI_1_value", texts.fundamental},
       {"HZ_value", texts.hz}}};
  for (const auto& [name, text] : panels) window_.set_text(name, text);
  window_.set_lines(playback_list, record.list);
  window_.set_visible(playback_list, kind() == WaveFileKind::harmonics);
  mark_choices();
}

void PlaybackWindow::mark_choices() {
  window_.set_checked("set_har_51", harmonics_shown_ == fifty_orders_shown);
  window_.set_checked("set_har_100", harmonics_shown_ == all_orders_shown);
  window_.set_checked("set_color", colours_ == ChartColours::colour);
  window_.set_checked("set_BW", colours_ == ChartColours::black_and_white);
}

void PlaybackWindow::show_empty() {
  record_ = {};
  Chart empty;
  empty.hint = (kind() == WaveFileKind::harmonics ? open_harmonics : open_waveform).in(link_.language);
  empty.colours = colours_;
  window_.set_chart(playback_chart_name, std::make_shared<const Chart>(std::move(empty)));
  for (const std::string_view name : {playback_about_line, playback_note_line, playback_index,
                                      std::string_view("TOTAL_R_value"), std::string_view(status_hint)})
    window_.set_text(name, "");
  window_.set_visible(playback_scroll, false);
  window_.set_enabled("read_again", false);
  show_texts(record_);
}

// The chart keeps the colours afterwards.
void PlaybackWindow::print(ChartColours colours) {
  colours_ = colours;
  Chart chart = *window_[playback_chart_name].chart;
  chart.colours = colours;
  window_.set_chart(playback_chart_name, std::make_shared<const Chart>(std::move(chart)));
  mark_choices();
  window_.set_text(status_hint, print_in_landscape(platform_, window_, link_.language));
}

}  // namespace halden
