#include "chart/chart.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <utility>

namespace halden {

namespace {

constexpr double largest_value = 1e100;

std::string text_at(const PointTexts& texts, std::size_t index) {
  return texts ? (*texts)(index) : std::string();
}

bool has_values(const DataSet& set) {
  return set.points &&
         std::any_of(set.points->begin(), set.points->end(), [](double v) { return !is_gap(v); });
}

// The shortest text that reads back as the same double.
std::string value_text(const DataSet& set, std::size_t index) {
  if (!set.points || index >= set.points->size() || is_gap((*set.points)[index])) return {};
  char digits[32];
  const auto end = std::to_chars(digits, digits + sizeof digits, (*set.points)[index]).ptr;
  return std::string(digits, end);
}

// One field of a line: what would end the field or the line becomes a blank.
std::string field(std::string text) {
  const auto separates = [](char c) { return c == '\t' || c == '\n' || c == '\r'; };
  std::replace_if(text.begin(), text.end(), separates, ' ');
  return text;
}

}  // namespace

Points make_points(std::vector<double> values) {
  return std::make_shared<const std::vector<double>>(std::move(values));
}

// Written so that NaN is a gap too.
bool is_gap(double value) { return !(std::abs(value) <= largest_value); }

PointTexts texts_by(std::function<std::string(std::size_t)> text_of) {
  return std::make_shared<const std::function<std::string(std::size_t)>>(std::move(text_of));
}

PointTexts texts_of_list(std::vector<std::string> texts) {
  return texts_by([texts = std::move(texts)](std::size_t index) {
    return index < texts.size() ? texts[index] : std::string();
  });
}

std::size_t point_count(const Chart& chart) {
  std::size_t count = 0;
  for (const DataSet& set : chart.sets)
    if (set.points) count = std::max(count, set.points->size());
  return count;
}

bool has_data(const Chart& chart) { return std::any_of(chart.sets.begin(), chart.sets.end(), has_values); }

std::string label_at(const Chart& chart, std::size_t index) { return text_at(chart.labels, index); }

std::string readout_at(const Chart& chart, std::size_t index) { return text_at(chart.readouts, index); }

bool same_subject(const Chart& a, const Chart& b) {
  if (a.subject != 0 || b.subject != 0) return a.subject == b.subject;
  return a.kind == b.kind && a.title == b.title && a.x_title == b.x_title && a.y_title == b.y_title &&
         a.sets.size() == b.sets.size() && point_count(a) == point_count(b);
}

bool same_points(const Chart& a, const Chart& b) {
  return same_subject(a, b) && a.part == b.part && point_count(a) == point_count(b);
}

std::string to_text(const Chart& chart) {
  std::string text;
  const std::size_t count = point_count(chart);
  for (std::size_t index = 0; index < count; ++index) {
    const std::string label = label_at(chart, index);
    text += label.empty() ? std::to_string(index + 1) : field(label);
    for (const DataSet& set : chart.sets) text += '\t' + value_text(set, index);
    text += '\n';
  }
  return text;
}

}  // namespace halden
