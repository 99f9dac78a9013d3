#include "logger/ui/results_area.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>
#include <string>

#include "logger/logger_form.h"
#include "screen/ui/theme.h"

namespace halden {

namespace {

constexpr double title_pixels = 12;
constexpr double line_pixels = 13;

// Lines that are the same stay as they are, so that the user keeps the selection while files are added.
void show_lines(QListWidget& list, const Lines& lines) {
  const int count = static_cast<int>(lines.size());
  while (list.count() > count) delete list.takeItem(list.count() - 1);
  for (int i = 0; i < count; ++i) {
    const QString text = to_qt(lines[static_cast<std::size_t>(i)]);
    if (i == list.count()) list.addItem(QString());
    if (list.item(i)->text() == text) continue;
    list.item(i)->setText(text);
    list.item(i)->setToolTip(text);  // for a line that is longer than the list is wide
    list.scrollToBottom();
  }
}

}  // namespace

ResultsArea::ResultsArea(FormWindow& form, ScaledSizes& sizes, QWidget* parent)
    : QWidget(parent), form_(form), sizes_(sizes) {
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  sizes_.add(5, [column](int pixels) { column->setSpacing(pixels); });
  build_title(*column);
  build_list(*column);
}

void ResultsArea::build_title(QVBoxLayout& column) {
  auto* const row = new QWidget(this);
  sizes_.add_height(30, *row);
  column.addWidget(row);
  auto* const line = new QHBoxLayout(row);
  line->setContentsMargins(0, 0, 0, 0);
  auto* const title = new QLabel(row);
  title->setObjectName(to_qt(results_title));
  title->setTextFormat(Qt::PlainText);
  set_role(*title, Role::quiet);
  sizes_.add_text(title_pixels, *title);
  form_.mirror().tie(std::string(results_title), *title);
  auto* const folder = new QPushButton(row);
  form_.tie_button(std::string(open_folder), *folder);
  sizes_.add_text(line_pixels, *folder);
  sizes_.add(130, [folder](int pixels) { folder->setFixedWidth(pixels); });
  sizes_.add_height(28, *folder);
  line->addWidget(title, 1, Qt::AlignBottom);
  line->addWidget(folder);
}

void ResultsArea::build_list(QVBoxLayout& column) {
  auto* const list = new QListWidget(this);
  list->setObjectName(to_qt(results));
  list->setTextElideMode(Qt::ElideMiddle);
  list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  set_role(*list, Role::list);
  sizes_.add_text(line_pixels, *list);
  form_.mirror().tie(std::string(results), [list](const Control& now) {
    list->setVisible(now.visible);
    list->setAccessibleName(to_qt(now.accessible_name));
    show_lines(*list, now.lines ? *now.lines : Lines());
  });
  column.addWidget(list, 1);
}

}  // namespace halden
