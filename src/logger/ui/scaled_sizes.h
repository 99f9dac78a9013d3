// Sizes that grow with the window: of texts, rows and margins. They are given in pixels of the design size.
#pragma once

#include <functional>
#include <vector>

#include "screen/ui/fonts.h"

class QWidget;

namespace halden {

class ScaledSizes {
 public:
  // `set` gets the pixels at the current size.
  void add(double design_pixels, std::function<void(int pixels)> set);

  // The text of a widget, never so small that it cannot be read.
  void add_text(double design_pixels, QWidget& widget, const QFont& font = text_font());

  void add_height(double design_pixels, QWidget& row);

  void apply(double scale);

 private:
  struct Size {
    double design_pixels;
    std::function<void(int)> set;
  };

  std::vector<Size> sizes_;
};

}  // namespace halden
