// The content of a window that works on files: a column, and below it the line for its messages.
#pragma once

#include <string>

class QVBoxLayout;
class QWidget;

namespace halden {

class FormWindow;

struct ToolPage {
  QWidget* content;
  QVBoxLayout* column;
};

// `message` is the control of the line at the bottom, which is not printed.
ToolPage build_tool_page(FormWindow& form, const std::string& message);

}  // namespace halden
