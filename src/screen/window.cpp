#include "screen/window.h"

#include <cstdio>
#include <cstdlib>

namespace halden {

void Window::add(std::string name, Control control) {
  index_.emplace(name, controls_.size());
  controls_.emplace_back(std::move(name), std::move(control));
  ++revision_;
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

template <typename Member, typename Value>
void Window::change(Member& member, Value&& value) {
  if (member == value) return;
  member = std::forward<Value>(value);
  ++revision_;
}

void Window::set_text(std::string_view name, std::string_view text) {
  change(controls_[index_of(name)].second.text, text);
}

void Window::set_visible(std::string_view name, bool visible) {
  change(controls_[index_of(name)].second.visible, visible);
}

void Window::set_enabled(std::string_view name, bool enabled) {
  change(controls_[index_of(name)].second.enabled, enabled);
}

void Window::set_checked(std::string_view name, bool checked) {
  change(controls_[index_of(name)].second.checked, checked);
}

void Window::set_old(std::string_view name, bool old) { change(controls_[index_of(name)].second.old, old); }

void Window::set_tag(std::string_view name, std::string_view tag) {
  change(controls_[index_of(name)].second.tag, tag);
}

void Window::set_tooltip(std::string_view name, std::string_view tooltip) {
  change(controls_[index_of(name)].second.tooltip, tooltip);
}

void Window::set_accessible_name(std::string_view name, std::string_view accessible_name) {
  change(controls_[index_of(name)].second.accessible_name, accessible_name);
}

void Window::set_description(std::string_view name, std::string_view description) {
  change(controls_[index_of(name)].second.description, description);
}

void Window::set_place(std::string_view name, const Place& place) {
  change(static_cast<Place&>(controls_[index_of(name)].second), place);
}

void Window::set_value(std::string_view name, int value) {
  change(controls_[index_of(name)].second.value, value);
}

void Window::set_range(std::string_view name, int minimum, int maximum) {
  change(controls_[index_of(name)].second.minimum, minimum);
  change(controls_[index_of(name)].second.maximum, maximum);
}

void Window::set_lines(std::string_view name, std::shared_ptr<const Lines> lines) {
  change(controls_[index_of(name)].second.lines, std::move(lines));
}

void Window::set_chart(std::string_view name, std::shared_ptr<const Chart> chart) {
  change(controls_[index_of(name)].second.chart, std::move(chart));
}

void Window::set_list(std::string_view name, const ListView& list) {
  change(controls_[index_of(name)].second.list, list);
}

void Window::apply_captions(Language language) {
  for (const Caption& caption : captions_) set_text(caption.control, caption.text.in(language));
  for (const Caption& tooltip : tooltips_) set_tooltip(tooltip.control, tooltip.text.in(language));
  for (const Caption& name : accessible_names_) set_accessible_name(name.control, name.text.in(language));
  if (language_changed_) language_changed_();
}

void Window::restore_caption(std::string_view control, Language language) {
  for (const Caption& caption : captions_)
    if (caption.control == control) set_text(control, caption.text.in(language));
}

void Window::set_caption(std::string_view caption) { change(caption_, caption); }

void Window::show() {
  ++times_shown_;
  ++revision_;
  visible_ = true;
}

void Window::hide() { change(visible_, false); }

void Window::on_click(std::string_view control, Handler handler) {
  clicks_[controls_[index_of(control)].first] = std::move(handler);
}

void Window::on_press(std::string_view control, Handler handler) {
  presses_[controls_[index_of(control)].first] = std::move(handler);
}

void Window::on_change(std::string_view control, Handler handler) {
  changes_[controls_[index_of(control)].first] = std::move(handler);
}

void Window::on_close(Handler handler, Closing closing) {
  closed_ = std::move(handler);
  closing_ = closing;
}

void Window::run(const Handlers& handlers, std::string_view control) const {
  const auto handler = handlers.find(control);
  if (handler == handlers.end()) return;
  const Control& clicked = (*this)[control];
  if (clicked.enabled && clicked.visible) handler->second();
}

void Window::press(std::string_view control) const { run(presses_, control); }

void Window::click(std::string_view control) const { run(clicks_, control); }

void Window::changed(std::string_view control) const {
  if (const auto handler = changes_.find(control); handler != changes_.end()) handler->second();
}

void Window::resized() const {
  if (resized_) resized_();
}

void Window::closed() const {
  if (closed_) closed_();
}

void Window::dropped(const Lines& paths) const {
  if (dropped_) dropped_(paths);
}

std::string element(std::string_view array_name, int index) {
  return std::string(array_name) + "_" + std::to_string(index);
}

}  // namespace halden
