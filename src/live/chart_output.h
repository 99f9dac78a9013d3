// The buttons beside the chart of the main window: copy it, copy its points, save it as a picture.
#pragma once

#include <memory>
#include <string>

#include "chart/chart.h"
#include "link/link_state.h"
#include "platform/platform.h"
#include "screen/window.h"

namespace halden {

class ChartOutput {
 public:
  // All outlive this. What became of it stands in the status line.
  ChartOutput(const Platform& platform, const LinkState& link, Window& meter_rec);
  ChartOutput(const ChartOutput&) = delete;
  ChartOutput& operator=(const ChartOutput&) = delete;

 private:
  std::shared_ptr<const Chart> drawn();  // nothing before the first frame and over range, which is said
  void copy_picture();
  void copy_points();
  void save();
  void say(const std::string& text) { window_.set_text("status_hint", text); }

  Platform platform_;
  const LinkState& link_;
  Window& window_;
};

}  // namespace halden
