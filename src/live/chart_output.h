// The buttons beside the chart of the main window: copy it, copy its points, save it as a picture.
#pragma once

#include <functional>

#include "chart/chart.h"
#include "link/link_state.h"
#include "platform/platform.h"
#include "screen/output/picture_output.h"
#include "screen/window.h"

namespace halden {

class ChartOutput {
 public:
  // All outlive this. What became of it stands in the status line.
  ChartOutput(const Platform& platform, const LinkState& link, Window& meter_rec);
  ChartOutput(const ChartOutput&) = delete;
  ChartOutput& operator=(const ChartOutput&) = delete;

 private:
  // Nothing happens before the first frame; over range there is nothing to copy, which is said.
  void with_chart(const std::function<void(const Chart&)>& use);

  Window& window_;
  PictureOutput output_;
};

}  // namespace halden
