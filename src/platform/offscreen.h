// Pictures and printed pages without a display, for the commands that make them.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/files.h"
#include "platform/pictures.h"
#include "platform/printer.h"

namespace halden {

class Offscreen {
 public:
  virtual ~Offscreen() = default;

  virtual Pictures& pictures() = 0;

  // Prints into this file (UTF-8).
  virtual Printer& printer(const std::string& pdf_path) = 0;
};

// Either what draws, or in one sentence why it is not there.
struct OffscreenStart {
  std::unique_ptr<Offscreen> offscreen;
  std::string failure;
};

// Starts what draws; pictures are written to `files`, which outlive it. It takes a tenth of a second: only
// commands that draw or print call it, at most once.
using OpenOffscreen = std::function<OffscreenStart(Files& files)>;

// It is a library of its own, which exports this function under this name; the caller owns the result.
using MakeOffscreen = Offscreen*(Files& files);
inline constexpr const char* make_offscreen_name = "halden_make_offscreen";

}  // namespace halden
