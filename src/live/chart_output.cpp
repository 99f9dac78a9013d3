#include "live/chart_output.h"

namespace halden {

namespace {

constexpr std::string_view chart_name = "Harmo_Graph1";

}  // namespace

ChartOutput::ChartOutput(const Platform& platform, const LinkState& link, Window& meter_rec)
    : window_(meter_rec), output_(platform, link.language, meter_rec) {
  window_.on_click("chart_copy", [this] { with_chart([this](const Chart& c) { output_.copy_chart(c); }); });
  window_.on_click("chart_copy_points",
                   [this] { with_chart([this](const Chart& c) { output_.copy_points(to_text(c)); }); });
  window_.on_click("chart_save",
                   [this] { with_chart([this](const Chart& c) { output_.save_chart(c, "halden-chart"); }); });
}

// The chart is kept meanwhile, because the next frame replaces it while the user chooses a file.
void ChartOutput::with_chart(const std::function<void(const Chart&)>& use) {
  const auto chart = window_[chart_name].chart;
  if (!chart) return;
  has_data(*chart) ? use(*chart) : output_.say_nothing_drawn();
}

}  // namespace halden
