// Charts as pictures, and texts, for other programs: on the clipboard and in files.
#pragma once

#include <string>

#include "platform/files.h"

namespace halden {

struct Chart;

class Pictures {
 public:
  virtual ~Pictures() = default;

  virtual void copy_chart(const Chart& chart) = 0;
  virtual void copy_text(const std::string& text) = 0;

  // The ending of `path` (UTF-8) says what is written: ".svg", ".pdf", otherwise a PNG.
  virtual FileFailure save_chart(const Chart& chart, const std::string& path) = 0;
};

}  // namespace halden
