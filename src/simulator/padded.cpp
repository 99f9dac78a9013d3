#include "simulator/padded.h"

namespace halden::simulator {

std::string blank_padded(int value, std::size_t width) {
  std::string digits = std::to_string(value);
  if (digits.size() > width) digits = value < 0 ? "-" + std::string(width - 1, '9') : std::string(width, '9');
  return std::string(width - digits.size(), ' ') + digits;
}

std::string zero_padded(int value, std::size_t width) {
  std::string digits = std::to_string(value);
  const std::size_t sign = value < 0 ? 1 : 0;
  if (digits.size() < width) digits.insert(sign, width - digits.size(), '0');
  return digits;
}

}  // namespace halden::simulator
