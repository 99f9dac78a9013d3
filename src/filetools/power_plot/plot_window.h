// The window that plots power data files, PlotFile: opens a file, draws one of its quantities, and lets the
// user choose range, titles, grid, limits and statistics.
#pragma once

#include <cstddef>
#include <cstdint>
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
  void choose_file();
  void select(std::size_t choice);
  void choose_part();
  void read_again();
  void plot(const PlotRequest& request);
  bool show_progress(std::uint64_t done, std::uint64_t length);
  void begin_reading();
  void end_reading();
  void take(const PlotRequest& request, std::shared_ptr<const PowerPlot> plot);
  void show_choices();
  void draw();
  void set_limit(std::optional<double>& limit, const std::string& prompt, const std::string& title);
  void set_title(std::string& title, const std::string& prompt, const std::string& caption);
  void mark(std::string_view item, int count, int chosen);
  void show_empty();
  void show_plot();
  bool is_drawn() const { return plot_ && !cleared_; }
  void clear();
  void print();

  Platform platform_;
  const LinkState& link_;
  Window window_ = make_plot_window();
  PlotExport export_{platform_, link_.language, window_};
  std::string plot_file_name_;  // of the plot, or as long as there is none of a refused file; may be empty
  std::size_t selected_item_ = 0;
  WantedRecords part_;
  PlotLook look_;
  std::shared_ptr<const PowerPlot> plot_;  // the last one, also after it was cleared
  bool cleared_ = false;
  std::optional<PlotRequest> next_;  // what was asked for while a file was being read
  std::function<void(const std::string& path)> opened_;
  bool reading_ = false;
  bool cancelled_ = false;
  double shown_s_ = 0;  // when the progress was last shown
};

}  // namespace halden
