// The window that plots power data files, PlotFile: opens a file, draws one of its quantities, and lets the
// user choose range, titles, grid, limits and statistics.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

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

 private:
  void connect();
  void connect_look();
  void choose_file();
  void select(std::size_t choice);
  void choose_part();
  void plot(const PlotRequest& request);
  void take(std::shared_ptr<const PowerPlot> plot);
  void show_choices();
  void draw();
  void set_limit(std::optional<double>& limit, const std::string& prompt, const std::string& title);
  void set_title(std::string& title, const std::string& prompt, const std::string& caption);
  void mark(std::string_view item, int count, int chosen);
  void show_empty();
  void clear();
  void print();

  Platform platform_;
  const LinkState& link_;
  Window window_ = make_plot_window();
  std::string plot_file_name_;  // empty while none is open
  std::size_t selected_item_ = 0;
  WantedRecords part_;
  PlotLook look_;
  std::shared_ptr<const PowerPlot> plot_;  // what is drawn; null when the chart is empty
  ReadingProgress reading_{platform_.clock, window_, {processing_panel, plot_progress, plot_cancel}};
};

}  // namespace halden
