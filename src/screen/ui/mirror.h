// Shows the values of a window on its widgets: finds the controls that have changed since they were last
// shown and updates only their widgets. Text typed by the user is written back into the values.
#pragma once

#include <QString>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "screen/window.h"

class QAbstractButton;
class QAction;
class QComboBox;
class QLabel;
class QLineEdit;
class QProgressBar;
class QScrollBar;

namespace halden {

class LineList;

QString to_qt(std::string_view utf8);
std::string from_qt(const QString& text);

// Whether the edit boxes accept typing.
enum class Typing { taken, refused };

class Mirror {
 public:
  // `changed` is called with the control whose value the user has changed, after it was written back.
  using Changed = std::function<void(const std::string& control)>;
  explicit Mirror(
      Window& window, Changed changed = [](const std::string&) {})
      : window_(window), changed_(std::move(changed)) {}

  // Ties a control of the window to the widget that shows it. The widget outlives the mirror.
  void tie(const std::string& control, QLabel& label);
  void tie(const std::string& control, QLineEdit& field);
  void tie(const std::string& control, QAbstractButton& button);
  void tie(const std::string& control, QAction& action);

  // Without a range the bar only shows that something goes on.
  void tie(const std::string& control, QProgressBar& bar);

  // A scroll bar moved by the user writes its value back.
  void tie(const std::string& control, QScrollBar& bar);

  // The user has chosen this part of what a control shows; it is written back as its range.
  void choose_range(const std::string& control, int first, int last);

  // A choice made by the user is written back as the value, which is the index of the line shown.
  void tie(const std::string& control, QComboBox& box);

  // What the user sees and selects is written back; only another selection counts as a change.
  void tie(const std::string& control, LineList& list);

  // For a widget that shows a control in its own way.
  using Show = std::function<void(const Control&)>;
  void tie(const std::string& control, Show show);

  // An edit box: a text field whose typed text is written back.
  void tie_edit_box(const std::string& control, QLineEdit& field);
  void set_typing(Typing typing);

  // Brings all widgets up to date. True when the place or the visibility of some control has changed.
  bool show_changes();

 private:
  struct Tie {
    std::string control;
    Control shown;
    bool fresh;
    Show show;
  };

  Window& window_;
  Changed changed_;
  std::uint64_t shown_revision_ = 0;
  std::vector<Tie> ties_;
  std::vector<QLineEdit*> edit_boxes_;
};

}  // namespace halden
