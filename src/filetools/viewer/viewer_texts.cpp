#include "filetools/viewer/viewer_texts.h"

#include <algorithm>

#include "filetools/open_failure.h"

namespace halden {

namespace {

constexpr Text use_long_lines = {
    "Lines with more than 252 characters: switch on \"Long Lines\" to show them.",
    "有超過 252 個字元的行：開啟「長行」即可顯示。"};
constexpr Text has_shrunk = {"The file has become shorter; it has no such block any more.",
                             "檔案已變短，此區段已不存在。"};

constexpr Text no_file_open = {"No file is open. Choose one with File > Open.",
                               "尚未開啟檔案，請按 File > Open 選擇。"};

// Of the parts of a selection: what has room in its panel.
constexpr std::size_t parts_told = 2;

std::string range_text(const LineRange& range, const ViewedFile& file) {
  const std::string first = std::to_string(file.record_number(range.first));
  return range.first == range.last ? first : first + "-" + std::to_string(file.record_number(range.last));
}

}  // namespace

std::string_view no_file_to_view(Language language) { return no_file_open.in(language); }

std::string selected_records(std::span<const LineRange> selected, const ViewedFile& file) {
  if (!file.is_shown()) return {};
  std::string text;
  for (const LineRange& range : selected.first(std::min(selected.size(), parts_told)))
    text += (text.empty() ? "" : ", ") + range_text(range, file);
  return selected.size() > parts_told ? text + ", ..." : text;
}

RefusalTexts refusal_texts(ViewRefusal refusal, const ViewedFile& file, Language language) {
  switch (refusal) {
    case ViewRefusal::unreadable:
      return {open_failure_message(file.failure()), {}};
    case ViewRefusal::too_long:
      return {"Can't not display Record length > 255 bytes", std::string(use_long_lines.in(language))};
    case ViewRefusal::no_more_blocks:
      return {"Can not display more data", {}};
    case ViewRefusal::shrunk:
      return {{}, std::string(has_shrunk.in(language))};
    case ViewRefusal::none:
      break;
  }
  return {};
}

}  // namespace halden
