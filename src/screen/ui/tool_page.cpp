#include "screen/ui/tool_page.h"

#include <QVBoxLayout>

#include "screen/ui/bottom_row.h"
#include "screen/ui/form_window.h"

namespace halden {

ToolPage build_tool_page(FormWindow& form, const std::string& message) {
  constexpr int margin = 12;
  constexpr int gap = 6;
  auto* const content = new QWidget(&form);
  auto* const outer = new QVBoxLayout(content);
  outer->setContentsMargins(0, 0, 0, 0);
  outer->setSpacing(0);
  auto* const column = new QVBoxLayout;
  column->setContentsMargins(margin, gap, margin, gap);
  column->setSpacing(gap);
  outer->addLayout(column, 1);
  auto* const bottom = new BottomRow(form.theme());
  bottom->add_field(message, form.mirror(), 0, 1);
  form.keep_off_paper(*bottom);
  outer->addWidget(bottom);
  return {content, column};
}

}  // namespace halden
