#include "filetools/export/export_texts.h"

#include "filetools/file_name.h"
#include "filetools/open_failure.h"
#include "readings/patterns.h"
#include "screen/failure_texts.h"

namespace halden {

namespace {

constexpr Text all_written = {"{} rows written to {}", "已將 {} 筆寫入 {}"};
constexpr Text some_without = {", {} of them without readings", "，其中 {} 筆無讀值"};
constexpr Text currents_by = {"; currents with range {} and clamp {}", "；電流以檔位 {}、鉤表倍率 {} 換算"};
constexpr Text cancelled = {"Cancelled, nothing was written", "已取消，未寫入檔案"};
constexpr Text no_data_file = {"{} is no data file of this program", "{} 不是本程式的資料檔"};
constexpr Text over_recording = {"{} is a data file itself: choose another name for the result",
                                 "{} 本身是資料檔，請為結果選擇其他名稱"};
constexpr Text not_read = {"{} could not be read to its end, nothing was written",
                           "{} 無法完整讀取，未寫入檔案"};
constexpr Text not_written = {"{} was not written: {}", "未寫入 {}：{}"};

std::string written_sentence(const ExportResult& result, const std::string& target,
                             const ExportOptions& options, Language language) {
  std::string sentence = all_written.with(language, {std::to_string(result.rows), target});
  if (result.without_readings > 0)
    sentence += some_without.with(language, {std::to_string(result.without_readings)});
  if (result.scaled_currents)
    sentence += currents_by.with(
        language, {std::to_string(options.current_range), format_pattern(options.current_scale, "0.0")});
  return sentence;
}

}  // namespace

std::string export_sentence(const ExportResult& result, const ExportRequest& request, Language language) {
  const std::string source(name_of_file(request.source)), target(name_of_file(request.target));
  switch (result.outcome) {
    case ExportOutcome::written:
      return written_sentence(result, target, request.options, language);
    case ExportOutcome::cancelled:
      return std::string(cancelled.in(language));
    case ExportOutcome::not_opened:
      return std::string(open_failure_message(result.failure));
    case ExportOutcome::no_data_file:
      return no_data_file.with(language, {source});
    case ExportOutcome::over_recording:
      return over_recording.with(language, {target});
    case ExportOutcome::not_read:
      return not_read.with(language, {source});
    case ExportOutcome::not_written:
      return not_written.with(language, {target, write_failure_text(result.failure, language)});
  }
  return {};
}

}  // namespace halden
