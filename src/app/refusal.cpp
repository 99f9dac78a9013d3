#include "app/refusal.h"

#include <array>
#include <string_view>

#include "screen/captions.h"

namespace halden {

namespace {

struct Reason {
  PortRefusal refusal;
  std::string_view english_text, chinese_text;
};

// Each follows the device's name.
constexpr std::array<Reason, 6> reasons = {
    {{PortRefusal::invalid_number, ": there are only the ports COM 1 to COM 16.",
      "：連接埠只有 COM 1 至 COM 16。"},
     {PortRefusal::missing, " is not there. Is the adapter plugged in?", " 不存在，請檢查轉接器是否已插入。"},
     {PortRefusal::forbidden, ": no permission. Add yourself to the group dialout and log in again.",
      "：沒有權限，請加入 dialout 群組後重新登入。"},
     {PortRefusal::in_use, " is in use by another program.", " 正被其他程式使用。"},
     {PortRefusal::not_serial, " is not a serial port.", " 不是序列埠。"},
     {PortRefusal::failed, " could not be opened.", " 無法開啟。"}}};

}  // namespace

std::string refusal_sentence(PortRefusal refusal, const std::string& device, std::int16_t language) {
  for (const Reason& reason : reasons)
    if (reason.refusal == refusal)
      return device + std::string(language == chinese ? reason.chinese_text : reason.english_text);
  return {};
}

}  // namespace halden
