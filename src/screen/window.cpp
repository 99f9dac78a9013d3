#include "screen/window.h"

#include <cstdio>
#include <cstdlib>

namespace halden {

Control& Window::add(std::string name, Control control) {
  index_.emplace(name, controls_.size());
  ++revision_;
  return controls_.emplace_back(std::move(name), std::move(control)).second;
}

std::size_t Window::index_of(std::string_view name) const {
  const auto found = index_.find(name);
  if (found == index_.end()) {
    std::fprintf(stderr, "window %s has no control %.*s\n", name_.c_str(), static_cast<int>(name.size()),
                 name.data());
    std::abort();
  }
  return found->second;
}

Control& Window::operator[](std::string_view name) {
  ++revision_;
  return controls_[index_of(name)].second;
}

const Control& Window::operator[](std::string_view name) const { return controls_[index_of(name)].second; }

void Window::set_caption(std::string caption) {
  caption_ = std::move(caption);
  ++revision_;
}

void Window::show() {
  ++times_shown_;
  set_visible(true);
}

void Window::set_visible(bool visible) {
  visible_ = visible;
  ++revision_;
}

std::string element(std::string_view array_name, int index) {
  return std::string(array_name) + "_" + std::to_string(index);
}

}  // namespace halden
