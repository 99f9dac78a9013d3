// A window as plain values: what each control shows, under the control's name. Logic writes here; the window
// on the screen mirrors it, and tests and haldenctl read the same values.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace halden {

// Positions and sizes are in 1/1440 inch of the window's design size; the window on the screen scales them.
struct Control {
  std::string text;
  bool visible = true;
  bool enabled = true;
  bool checked = false;
  float left = 0;
  float top = 0;
  float width = 0;
  float height = 0;
  std::string tag;
  std::string tooltip;
  int value = 0;  // of a scroll bar, with its range
  int minimum = 0;
  int maximum = 0;

  bool operator==(const Control&) const = default;
};

class Window {
 public:
  explicit Window(std::string name) : name_(std::move(name)) {}

  const std::string& name() const { return name_; }

  // Adds a control; its name is new.
  Control& add(std::string name, Control control);

  // The control of that name. A name that does not exist is a mistake in the program and ends it.
  Control& operator[](std::string_view name);
  const Control& operator[](std::string_view name) const;

  bool has(std::string_view name) const { return index_.find(name) != index_.end(); }

  // All controls in the order they were added.
  const std::vector<std::pair<std::string, Control>>& controls() const { return controls_; }

  const std::string& caption() const { return caption_; }
  void set_caption(std::string caption);

  bool visible() const { return visible_; }
  void show();
  void hide() { set_visible(false); }

  // Counts the calls of show(): a window that is shown again comes to the front.
  std::uint32_t times_shown() const { return times_shown_; }

  // Grows whenever something may have changed, so that a mirror can skip what it has already shown.
  std::uint64_t revision() const { return revision_; }

 private:
  struct NameHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view name) const { return std::hash<std::string_view>()(name); }
  };

  std::size_t index_of(std::string_view name) const;
  void set_visible(bool visible);

  std::string name_;
  std::string caption_;
  bool visible_ = false;
  std::uint32_t times_shown_ = 0;
  std::uint64_t revision_ = 1;
  std::vector<std::pair<std::string, Control>> controls_;
  std::unordered_map<std::string, std::size_t, NameHash, std::equal_to<>> index_;
};

// The name of one element of a control array: element("Label1", 3) is "Label1_3".
std::string element(std::string_view array_name, int index);

}  // namespace halden
