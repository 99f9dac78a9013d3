#include "filetools/viewer/viewer_texts.h"

#include "filetools/open_failure.h"

namespace halden {

namespace {

constexpr Text use_long_lines = {
    "Lines with more than 252 characters: switch on \"Long Lines\" to show them.",
    "有超過 252 個字元的行：開啟「Long Lines」即可顯示。"};
constexpr Text has_shrunk = {"The file has become shorter; it has no such block any more.",
                             "檔案已變短，此區段已不存在。"};

}  // namespace

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
