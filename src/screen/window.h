// A window as a value: what each control shows, under the control's name, and what happens when the user
// clicks, changes, resizes or closes. The logic writes the values; the window on the screen mirrors them, and
// tests and haldenctl read the same values. Several windows may have controls of the same name.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "screen/language.h"

namespace halden {

struct Chart;  // a chart as a value; this room only passes it on

// In 1/1440 inch of the window's design size; the window on the screen scales it.
struct Place {
  float left = 0;
  float top = 0;
  float width = 0;
  float height = 0;

  bool operator==(const Place&) const = default;
};

// A design pixel is 1/96 inch.
inline constexpr float units_per_pixel = 15.0F;

// The entries of a list box.
using Lines = std::vector<std::string>;

// Neighbouring entries, from the first to the last one.
struct LineRange {
  std::size_t first = 0;
  std::size_t last = 0;

  bool operator==(const LineRange&) const = default;
};

// What the user sees of a list box and has selected in it.
struct ListView {
  std::size_t top = 0;              // index of the first visible entry
  std::size_t room = 0;             // for so many entries, also those that are cut off at the edge
  std::vector<LineRange> selected;  // from the top down

  bool operator==(const ListView&) const = default;
};

struct Control : Place {
  std::string text;
  bool visible = true;
  bool enabled = true;
  bool checked = false;
  bool old = false;  // of a reading: it is no longer current
  std::string tag;
  std::string tooltip;
  std::string accessible_name;  // what assistive technology calls it, where that is not its text
  std::string description;      // for assistive technology, beside the text
  int value = 0;                // of a scroll bar, with its range
  int minimum = 0;
  int maximum = 0;
  // Constant and compared by pointer, so that 100,000 entries cost nothing to compare: to change them, make
  // new ones.
  std::shared_ptr<const Lines> lines;
  std::shared_ptr<const Chart> chart;
  ListView list;

  bool operator==(const Control&) const = default;
};

// A control and its caption, its tooltip or its accessible name in both languages.
struct Caption {
  std::string_view control;
  Text text;
};

using Handler = std::function<void()>;

// When the window's close handler runs: not before a wait without input is over, or at once.
enum class Closing { waits, at_once };

class Window {
 public:
  explicit Window(std::string name) : name_(std::move(name)) {}

  const std::string& name() const { return name_; }

  // ---- controls ----
  // Adds a control; its name is new.
  void add(std::string name, Control control);

  // The control of that name. A name that does not exist is a mistake in the program and ends it.
  const Control& operator[](std::string_view name) const { return controls_[index_of(name)].second; }

  // All controls in the order they were added.
  const std::vector<std::pair<std::string, Control>>& controls() const { return controls_; }

  // Setting the value that a control already has is no change.
  void set_text(std::string_view name, std::string_view text);
  void set_visible(std::string_view name, bool visible);
  void set_enabled(std::string_view name, bool enabled);
  void set_checked(std::string_view name, bool checked);
  void set_old(std::string_view name, bool old);
  void set_tag(std::string_view name, std::string_view tag);
  void set_tooltip(std::string_view name, std::string_view tooltip);
  void set_accessible_name(std::string_view name, std::string_view accessible_name);
  void set_description(std::string_view name, std::string_view description);
  void set_place(std::string_view name, const Place& place);
  void set_value(std::string_view name, int value);
  void set_range(std::string_view name, int minimum, int maximum);
  void set_lines(std::string_view name, std::shared_ptr<const Lines> lines);
  void set_chart(std::string_view name, std::shared_ptr<const Chart> chart);
  void set_list(std::string_view name, const ListView& list);

  // The captions, tooltips and accessible names that depend on the language. The tables outlive the window.
  void set_captions(std::span<const Caption> captions) { captions_ = captions; }
  void set_tooltips(std::span<const Caption> tooltips) { tooltips_ = tooltips; }
  void set_accessible_names(std::span<const Caption> names) { accessible_names_ = names; }
  void apply_captions(Language language);  // and runs the handler of on_language
  void restore_caption(std::string_view control, Language language);

  // ---- the window itself ----
  const std::string& caption() const { return caption_; }
  void set_caption(std::string_view caption);

  bool visible() const { return visible_; }
  void show();
  void hide();

  // Counts the calls of show(): a window that is shown again comes to the front.
  std::uint32_t times_shown() const { return times_shown_; }

  // Grows with every change, so that a mirror can skip what it has already shown.
  std::uint64_t revision() const { return revision_; }

  // ---- what the user does ----
  // What they capture outlives the window. A later handler of the same control replaces the earlier one.
  void on_click(std::string_view control, Handler handler);
  void on_change(std::string_view control, Handler handler);  // a new value, text or selection by the user
  void on_resize(Handler handler) { resized_ = std::move(handler); }
  void on_close(Handler handler, Closing closing = Closing::waits);
  Closing closing() const { return closing_; }

  // Files dropped on the window: their paths, in UTF-8.
  void on_drop(std::function<void(const Lines& paths)> handler) { dropped_ = std::move(handler); }

  // For texts that are no captions: those of results and charts are written anew.
  void on_language(Handler handler) { language_changed_ = std::move(handler); }

  // Called at the moment of a click, also in a wait without input, after which the click itself follows. It
  // may only take note of values.
  void on_press(std::string_view control, Handler handler);

  // Run the handlers. Nothing happens where there is none, and on a click while the control is disabled or
  // hidden.
  void press(std::string_view control) const;
  void click(std::string_view control) const;
  void changed(std::string_view control) const;
  void resized() const;  // shown for the first time, or a change of size has settled
  void closed() const;
  void dropped(const Lines& paths) const;

 private:
  struct NameHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view name) const { return std::hash<std::string_view>()(name); }
  };
  using Handlers = std::map<std::string, Handler, std::less<>>;

  std::size_t index_of(std::string_view name) const;
  void run(const Handlers& handlers, std::string_view control) const;
  template <typename Member, typename Value>
  void change(Member& member, Value&& value);

  std::string name_;
  std::string caption_;
  bool visible_ = false;
  std::uint32_t times_shown_ = 0;
  std::uint64_t revision_ = 1;
  std::vector<std::pair<std::string, Control>> controls_;
  std::unordered_map<std::string, std::size_t, NameHash, std::equal_to<>> index_;
  std::span<const Caption> captions_;
  std::span<const Caption> tooltips_;
  std::span<const Caption> accessible_names_;
  Handlers presses_;
  Handlers clicks_;
  Handlers changes_;
  Handler resized_;
  Handler closed_;
  Handler language_changed_;
  std::function<void(const Lines&)> dropped_;
  Closing closing_ = Closing::waits;
};

// The name of one element of a control array: element("Label1", 3) is "Label1_3".
std::string element(std::string_view array_name, int index);

}  // namespace halden
