// The window that plots power data files, PlotFile: opens a file, draws one of its quantities, and lets the
// user choose range, titles, grid, limits and statistics.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "filetools/power_plot/plot_export.h"
#include "filetools/power_plot/plot_form.h"
#include "filetools/power_plot/power_chart.h"
#include "filetools/power_plot/power_plot.h"
#include "filetools/reading_progress.h"
#include "link/link_state.h"
#include "platform/platform.h"
#include "screen/windows.h"

namespace halden {

class PlotWindow {
 public:
  // All outlive the window. Connects the entry of the main window that opens it.
  PlotWindow(const Platform& platform, Windows& windows, Window& meter_rec, const LinkState& link);
  PlotWindow(const PlotWindow&) = delete;
  PlotWindow& operator=(const PlotWindow&) = delete;

  // As if the user had chosen the file.
  void open_file(const std::string& path);

  // Called with the path of each file that has been read.
  void on_opened(std::function<void(const std::string& path)> handler) { opened_ = std::move(handler); }

 private:
  void connect();
  void connect_look();
  // Why a file is read.
  enum class Cause { chosen, again, view };
  struct Task {
    PlotRequest request;
    Cause cause = Cause::chosen;
  };

  void choose_file();
  void read_again();
  void select(std::size_t choice);
  void choose_part();
  void show_view();
  void plot(Task task);
  void read(const Task& task);
  void refuse(const Message& refusal, Cause cause);
  void take(std::shared_ptr<const PowerPlot> plot, const Task& task);
  PlotRequest newest() const;
  void put_back_x_title();
  void show_choices();
  void draw();
  Chart empty_chart(Language language) const;
  void set_limit(std::optional<double>& limit, const std::string& prompt, const std::string& title);
  void set_title(std::string& title, const std::string& prompt, const std::string& caption);
  void mark(std::string_view item, int count, int chosen);
  void print();

  Platform platform_;
  const LinkState& link_;
  Window window_ = make_plot_window();
  PlotLook look_;
  std::shared_ptr<const PowerPlot> plot_;  // null until a file could be plotted
  bool cleared_ = false;                   // the plot is there, but not drawn
  PlotRequest plotted_;       // what has led to it; before the first plot the file that was refused
  Task being_read_;           // while a file is read
  std::optional<Task> next_;  // given meanwhile
  std::optional<std::string> title_before_menu_;
  std::function<void(const std::string& path)> opened_;
  PlotExport export_{platform_, link_.language, window_};
  ReadingProgress reading_{platform_.clock, window_, {processing_panel, plot_progress, plot_cancel}};
};

}  // namespace halden
