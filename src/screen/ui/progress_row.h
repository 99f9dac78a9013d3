// The line of a window that shows how far long work has come, and its Cancel.
#pragma once

#include <string_view>

class QWidget;

namespace halden {

class FormWindow;

// The controls of the window: a text, a bar and a button.
struct ProgressRowControls {
  std::string_view text;
  std::string_view bar;
  std::string_view cancel;
};

// Its height stays the same when the controls are hidden. It is not printed.
QWidget* build_progress_row(FormWindow& form, const ProgressRowControls& controls);

// The Escape key presses that Cancel while it is shown; otherwise it closes the window.
void cancel_or_close_on_escape(FormWindow& form, std::string_view cancel);

}  // namespace halden
