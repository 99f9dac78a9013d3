// What the viewer hands to the print dialog.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace halden {

class Window;

struct TextToPrint {
  std::string path;                   // of the whole file
  std::vector<std::string> selected;  // lines, as they are shown
};

// Opens the print dialog for a window.
using PrintText = std::function<void(const TextToPrint& text, Window& asked_by)>;

}  // namespace halden
