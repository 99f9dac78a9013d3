#include "link/meter_status.h"

#include <algorithm>
#include <array>
#include <variant>

#include "readings/numbers.h"

namespace halden {

namespace {

constexpr std::size_t shortest_reply = 161;
constexpr std::size_t field_count = 35;
constexpr std::size_t digits_of_field = 5;

struct Skipped {};
using Number16 = std::int16_t MeterStatus::*;
using Number32 = std::int32_t MeterStatus::*;

// Characters cut out of a clock field like "00014": `prefix` and then `length` characters from `position`
// (0-based).
struct ClockText {
  std::string MeterStatus::*destination;
  std::string_view prefix;
  std::size_t position, length;
};

using Setter = void (*)(MeterStatus&, std::string_view);
using Destination = std::variant<Skipped, Number16, Number32, ClockText, Setter>;

constexpr ClockText clock_text(std::string MeterStatus::*destination) { return {destination, "", 3, 2}; }

// The bits of a whole number written in decimal; a number beyond 64 bits gives 0.
std::uint64_t bit_pattern(std::string_view field) {
  const double number = leading_number(field);
  if (!(number > -9.0e18 && number < 9.0e18)) return 0;
  return static_cast<std::uint64_t>(static_cast<std::int64_t>(round_half_even(number)));
}

void set_wiring(MeterStatus& status, std::string_view field) {
  if (const auto system = to_int16(leading_number(field)))
    status.wiring_system = static_cast<Wiring>(*system);
}

void set_recorded_range(MeterStatus& status, std::string_view field) {
  status.logger_current_range = static_cast<std::int16_t>((bit_pattern(field) & 0xFFFF) / 256);
}

void set_recorded_clamp(MeterStatus& status, std::string_view field) {
  status.logger_clamp_flags = static_cast<std::int16_t>(bit_pattern(field) & 0xFFFF);
}

void set_clamp(MeterStatus& status, std::string_view field) {
  status.meter_flags_27 = static_cast<std::int32_t>(bit_pattern(field) & 0xFFFFFFFF);
  status.current_scale = clamp_factor(status.meter_flags_27);
}

void set_file_index(MeterStatus& status, std::string_view field) {
  status.logger_file_index = leading_number(field);
  status.logger_file_index_text = field.size() > 3 ? std::string(field.substr(3, 2)) : std::string();
}

const std::array<Destination, field_count> destinations = {
    &MeterStatus::meter_mode,
    &MeterStatus::harmonic_channel,
    &set_wiring,
    &MeterStatus::frequency_code,
    Skipped{},
    &MeterStatus::pt_ratio,
    &MeterStatus::ct_ratio,
    &MeterStatus::sample_seconds,
    Skipped{},
    &MeterStatus::harmonic_order,
    Skipped{},
    &MeterStatus::md_period,
    &MeterStatus::logger_data_type,
    &MeterStatus::logger_channel,
    &MeterStatus::logger_system,
    &MeterStatus::logger_frequency_code,
    &set_recorded_range,
    &MeterStatus::logger_pt_ratio,
    &MeterStatus::logger_ct_ratio,
    &MeterStatus::logger_sample_seconds,
    &set_recorded_clamp,
    Skipped{},
    Skipped{},
    &MeterStatus::current_range,
    Skipped{},
    Skipped{},
    &set_clamp,
    &set_file_index,
    ClockText{&MeterStatus::meter_year, "2", 2, 3},
    clock_text(&MeterStatus::meter_month),
    clock_text(&MeterStatus::meter_day),
    clock_text(&MeterStatus::meter_hour),
    clock_text(&MeterStatus::meter_minute),
    clock_text(&MeterStatus::meter_second),
    &MeterStatus::logger_file_count,
};

// Whether a field is a whole number, with a sign or without.
bool holds_digits(std::string_view field) {
  if (!field.empty() && (field[0] == '-' || field[0] == '+')) field.remove_prefix(1);
  return !field.empty() && field.find_first_not_of("0123456789") == std::string_view::npos;
}

// Settings of the selected stored file; its number and start, and the number of files.
bool is_about_stored_file(int field) { return (field >= 13 && field <= 21) || (field >= 28 && field <= 35); }

bool is_whole(std::string_view field) { return field.size() == digits_of_field && holds_digits(field); }

// Stores one field in its destination.
struct Store {
  MeterStatus& status;
  std::string_view field;

  void operator()(Skipped) const {}
  void operator()(Number16 number) const {
    status.*number = to_int16(leading_number(field)).value_or(status.*number);
  }
  void operator()(Number32 number) const {
    status.*number = to_int32(leading_number(field)).value_or(status.*number);
  }
  void operator()(const ClockText& text) const {
    const std::string_view cut =
        field.size() > text.position ? field.substr(text.position, text.length) : std::string_view();
    status.*text.destination = std::string(text.prefix) + std::string(cut);
  }
  void operator()(Setter set) const { set(status, field); }
};

}  // namespace

float clamp_factor(std::int32_t meter_flags_27) {
  switch (meter_flags_27 & 0x600) {
    case 0x200:
      return 3.0F;
    case 0x600:
      return 1.2F;
    default:
      return 1.0F;
  }
}

std::optional<StatusReply> read_status_reply(std::string_view reply, MeterStatus& status) {
  if (const std::size_t mark = reply.find('E'); mark != std::string_view::npos) reply.remove_prefix(mark + 1);
  reply.remove_prefix(std::min(reply.find_first_not_of(" ?"), reply.size()));
  if (reply.size() < shortest_reply) return std::nullopt;

  MeterStatus found = status;
  StatusReply read;
  int numbers = 0;
  bool whole = true;
  for (const Destination& destination : destinations) {
    const std::size_t blank = reply.find(' ');
    // A field cut before its blank may lack digits; only the last one can be known to be whole.
    const bool last = read.fields + 1 == static_cast<int>(field_count);
    if (blank == std::string_view::npos && (!last || reply.empty())) break;
    const std::string_view field = reply.substr(0, blank);
    std::visit(Store{found, field}, destination);
    reply.remove_prefix(blank == std::string_view::npos ? reply.size() : blank + 1);
    ++read.fields;
    if (is_about_stored_file(read.fields)) whole = whole && is_whole(field);
    if (holds_digits(field)) ++numbers;
  }
  if (3 * numbers < 2 * static_cast<int>(field_count)) return std::nullopt;
  read.stored_file_is_whole = whole && read.fields == static_cast<int>(field_count);
  status = found;
  return read;
}

}  // namespace halden
