// The entries of PlotFile that hand its chart and its points on to other programs.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "filetools/power_plot/power_plot.h"
#include "platform/platform.h"
#include "screen/output/picture_output.h"

namespace halden {

class PlotExport {
 public:
  // All outlive this.
  PlotExport(const Platform& platform, const Language& language, Window& window);
  PlotExport(const PlotExport&) = delete;
  PlotExport& operator=(const PlotExport&) = delete;

  // What the chart shows now; null when it is empty.
  void set_plot(std::shared_ptr<const PowerPlot> plot, MissingReadings missing);

 private:
  // The chart with the line about the file as its title, which stands above it on the screen.
  Chart titled_chart() const;
  std::string suggested_name() const;  // "day-P_SYS"
  void connect(std::string_view entry, std::function<void()> hand_on);

  Window& window_;
  PictureOutput output_;
  std::shared_ptr<const PowerPlot> plot_;
  MissingReadings missing_ = MissingReadings::as_zero;
};

}  // namespace halden
