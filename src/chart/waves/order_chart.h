// The bars of a spectrum: what a live one and a recorded one have in common.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "chart/chart.h"

namespace halden {

struct OrderBars {
  std::string input;  // "V1"
  std::optional<std::size_t> phase;
  std::vector<double> values;
  std::size_t first_order = 0;  // of the first bar
  std::size_t label_every = 1;  // bars
};

Chart order_chart(OrderBars bars);

}  // namespace halden
