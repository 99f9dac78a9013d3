#include "screen/windows.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace halden {

Window& Windows::operator[](std::string_view name) const {
  for (Window* window : windows_)
    if (window->name() == name) return *window;
  std::fprintf(stderr, "there is no window %.*s\n", static_cast<int>(name.size()), name.data());
  std::abort();
}

void Windows::apply_captions(Language language) {
  for (Window* window : windows_) window->apply_captions(language);
}

Window make_notice_window() {
  static constexpr std::array names = {Caption{recording_mark, {"Recording", "記錄中"}},
                                       Caption{notice_progress, {"Progress", "進度"}}};
  Window window("CHKSPEED");
  window.add("Text1", {});
  for (const std::string_view name : {notice_port, notice_progress, recording_mark})
    window.add(std::string(name), {});
  window.set_accessible_names(names);
  return window;
}

bool is_lasting_notice(const Window& notice) { return notice.caption().empty(); }

}  // namespace halden
