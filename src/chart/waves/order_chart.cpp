#include "chart/waves/order_chart.h"

#include <utility>

namespace halden {

Chart order_chart(OrderBars bars) {
  Chart chart;
  chart.kind = ChartKind::bars;
  chart.x_title = "Order -->";
  chart.y_title = bars.input;
  chart.sets = {{make_points(std::move(bars.values)), std::move(bars.input), bars.phase}};
  chart.label_every = bars.label_every;
  chart.labels =
      texts_by([first = bars.first_order](std::size_t bar) { return std::to_string(first + bar); });
  return chart;
}

}  // namespace halden
