// Pictures, and texts, for other programs: on the clipboard and in files.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files.h"

namespace halden {

struct Chart;

// Black dots on white, with a title above them.
struct DotPicture {
  std::string title;
  std::vector<std::string> rows;  // from the top, all as long; '#' is a black dot, a blank a white one
};

enum class PictureKind { png, svg, pdf };

// By the ending of the path, in small or capital letters; nothing for any other.
std::optional<PictureKind> picture_kind(std::string_view path);

class Pictures {
 public:
  virtual ~Pictures() = default;

  virtual void copy_chart(const Chart& chart) = 0;
  virtual void copy_dots(const DotPicture& picture) = 0;
  virtual void copy_text(const std::string& text) = 0;

  // The ending of `path` (UTF-8) says what is written; without one of the three it is a PNG.
  virtual FileFailure save_chart(const Chart& chart, const std::string& path) = 0;
  virtual FileFailure save_dots(const DotPicture& picture, const std::string& path) = 0;
};

}  // namespace halden
