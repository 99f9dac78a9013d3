#include "screen/windows.h"

#include <cstdio>
#include <cstdlib>

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
  Window window("CHKSPEED");
  window.add("Text1", {});
  return window;
}

}  // namespace halden
