#include "logger/recorded_settings.h"

namespace halden {

std::int16_t recorded_ratio(std::int16_t ratio) { return ratio == 0 ? std::int16_t{1} : ratio; }

std::string_view recorded_frequency_text(std::int16_t frequency_code) {
  if (frequency_code == 1) return "50";
  return frequency_code == 2 ? "60" : "Auto";
}

}  // namespace halden
