#include "logger/download_result.h"

#include "screen/failure_texts.h"

namespace halden {

namespace {

constexpr Text not_written = {"The file could not be written: {}.", "檔案無法寫入：{}。"};

}  // namespace

std::string unwritable_message(FileFailure failure, Language language) {
  return not_written.with(language, {write_failure_text(failure, language)});
}

}  // namespace halden
