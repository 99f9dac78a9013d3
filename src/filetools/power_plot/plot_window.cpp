#include "filetools/power_plot/plot_window.h"

#include <array>
#include <utility>

#include "filetools/power_plot/plot_choices.h"
#include "filetools/power_plot/plot_texts.h"
#include "platform/clock.h"
#include "platform/dialogs.h"
#include "platform/printer.h"
#include "platform/timer.h"
#include "readings/numbers.h"
#include "screen/failure_texts.h"
#include "screen/meter_rec/panels.h"

namespace halden {

namespace {

constexpr double show_progress_every_s = 0.1;
constexpr int whole_progress = 1000;

constexpr Text open_a_file = {"Open a power data file: File > Open", "請開啟電力數據檔：File > Open"};

constexpr int x_label_items = 2;
constexpr int grid_items = 4;
constexpr int statistics_items = 9;

}  // namespace

PlotWindow::PlotWindow(const Platform& platform, Windows& windows, Window& meter_rec, const LinkState& link)
    : platform_(platform), link_(link) {
  windows.add(window_);
  windows.on_language([this] { draw(); });
  meter_rec.on_click("OpenPlotFile", [this] { window_.show(); });
  connect();
  connect_look();
  draw();
}

void PlotWindow::connect() {
  window_.on_click("openfile", [this] {
    look_.x_title = "Time";
    draw();
  });
  window_.on_click("openfileforplot", [this] { choose_file(); });
  window_.on_click("read_again", [this] { read_again(); });
  for (std::size_t choice = 0; choice < plot_choices.size(); ++choice)
    window_.on_click(element("SelectData", static_cast<int>(choice)), [this, choice] { select(choice); });
  window_.on_click("ZoomIn", [this] { choose_part(); });
  window_.on_click("clear_graphics", [this] { clear(); });
  window_.on_click("Pgraphics", [this] { print(); });
  window_.on_click("leave_out", [this] {
    look_.missing =
        look_.missing == MissingReadings::as_zero ? MissingReadings::left_out : MissingReadings::as_zero;
    draw();
  });
  window_.on_press(plot_cancel, [this] { cancelled_ = true; });
  window_.on_resize([this] { window_.set_caption(plot_caption); });
  const auto close = [this] {
    cancelled_ = true;
    next_.reset();
    window_.hide();
  };
  window_.on_click("exit_plot", close);
  window_.on_close(close);
}

void PlotWindow::connect_look() {
  window_.on_click("set_scale_0", [this] {
    look_.y_low.reset();
    look_.y_high.reset();
    draw();
  });
  window_.on_click("set_scale_1",
                   [this] { set_limit(look_.y_low, "Enter minimum value for Y (vertical) axis", "Min Y"); });
  window_.on_click("set_scale_2",
                   [this] { set_limit(look_.y_high, "Enter maximum value for Y (vertical) axis", "Max Y"); });
  window_.on_click("set_title_0",
                   [this] { set_title(look_.x_title, "Enter title for the X axis", "X Title"); });
  window_.on_click("set_title_1",
                   [this] { set_title(look_.y_title, "Enter title for the Y axis", "Y Title"); });
  const auto connect_setting = [this](std::string_view item, int index, auto change) {
    window_.on_click(element(item, index), [this, change] {
      change();
      draw();
    });
  };
  connect_setting("set_title", 3, [this] { look_.x_title.clear(); });
  connect_setting("set_title", 4, [this] { look_.y_title.clear(); });
  for (int index = 0; index < x_label_items; ++index)
    connect_setting("set_x_label", index, [this, index] { look_.labels = static_cast<PlotLabels>(index); });
  for (int index = 0; index < grid_items; ++index)
    connect_setting("set_grid", index, [this, index] { look_.grid = static_cast<Grid>(index); });
  for (int index = 0; index < statistics_items; ++index)
    connect_setting("StatOption", index,
                    [this, index] { look_.statistics = static_cast<Statistics>(index); });
}

// ---- files ----

void PlotWindow::choose_file() {
  const std::optional<std::string> path = platform_.dialogs.open_file({{{"All Files (*.*)", "*.*"}}, "", ""});
  if (path && !path->empty()) open_file(*path);
}

void PlotWindow::open_file(const std::string& path) {
  if (!plot_) plot_file_name_ = path;
  plot({path});
}

// The user's title of the Y axis stays, although every other plot sets it.
void PlotWindow::read_again() {
  const std::string title = look_.y_title;
  const bool is_of_user = plot_ && title != plot_y_title(*plot_);
  plot({plot_file_name_, selected_item_, part_});
  if (!is_of_user) return;
  look_.y_title = title;
  draw();
}

void PlotWindow::select(std::size_t choice) {
  if (plot_file_name_.empty())
    return platform_.dialogs.message({"Please first open a file where data is stored", "", Icon::critical});
  plot({plot_file_name_, choice});
}

void PlotWindow::choose_part() {
  if (!plot_) return;
  const std::size_t count = plot_->record_count;
  const std::string title = "Total " + std::to_string(count) + " records";
  const std::string start = platform_.dialogs.input("Enter the starting record number", title, "1");
  if (start.empty()) return;
  if (const RangeAnswer from = read_start(start, count); from.refused())
    return platform_.dialogs.message(from.refusal);
  const std::string end =
      platform_.dialogs.input("Enter the ending record number (max. to_plot records 3600)", title, "");
  if (end.empty()) return;
  const RangeAnswer answer = read_range(start, end, count);
  if (answer.refused()) return platform_.dialogs.message(answer.refusal);
  plot({plot_file_name_, selected_item_, {answer.range.first, answer.range.last}});
}

// A refusal leaves the chart, its file and what was chosen about it as they were. What is asked for while a
// file is being read ends that and follows it.
void PlotWindow::plot(const PlotRequest& request) {
  if (request.path.empty()) return;
  if (reading_) {
    next_ = request;
    cancelled_ = true;
    return;
  }
  begin_reading();
  const PlotOutcome outcome = read_power_plot(
      platform_.files, request,
      [this](std::uint64_t done, std::uint64_t length) { return show_progress(done, length); });
  end_reading();
  if (const auto next = std::exchange(next_, std::nullopt)) return plot(*next);
  if (cancelled_) return;
  if (!outcome.plot) return platform_.dialogs.message(outcome.refusal);
  take(request, outcome.plot);
  if (opened_) opened_(request.path);
}

void PlotWindow::begin_reading() {
  reading_ = true;
  cancelled_ = false;
  shown_s_ = platform_.clock.monotonic_s();
  window_.set_text(status_hint, "");
  window_.set_range(plot_progress, 0, whole_progress);
  window_.set_value(plot_progress, 0);
  for (const std::string_view name : {processing_panel, plot_progress, plot_cancel})
    window_.set_visible(name, true);
  let_events_run(platform_.clock);
}

void PlotWindow::end_reading() {
  for (const std::string_view name : {processing_panel, plot_progress, plot_cancel})
    window_.set_visible(name, false);
  reading_ = false;
}

bool PlotWindow::show_progress(std::uint64_t done, std::uint64_t length) {
  const double now_s = platform_.clock.monotonic_s();
  if (now_s - shown_s_ >= show_progress_every_s && length > 0) {
    shown_s_ = now_s;
    window_.set_value(plot_progress, static_cast<int>(done * whole_progress / length));
    let_events_run(platform_.clock);
  }
  return !cancelled_;
}

// ---- the plot ----

void PlotWindow::take(const PlotRequest& request, std::shared_ptr<const PowerPlot> plot) {
  const bool is_newly_opened = !request.choice;
  if (is_newly_opened) {
    look_.y_low.reset();
    look_.y_high.reset();
  }
  plot_file_name_ = request.path;
  part_ = request.wanted;
  plot_ = std::move(plot);
  cleared_ = false;
  selected_item_ = plot_->choice;
  look_.y_title = plot_y_title(*plot_);
  window_.set_enabled("ZoomIn", true);
  window_.set_enabled("read_again", true);
  window_.set_enabled("Status", plot_->record_count < records_of_envelope);
  show_choices();
  draw();
  if (plot_->is_envelope) platform_.dialogs.message({std::string(no_statistics_text), "", Icon::none});
}

void PlotWindow::show_choices() {
  for (std::size_t choice = 0; choice < plot_choices.size(); ++choice)
    window_.set_enabled(element("SelectData", static_cast<int>(choice)),
                        is_offered(choice, *plot_->settings.wiring));
  mark("SelectData", static_cast<int>(plot_choices.size()), static_cast<int>(selected_item_));
}

void PlotWindow::mark(std::string_view item, int count, int chosen) {
  for (int index = 0; index < count; ++index) window_.set_checked(element(item, index), index == chosen);
}

void PlotWindow::draw() {
  mark("set_x_label", x_label_items, static_cast<int>(look_.labels));
  mark("set_grid", grid_items, static_cast<int>(look_.grid));
  mark("StatOption", statistics_items, static_cast<int>(look_.statistics));
  window_.set_checked("set_scale_0", !look_.y_low && !look_.y_high);
  window_.set_checked("leave_out", look_.missing == MissingReadings::left_out);
  export_.set_plot(is_drawn() ? plot_ : nullptr, look_.missing);
  is_drawn() ? show_plot() : show_empty();
}

// Statistics are those of files for which their menu is enabled.
void PlotWindow::show_plot() {
  const Language language = link_.language;
  PlotLook look = look_;
  if (!window_["Status"].enabled) look.statistics = Statistics::none;
  window_.set_chart(plot_chart, std::make_shared<const Chart>(power_chart(plot_, look, language)));
  window_.set_text(plot_about, plot_line(*plot_, language));
  window_.set_text(plot_missing, missing_readings_line(*plot_, look_.missing, language));
  window_.set_text(plot_statistics, statistics_line(*plot_, look_.missing, language));
}

void PlotWindow::show_empty() {
  Chart empty;
  empty.hint = open_a_file.in(link_.language);
  window_.set_chart(plot_chart, std::make_shared<const Chart>(std::move(empty)));
  for (const std::string_view name : {plot_about, plot_missing, plot_statistics}) window_.set_text(name, "");
}

void PlotWindow::clear() {
  cleared_ = true;
  draw();
}

void PlotWindow::set_limit(std::optional<double>& limit, const std::string& prompt,
                           const std::string& title) {
  const std::string answer = platform_.dialogs.input(prompt, title, "");
  if (answer.empty()) return;
  limit = leading_number(answer);
  draw();
}

void PlotWindow::set_title(std::string& title, const std::string& prompt, const std::string& caption) {
  const std::string answer = platform_.dialogs.input(prompt, caption, "");
  if (answer.empty()) return;
  title = answer;
  draw();
}

// The two live timers stand still meanwhile.
void PlotWindow::print() {
  const std::array timers = {&platform_.timer1, &platform_.timer2};
  std::array<bool, 2> ran{};
  for (std::size_t i = 0; i < timers.size(); ++i) {
    ran[i] = timers[i]->enabled();
    timers[i]->set_enabled(false);
  }
  platform_.printer.set_orientation(Orientation::landscape);
  platform_.printer.print_window(window_.name());
  const PrintFailure failure = platform_.printer.finish();
  for (std::size_t i = 0; i < timers.size(); ++i)
    if (ran[i]) timers[i]->set_enabled(true);
  window_.set_text(status_hint, print_sentence(failure, platform_.printer.destination(), link_.language));
}

}  // namespace halden
