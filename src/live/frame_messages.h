// What the user is told about damaged frames. On a bad line every frame may be one, so the same text is told
// at most once a minute; it stops neither polling nor recording.
#pragma once

#include <map>
#include <string>

#include "platform/platform.h"

namespace halden {

class FrameMessages {
 public:
  explicit FrameMessages(const Platform& platform) : platform_(platform) {}

  void tell(const std::string& text);

 private:
  Platform platform_;
  std::map<std::string, double> told_s_;  // when, monotonic
};

}  // namespace halden
