#include "live/waiting_chart.h"

#include <memory>

#include "chart/chart.h"

namespace halden {

namespace {

constexpr Text waiting = {"waiting for the first frame", "等待第一筆資料"};

}  // namespace

void show_waiting_chart(Window& meter_rec, Language language) {
  Chart chart;
  chart.hint = chart.description = waiting.in(language);
  meter_rec.set_chart("Harmo_Graph1", std::make_shared<const Chart>(std::move(chart)));
  meter_rec.set_text("chart_reference", "");
}

}  // namespace halden
