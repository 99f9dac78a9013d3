// All windows of the program. Every room makes its own and adds it here; the language and the desktop loop
// over this list.
#pragma once

#include <string_view>
#include <vector>

#include "screen/window.h"

namespace halden {

class Windows {
 public:
  // The window outlives the list.
  void add(Window& window) { windows_.push_back(&window); }

  const std::vector<Window*>& all() const { return windows_; }

  // The window of that name. A name that does not exist is a mistake in the program and ends it.
  Window& operator[](std::string_view name) const;

  // Sets every caption that depends on the language.
  void apply_captions(Language language);

 private:
  std::vector<Window*> windows_;
};

// The mark that shows the notice of a running recording.
inline constexpr std::string_view recording_mark = "recording_mark";

// The parts of the notice beside its message: the port ("COM 3, /dev/ttyUSB2"), and how much of the wait is
// over, in the range of the control; without a range it is unknown.
inline constexpr std::string_view notice_port = "notice_port";
inline constexpr std::string_view notice_progress = "notice_progress";

// The small notice window CHKSPEED, with its message field Text1. There is only one: it shows the text
// written last. Without a caption it is the notice of a running recording.
Window make_notice_window();

// Whether the notice is that of a recording, which stays for long.
bool is_lasting_notice(const Window& notice);

}  // namespace halden
