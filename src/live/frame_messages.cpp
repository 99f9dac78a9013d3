#include "live/frame_messages.h"

#include "platform/clock.h"
#include "platform/dialogs.h"

namespace halden {

namespace {

constexpr double not_again_for_s = 60;

}  // namespace

void FrameMessages::tell(const std::string& text) {
  const double now_s = platform_.clock.monotonic_s();
  const auto told = told_s_.find(text);
  if (told != told_s_.end() && now_s - told->second < not_again_for_s) return;
  told_s_[text] = now_s;
  platform_.dialogs.tell({text, "", Icon::none});
}

}  // namespace halden
