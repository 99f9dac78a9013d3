#include "logger/status_panel.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string>

#include "logger/logger_form.h"
#include "logger/logger_texts.h"
#include "logger/stored_kind.h"
#include "readings/patterns.h"

namespace halden {

namespace {

constexpr std::string_view unknown = "?";
constexpr std::array<std::string_view, 4> systems = {"1P2W", "1P3W", "3P3W", "3P4W"};
constexpr std::array<std::string_view, 3> frequencies = {"AUTO", "50", "60"};

template <std::size_t size>
std::string_view text_of(const std::array<std::string_view, size>& texts, int code) {
  return code >= 0 && code < static_cast<int>(size) ? texts[static_cast<std::size_t>(code)] : unknown;
}

// The shortest text of a number.
std::string general_text(double number) {
  std::array<char, 32> digits{};
  return {digits.data(), std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr};
}

void show_recorded(const MeterStatus& status, Language language, Window& logger) {
  logger.set_text("SYS_REC_value", text_of(systems, status.logger_system));
  logger.set_text("HZ_REC_value", text_of(frequencies, status.logger_frequency_code));
  logger.set_text("Harmo_or_Power_0", kind_text(status.logger_data_type, language));
  logger.set_text("Harmo_or_Power_1", general_text(status.logger_file_index));
  logger.set_text("MD_REC_value", format_pattern(status.md_period, "###0"));
  logger.set_text("SEC_REC_value", format_pattern(status.logger_sample_seconds, "###0"));
  logger.set_text("CT_REC_value", format_pattern(status.logger_ct_ratio, "###0"));
  logger.set_text("PT_REC_value", format_pattern(status.logger_pt_ratio, "###0"));
}

}  // namespace

std::string_view kind_text(std::int16_t logger_data_type, Language language) {
  const StoredKind* const kind = kind_of(logger_data_type);
  return kind != nullptr ? kind->name.in(language) : unknown;
}

RecordedStart start_of(const Window& logger) { return {logger["Text1_1"].text, logger["Text1_2"].text}; }

void show_status(const MeterStatus& status, Language language, Window& logger) {
  logger.set_text("Text1_1", status.meter_year + "-" + status.meter_month + "-" + status.meter_day);
  logger.set_text("Text1_2", status.meter_hour + ":" + status.meter_minute + ":" + status.meter_second);
  const int count = std::max<int>(status.logger_file_count, 0);
  logger.set_text(stored_files, files_text(static_cast<std::size_t>(count), language));
  if (count > 0) show_recorded(status, language, logger);
}

}  // namespace halden
