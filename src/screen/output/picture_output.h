// Hands what a window shows on to other programs: pictures and points, on the clipboard and in files. What
// became of it stands in the window's status line.
#pragma once

#include <optional>
#include <string>

#include "platform/files.h"
#include "platform/platform.h"
#include "screen/language.h"
#include "screen/window.h"

namespace halden {

struct Chart;
struct DotPicture;

class PictureOutput {
 public:
  // All outlive this.
  PictureOutput(const Platform& platform, const Language& language, Window& window)
      : platform_(platform), language_(language), window_(window) {}

  void copy_chart(const Chart& chart);
  void copy_dots(const DotPicture& picture);
  void copy_points(const std::string& lines);

  // The user chooses the file; the name that is suggested has no ending. A file that is there already is
  // replaced only when the user says so.
  void save_chart(const Chart& chart, const std::string& name);
  void save_dots(const DotPicture& picture, const std::string& name);
  void save_points(const std::string& csv, const std::string& name);

  void say_nothing_drawn();

 private:
  std::optional<std::string> ask_picture_path(const std::string& name);
  bool may_write(const std::string& path);
  void say(const Text& text);
  void say_saved(const Text& saved, const Text& not_saved, const std::string& path, FileFailure failure);

  Platform platform_;
  const Language& language_;
  Window& window_;
};

}  // namespace halden
