#include "platform/qt/core/numeric_date.h"

#include <algorithm>
#include <vector>

namespace halden {

namespace {

constexpr std::string_view date_letters = "dMy";
constexpr std::string_view separators = "/-.";
constexpr std::size_t shortest_name = 3;  // "ddd" is the name of the day, "MMM" that of the month

// The format without quoted text, in runs of equal characters: "dd", "/", "MM", ...
std::vector<std::string_view> runs_of(std::string_view format) {
  std::vector<std::string_view> runs;
  bool quoted = false;
  while (!format.empty()) {
    const std::size_t length = std::min(format.find_first_not_of(format[0]), format.size());
    if (format[0] == '\'')
      quoted = quoted != (length % 2 == 1);
    else if (!quoted)
      runs.push_back(format.substr(0, length));
    format.remove_prefix(length);
  }
  return runs;
}

struct Layout {
  std::string order;  // of the letters d, M, y
  char separator = '-';
};

Layout layout_of(std::string_view locale_format) {
  Layout layout;
  bool separated = false, month_named = false;
  for (const std::string_view run : runs_of(locale_format)) {
    const bool name = run.size() >= shortest_name && run[0] != 'y';
    month_named = month_named || (name && run[0] == 'M');
    if (date_letters.find(run[0]) != std::string_view::npos && !name) layout.order += run[0];
    if (layout.order.empty() || separated || separators.find(run[0]) == std::string_view::npos) continue;
    layout.separator = run[0];
    separated = true;
  }
  const bool numeric =
      std::is_permutation(layout.order.begin(), layout.order.end(), date_letters.begin(), date_letters.end());
  return numeric && !month_named ? layout : Layout{"yMd"};
}

std::string digits(int value, std::size_t width) {
  const std::string text = std::to_string(value);
  return std::string(width - std::min(width, text.size()), '0') + text;
}

}  // namespace

std::string numeric_date(const Date& date, std::string_view locale_format) {
  const Layout layout = layout_of(locale_format);
  std::string text;
  for (const char letter : layout.order) {
    if (!text.empty()) text += layout.separator;
    text += letter == 'd'   ? digits(date.day, 2)
            : letter == 'M' ? digits(date.month, 2)
                            : digits(date.year, 4);
  }
  return text;
}

}  // namespace halden
