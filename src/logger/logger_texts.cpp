#include "logger/logger_texts.h"

#include "readings/patterns.h"

namespace halden {

namespace {

constexpr Text seconds_only = {"{} s", "{} 秒"};
constexpr Text minutes_and_seconds = {"{} min {} s", "{} 分 {} 秒"};
constexpr Text hours_and_minutes = {"{} h {} min", "{} 時 {} 分"};

constexpr Text one_record = {"{} record", "{} 筆"};
constexpr Text many_records = {"{} records", "{} 筆"};
constexpr Text one_file = {"{} file", "{} 個檔案"};
constexpr Text many_files = {"{} files", "{} 個檔案"};

std::string counted(std::size_t number, const Text& one, const Text& many, Language language) {
  return (number == 1 ? one : many).with(language, {with_thousands(number)});
}

}  // namespace

std::string with_thousands(std::size_t number) {
  std::string text = std::to_string(number);
  for (std::size_t place = text.size(); place > 3;) text.insert(place -= 3, ",");
  return text;
}

std::string duration_text(double seconds, Language language) {
  const auto whole = static_cast<long>(seconds);
  const auto two_digits = [](long number) { return format_pattern(static_cast<double>(number), "00"); };
  if (whole < 60) return seconds_only.with(language, {std::to_string(whole)});
  if (whole < 3600)
    return minutes_and_seconds.with(language, {std::to_string(whole / 60), two_digits(whole % 60)});
  return hours_and_minutes.with(language, {std::to_string(whole / 3600), two_digits(whole / 60 % 60)});
}

std::string records_text(std::size_t records, Language language) {
  return counted(records, one_record, many_records, language);
}

std::string files_text(std::size_t files, Language language) {
  return counted(files, one_file, many_files, language);
}

}  // namespace halden
