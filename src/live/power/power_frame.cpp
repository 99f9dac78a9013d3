#include "live/power/power_frame.h"

#include <algorithm>
#include <span>
#include <string>
#include <utility>

#include "readings/numbers.h"

namespace halden {

namespace {

constexpr std::size_t value_offset = 3;
constexpr std::size_t value_length = 6;
constexpr std::size_t separator_offset = value_offset - 1;
constexpr std::size_t field_length = value_offset + value_length;

constexpr std::size_t longest_gap = 4;  // between two groups, or two frames
constexpr std::size_t sure_after = 3;   // frames

constexpr std::string_view symbols = "VIWPQ";

bool is_digit(char c) { return c >= '0' && c <= '9'; }
bool is_letter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }
bool is_sign(char c) { return c == '-' || c == '+'; }

struct Field {
  std::size_t at;
  char symbol;
  std::size_t phase;
  std::optional<double> value;
};

// The field that begins at `at`; nothing when no label stands there or it has not arrived in full.
std::optional<Field> field_at(std::string_view text, std::size_t at) {
  if (at + field_length > text.size() || symbols.find(text[at]) == std::string_view::npos) return {};
  const char digit = text[at + 1];
  if (digit < '1' || digit > '3') return {};
  return Field{at, text[at], static_cast<std::size_t>(digit - '1'),
               power_field_value(text.substr(at + separator_offset, field_length - separator_offset))};
}

// Puts fields together to groups. A voltage label begins a group, its Q label ends it.
//
// A voltage label behind the I, W or P of its own phase begins no group: one changed bit makes "V" of "W".
// But where a frame was cut and asked for again, a new group begins in the middle of the old one: then a
// label comes a second time, and the group begins at the last voltage label before it.
class GroupReader {
 public:
  void take(const Field& field) {
    if (field.symbol == 'V')
      take_voltage(field);
    else if (open_ && field.phase == open_->phase)
      take_other(field);
  }

  std::vector<PowerGroup> groups;

 private:
  void begin(const Field& voltage) {
    open_ = PowerGroup{voltage.phase, {voltage.value, {}, {}, {}, {}}, voltage.at, 0};
    seen_.clear();
    later_voltage_.reset();
  }

  void take_voltage(const Field& field) {
    if (open_ && open_->phase == field.phase && !seen_.empty())
      later_voltage_ = field;
    else
      begin(field);
  }

  void take_other(const Field& field) {
    if (seen_.find(field.symbol) != std::string::npos) {
      if (!later_voltage_) return open_.reset();  // a group without its voltage
      begin(Field(*later_voltage_));
    }
    seen_ += field.symbol;
    value_of(field.symbol) = field.value;
    if (field.symbol != 'Q') return;
    // One of the labels between the two voltages may belong to either.
    if (later_voltage_) open_->values.w.reset();
    open_->end = field.at + field_length;
    groups.push_back(*open_);
    open_.reset();
  }

  std::optional<double>& value_of(char symbol) {
    PhaseGroup& values = open_->values;
    if (symbol == 'I') return values.i;
    if (symbol == 'W') return values.w;
    return symbol == 'P' ? values.v_angle : values.i_angle;
  }

  std::optional<PowerGroup> open_;
  std::string seen_;                    // the labels of the open group behind its voltage
  std::optional<Field> later_voltage_;  // a second voltage label of the open group
};

std::vector<PowerGroup> read_groups(std::string_view text) {
  GroupReader reader;
  for (std::size_t at = 0; at + field_length <= text.size(); ++at)
    if (const auto field = field_at(text, at)) reader.take(*field);
  return std::move(reader.groups);
}

// How many groups from `first` on are those of phase 1, 2, 3 of one frame: one directly behind the other.
std::size_t run_length(const std::vector<PowerGroup>& groups, std::size_t first) {
  std::size_t length = 0;
  while (first + length < groups.size() && groups[first + length].phase == length) {
    if (length > 0 && groups[first + length].begin > groups[first + length - 1].end + longest_gap) break;
    ++length;
  }
  return length;
}

// Whether the groups are whole and nothing of a further group stands between them and what follows at `next`.
bool is_whole_run(std::span<const PowerGroup> run, std::size_t next) {
  return run.back().end + longest_gap >= next &&
         std::all_of(run.begin(), run.end(), [](const PowerGroup& group) { return group.whole(); });
}

}  // namespace

std::optional<double> power_field_value(std::string_view field) {
  if (is_sign(field[0]) || is_digit(field[0]) || is_letter(field[0])) return std::nullopt;
  return field_number(field.substr(1));
}

bool PowerFrameText::whole() const {
  return ended && std::all_of(groups.begin(), groups.end(), [](const PowerGroup& g) { return g.whole(); });
}

PowerFrameText read_power_frame(std::string_view text, std::size_t phases) {
  const std::vector<PowerGroup> all = read_groups(text);
  PowerFrameText frame;
  std::size_t frames = 0;  // whole ones in a row with the same number of groups
  for (std::size_t first = 0; first < all.size();) {
    const std::size_t length = run_length(all, first);
    if (length == 0) {
      ++first;
      continue;
    }
    const auto run = std::span(all).subspan(first, length);
    // A frame of the phases in use that has ended is newer than one that is still arriving.
    if (length >= phases || !frame.ended) {
      frame.groups.assign(run.begin(), run.begin() + static_cast<std::ptrdiff_t>(std::min(length, phases)));
      frame.ended = length >= phases;
    }
    first += length;
    const std::size_t next = first < all.size() ? all[first].begin : text.size();
    const bool counts = is_whole_run(run, next);
    frames = !counts ? 0 : length == frame.phases_sent ? frames + 1 : 1;
    frame.phases_sent = counts ? length : 0;
  }
  const bool more = frame.ended && frame.phases_sent > phases;
  if (!more && frames < sure_after) frame.phases_sent = 0;
  return frame;
}

}  // namespace halden
