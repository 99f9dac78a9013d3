#include "screen/failure_texts.h"

#include <array>

namespace halden {

namespace {

// Each table is in the order of its enumeration.
constexpr std::array<Text, 7> refusals = {
    {{"", ""},
     {"{}: there are only the ports COM 1 to COM 16.", "{}：連接埠只有 COM 1 至 COM 16。"},
     {"{} is not there. Is the adapter plugged in?", "{} 不存在，請檢查轉接器是否已插入。"},
     {"{}: no permission. Add yourself to the group dialout and log in again.",
      "{}：沒有權限，請加入 dialout 群組後重新登入。"},
     {"{} is in use by another program.", "{} 正被其他程式使用。"},
     {"{} is not a serial port.", "{} 不是序列埠。"},
     {"{} could not be opened.", "{} 無法開啟。"}}};

constexpr Text delete_lock_file = {" If none uses it, delete the lock file {}.",
                                   "若無程式使用，請刪除鎖定檔 {}。"};

constexpr std::array<Text, 4> print_results = {
    {{"Print sent to {}.", "列印已送至 {}。"},
     {"No printer is set up on this computer.", "此電腦尚未設定印表機。"},
     {"The document could not be printed.", "無法列印。"},
     {"Another document is being printed.", "正在列印另一份文件。"}}};

constexpr std::array<Text, 8> write_failures = {{{"", ""},
                                                 {"folder gone", "資料夾不存在"},
                                                 {"no permission", "沒有寫入權限"},
                                                 {"not a file", "不是一般檔案"},
                                                 {"read-only disk", "磁碟為唯讀"},
                                                 {"disk full", "磁碟已滿"},
                                                 {"disk quota exceeded", "超過磁碟配額"},
                                                 {"file not writable", "檔案無法寫入"}}};

}  // namespace

std::string refusal_sentence(PortRefusal refusal, const std::string& device, const std::string& lock_file,
                             Language language) {
  const std::string cause = refusals[static_cast<std::size_t>(refusal)].with(language, {device});
  if (refusal != PortRefusal::in_use || lock_file.empty()) return cause;
  return cause + delete_lock_file.with(language, {lock_file});
}

std::string print_sentence(PrintFailure failure, const std::string& destination, Language language) {
  return print_results[static_cast<std::size_t>(failure)].with(language, {destination});
}

std::string_view write_failure_text(FileFailure failure, Language language) {
  return write_failures[static_cast<std::size_t>(failure)].in(language);
}

}  // namespace halden
