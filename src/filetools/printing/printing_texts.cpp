#include "filetools/printing/printing_texts.h"

#include "filetools/open_failure.h"
#include "screen/failure_texts.h"

namespace halden {

namespace {

constexpr Text printing_page = {"Printing page {}", "正在列印第 {} 頁"};
constexpr Text was_cancelled = {"Cancelled at page {}. The document was not printed.",
                                "已在第 {} 頁取消，文件未列印。"};
constexpr Text no_lines = {"There are no lines to print.", "沒有可列印的內容。"};
constexpr Text one_page = {"1 page. ", "1 頁。"};
constexpr Text some_pages = {"{} pages. ", "{} 頁。"};

std::string pages_text(std::size_t pages, Language language) {
  return pages == 1 ? std::string(one_page.in(language)) : some_pages.with(language, {std::to_string(pages)});
}

}  // namespace

std::string printing_text(std::size_t page, Language language) {
  return printing_page.with(language, {std::to_string(page)});
}

std::string printed_text(const PrintedText& printed, const std::string& destination, Language language) {
  if (printed.file != FileFailure::none) return std::string(open_failure_message(printed.file));
  if (printed.cancelled) return was_cancelled.with(language, {std::to_string(printed.pages)});
  if (printed.pages == 0) return std::string(no_lines.in(language));
  const std::string sentence = print_sentence(printed.printer, destination, language);
  return printed.printer == PrintFailure::none ? pages_text(printed.pages, language) + sentence : sentence;
}

}  // namespace halden
