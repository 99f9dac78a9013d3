// What the viewer says about the file it shows, and when it cannot show what the user asked for.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "filetools/viewer/viewed_file.h"
#include "screen/language.h"

namespace halden {

struct RefusalTexts {
  std::string_view message;  // of the box; empty when there is none
  std::string hint;          // in the status line; may be empty
};

std::string_view no_file_to_view(Language language);

// The numbers of the selected lines in the file: "40001", "12-19", "3, 12-19", and of a selection in more
// than two parts "3, 12-19, ...".
std::string selected_records(std::span<const LineRange> selected, const ViewedFile& file);

// Both are empty for `none`. `file` is in the state behind the refusal.
RefusalTexts refusal_texts(ViewRefusal refusal, const ViewedFile& file, Language language);

}  // namespace halden
