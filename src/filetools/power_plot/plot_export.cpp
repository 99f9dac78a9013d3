#include "filetools/power_plot/plot_export.h"

#include <utility>

#include "chart/chart.h"
#include "filetools/file_name.h"
#include "filetools/power_plot/plot_choices.h"
#include "filetools/power_plot/plot_form.h"
#include "filetools/power_plot/points_csv.h"

namespace halden {

PlotExport::PlotExport(const Platform& platform, const Language& language, Window& window)
    : window_(window), output_(platform, language, window) {
  connect("chart_copy", [this] { output_.copy_chart(titled_chart()); });
  connect("chart_copy_points", [this] { output_.copy_points(to_text(titled_chart())); });
  connect("chart_save", [this] { output_.save_chart(titled_chart(), suggested_name()); });
  connect("save_points",
          [this] { output_.save_points(points_csv(*plot_, missing_), suggested_name() + "-points"); });
}

void PlotExport::set_plot(std::shared_ptr<const PowerPlot> plot, MissingReadings missing) {
  plot_ = std::move(plot);
  missing_ = missing;
}

void PlotExport::connect(std::string_view entry, std::function<void()> hand_on) {
  window_.on_click(entry,
                   [this, hand_on = std::move(hand_on)] { plot_ ? hand_on() : output_.say_nothing_drawn(); });
}

Chart PlotExport::titled_chart() const {
  Chart chart = *window_[plot_chart].chart;
  chart.title = window_[plot_about].text;
  return chart;
}

std::string PlotExport::suggested_name() const {
  const std::string name(name_of_file(plot_->path));
  return name.substr(0, name.find_last_of('.')) + "-" + std::string(plot_choices[plot_->choice].caption);
}

}  // namespace halden
