#include "filetools/power_plot/plot_window.h"

#include <utility>

#include "filetools/power_plot/plot_choices.h"
#include "filetools/power_plot/plot_texts.h"
#include "filetools/window_print.h"
#include "platform/dialogs.h"
#include "readings/numbers.h"
#include "screen/meter_rec/panels.h"

namespace halden {

namespace {

constexpr Text open_a_file = {"Open a power data file: File > Open", "請開啟電力數據檔：File > Open"};

constexpr Text draw_again = {"Select, Zoom or File > Read Again draw the file again",
                             "選擇 Select、Zoom 或 File > 重新讀取 再次繪圖"};

// A view of a million records is read in less.
constexpr double view_without_progress_s = 0.5;

constexpr int x_label_items = 2;
constexpr int grid_items = 4;
constexpr int statistics_items = 9;

}  // namespace

PlotWindow::PlotWindow(const Platform& platform, Windows& windows, Window& meter_rec, const LinkState& link)
    : platform_(platform), link_(link) {
  windows.add(window_);
  meter_rec.on_click("OpenPlotFile", [this] { window_.show(); });
  connect();
  connect_look();
  draw();
}

void PlotWindow::connect() {
  window_.on_click("openfile", [this] {
    title_before_menu_ = std::exchange(look_.x_title, "Time");
    draw();
  });
  window_.on_click("openfileforplot", [this] { choose_file(); });
  window_.on_click("read_again", [this] { read_again(); });
  for (std::size_t choice = 0; choice < plot_choices.size(); ++choice)
    window_.on_click(element("SelectData", static_cast<int>(choice)), [this, choice] { select(choice); });
  window_.on_click("ZoomIn", [this] { choose_part(); });
  window_.on_change(plot_chart, [this] { show_view(); });
  window_.on_click("clear_graphics", [this] {
    cleared_ = true;
    draw();
  });
  window_.on_click("Pgraphics", [this] { print(); });
  window_.on_click("leave_out", [this] {
    look_.missing =
        look_.missing == MissingReadings::as_zero ? MissingReadings::left_out : MissingReadings::as_zero;
    put_back_x_title();
  });
  window_.on_language([this] { draw(); });
  window_.on_resize([this] { window_.set_caption(plot_caption); });
  const auto close = [this] {
    next_.reset();
    reading_.cancel();
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
  connect_setting("set_title", 3, [this] {
    look_.x_title.clear();
    title_before_menu_.reset();
  });
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

void PlotWindow::open_file(const std::string& path) { plot({{path}}); }

void PlotWindow::read_again() {
  put_back_x_title();
  plot({newest(), Cause::again});
}

void PlotWindow::select(std::size_t choice) {
  const std::string path = newest().path;
  if (path.empty())
    return platform_.dialogs.message({"Please first open a file where data is stored", "", Icon::critical});
  plot({{path, choice}});
}

void PlotWindow::choose_part() {
  if (!plot_) return;
  const PlotRequest plotted = plotted_;  // another file may be opened while the questions are asked
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
  plot({{plotted.path, plotted.choice, {answer.range.first, answer.range.last}}});
}

// The chart has been zoomed or moved with the mouse. The unit stays: the height shown is one of its numbers.
void PlotWindow::show_view() {
  if (!plot_ || cleared_) return;
  const Control& view = window_[plot_chart];
  const auto wanted =
      records_of_view({plot_->record_count, plot_->range, plot_->record_step}, view.minimum, view.maximum);
  if (wanted) plot({{plotted_.path, plotted_.choice, *wanted, plot_->prefix}, Cause::view});
}

// What was asked for last counts: it ends a reading that runs. Only a view gives way, because it belongs to
// the chart that is about to be replaced.
void PlotWindow::plot(Task task) {
  if (task.request.path.empty()) return;
  const bool runs = reading_.runs();
  if (runs && task.cause == Cause::view && (next_ ? *next_ : being_read_).cause != Cause::view) return;
  next_ = std::move(task);
  if (runs) return reading_.cancel();
  while (next_) read(*std::exchange(next_, std::nullopt));
}

// A refusal leaves the chart as it was. Before the first plot the file is kept: Select says again what is
// wrong with it, and F5 plots it when it has grown.
void PlotWindow::read(const Task& task) {
  being_read_ = task;
  if (task.cause != Cause::view) window_.set_text(status_hint, "");
  reading_.begin(task.cause == Cause::view ? view_without_progress_s : 0);
  const PlotOutcome outcome = read_power_plot(platform_.files, task.request, reading_.progress());
  reading_.end();
  if (!plot_) plotted_ = task.request;
  window_.set_enabled("read_again", true);
  if (reading_.cancelled()) return;
  if (!outcome.refusal.text.empty()) return refuse(outcome.refusal, task.cause);
  if (outcome.plot) take(outcome.plot, task);
}

// A box would come as a surprise where the user has only turned the wheel.
void PlotWindow::refuse(const Message& refusal, Cause cause) {
  if (cause == Cause::view)
    window_.set_text(status_hint, refusal.text);
  else
    platform_.dialogs.message(refusal);
}

PlotRequest PlotWindow::newest() const {
  if (next_) return next_->request;
  return reading_.runs() ? being_read_.request : plotted_;
}

// ---- the plot ----

void PlotWindow::take(std::shared_ptr<const PowerPlot> plot, const Task& task) {
  const bool opened = !plot_ || !task.request.choice;
  plot_ = std::move(plot);
  cleared_ = false;
  plotted_ = task.request;
  plotted_.choice = plot_->choice;
  if (opened) {
    look_.y_low = look_.y_high = std::nullopt;
    title_before_menu_.reset();
  }
  if (opened || task.cause == Cause::chosen) ++look_.subject;
  if (task.cause != Cause::view) look_.y_title = plot_y_title(*plot_);
  window_.set_enabled("ZoomIn", true);
  window_.set_enabled("Status", plot_->has_statistics());
  show_choices();
  draw();
  if (opened && opened_) opened_(task.request.path);
  if (plot_->is_envelope && task.cause != Cause::view)
    platform_.dialogs.message({std::string(no_statistics_text), "", Icon::none});
}

void PlotWindow::show_choices() {
  for (std::size_t choice = 0; choice < plot_choices.size(); ++choice)
    window_.set_enabled(element("SelectData", static_cast<int>(choice)),
                        is_offered(choice, *plot_->settings.wiring));
  mark("SelectData", static_cast<int>(plot_choices.size()), static_cast<int>(plot_->choice));
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
  const Language language = link_.language;
  const bool drawn = plot_ && !cleared_;
  export_.set_plot(drawn ? plot_ : nullptr, look_.missing);
  window_.set_chart(plot_chart, std::make_shared<const Chart>(drawn ? power_chart(plot_, look_, language)
                                                                    : empty_chart(language)));
  window_.set_text(plot_about, drawn ? plot_line(*plot_, language) : "");
  window_.set_text(plot_missing, drawn ? missing_readings_line(*plot_, look_.missing, language) : "");
  window_.set_text(plot_statistics, drawn ? statistics_line(*plot_, look_.missing, language) : "");
}

Chart PlotWindow::empty_chart(Language language) const {
  Chart empty;
  empty.hint = (plot_ ? draw_again : open_a_file).in(language);
  return empty;
}

// Opening the File menu has set the title of the X axis. That is not what the user wants who chooses an entry
// of our own there.
void PlotWindow::put_back_x_title() {
  if (title_before_menu_) look_.x_title = *std::exchange(title_before_menu_, std::nullopt);
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
  title_before_menu_.reset();
  draw();
}

void PlotWindow::print() {
  window_.set_text(status_hint, print_in_landscape(platform_, window_, link_.language));
}

}  // namespace halden
