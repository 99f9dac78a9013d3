#include "filetools/power_plot/plot_choices.h"

#include "formats/field_reading.h"

namespace halden {

std::optional<std::size_t> plot_choice(std::string_view caption) {
  for (std::size_t choice = 0; choice < plot_choices.size(); ++choice)
    if (plot_choices[choice].caption == caption) return choice;
  return std::nullopt;
}

bool is_offered(std::size_t choice, Wiring wiring_system) {
  return power_column(wiring_system, static_cast<PowerQuantity>(choice)).has_value();
}

std::string unit_of(std::size_t choice, int prefix) {
  return std::string(prefix_name(prefix)).append(plot_choices[choice].unit);
}

}  // namespace halden
