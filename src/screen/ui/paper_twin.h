// A part of a window that shows more than its control says, such as a chart to which the user has zoomed. A
// print is drawn with parts of its own, which have to show the same.
#pragma once

class QWidget;

namespace halden {

class PaperTwin {
 public:
  virtual ~PaperTwin() = default;

  // The part of the same name in the window on the screen.
  virtual void show_as(const QWidget& on_screen) = 0;
};

}  // namespace halden
