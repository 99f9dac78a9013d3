#include "logger/result_texts.h"

#include <algorithm>

#include "logger/logger_texts.h"
#include "screen/failure_texts.h"

namespace halden {

namespace {

constexpr Text incomplete = {"{}, {}", "{}，{}"};
constexpr Text nothing = {"the meter sent nothing", "電表未傳送任何資料"};
constexpr Text cancelled = {"cancelled, {}", "已取消，{}"};
constexpr Text unwritable = {"{}, then {}", "{}，之後{}"};

constexpr Text one_screen = {"1 screen", "1 個畫面"};
constexpr Text some_words = {"{} words", "{} 個字組"};
constexpr Text sign_cut = {", a minus sign was cut off", "，負號被截去"};
constexpr Text not_confirmed = {", but the meter did not answer afterwards", "，但電表之後無回應"};
constexpr Text was_there = {"was there already", "檔案已存在"};
constexpr Text run_counts = {"{} downloaded, {} already there, {} not whole: {}",
                             "下載 {} 個，已存在 {} 個，不完整 {} 個：{}"};
constexpr Text run_cancelled = {"cancelled; ", "已取消；"};
constexpr Text run_failed = {"ended early; ", "提前結束；"};

// A whole screen of the meter is 3840 words.
std::string words_text(std::size_t words, Language language) {
  constexpr std::size_t words_of_screen = 3840;
  return words == words_of_screen ? std::string(one_screen.in(language))
                                  : some_words.with(language, {with_thousands(words)});
}

std::string amount_text(const DownloadResult& result, Language language) {
  if (result.amount == Amount::words) return words_text(result.records, language);
  return records_text(result.records, language) +
         std::string(result.sign_cut ? sign_cut.in(language) : std::string_view());
}

}  // namespace

std::string result_text(const DownloadResult& result, Language language) {
  const std::string held = amount_text(result, language);
  switch (result.end) {
    case DownloadEnd::incomplete:
      return incomplete.with(language, {held, bytes_lost.in(language)});
    case DownloadEnd::nothing:
      return std::string(nothing.in(language));
    case DownloadEnd::cancelled:
      return cancelled.with(language, {held});
    case DownloadEnd::unwritable:
      return unwritable.with(language, {held, write_failure_text(result.failure, language)});
    case DownloadEnd::whole:
      break;
  }
  return held;
}

std::string line_of(const FileOfRun& file, Language language) {
  std::string fate = file.fate == FileFate::was_there ? std::string(was_there.in(language))
                                                      : result_text(file.result, language);
  if (file.fate == FileFate::not_whole && file.result.end == DownloadEnd::whole)
    fate += not_confirmed.in(language);
  return file.name + ": " + fate;
}

std::string run_text(const RunResult& run, const std::string& folder, Language language) {
  const auto count = [&run](FileFate fate) {
    return std::to_string(
        std::count_if(run.files.begin(), run.files.end(), [fate](const auto& f) { return f.fate == fate; }));
  };
  const std::string_view early = run.end == RunEnd::cancelled ? run_cancelled.in(language)
                                 : run.end == RunEnd::failed  ? run_failed.in(language)
                                                              : std::string_view();
  return std::string(early) +
         run_counts.with(language, {count(FileFate::downloaded), count(FileFate::was_there),
                                    count(FileFate::not_whole), folder});
}

}  // namespace halden
