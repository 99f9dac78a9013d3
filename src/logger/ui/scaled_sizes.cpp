#include "logger/ui/scaled_sizes.h"

#include <QWidget>
#include <algorithm>
#include <cmath>
#include <utility>

namespace halden {

namespace {

constexpr int smallest_text = 9;

}  // namespace

void ScaledSizes::add(double design_pixels, std::function<void(int)> set) {
  sizes_.push_back({design_pixels, std::move(set)});
}

void ScaledSizes::add_text(double design_pixels, QWidget& widget, const QFont& font) {
  add(design_pixels, [&widget, font](int pixels) {
    widget.setFont(with_pixel_size(font, std::max(pixels, smallest_text)));
  });
}

void ScaledSizes::add_height(double design_pixels, QWidget& row) {
  add(design_pixels, [&row](int pixels) { row.setFixedHeight(pixels); });
}

void ScaledSizes::apply(double scale) {
  for (const Size& size : sizes_) size.set(static_cast<int>(std::lround(size.design_pixels * scale)));
}

}  // namespace halden
