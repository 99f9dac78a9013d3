// What the viewer says when it cannot show what the user asked for.
#pragma once

#include <string>
#include <string_view>

#include "filetools/viewer/viewed_file.h"
#include "screen/language.h"

namespace halden {

struct RefusalTexts {
  std::string_view message;  // of the box; empty when there is none
  std::string hint;          // in the status line; may be empty
};

// Both are empty for `none`. `file` is in the state behind the refusal.
RefusalTexts refusal_texts(ViewRefusal refusal, const ViewedFile& file, Language language);

}  // namespace halden
