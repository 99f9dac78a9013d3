#include "screen/ui/line_list.h"

#include <QAbstractListModel>
#include <QItemSelectionModel>
#include <QScrollBar>
#include <algorithm>
#include <utility>

#include "screen/ui/mirror.h"
#include "screen/ui/theme.h"

namespace halden {

class LineModel : public QAbstractListModel {
 public:
  using QAbstractListModel::QAbstractListModel;

  int rowCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() ? 0 : static_cast<int>(lines_->size());
  }

  QVariant data(const QModelIndex& index, int role) const override {
    if (role != Qt::DisplayRole) return {};
    return to_qt((*lines_)[static_cast<std::size_t>(index.row())]);
  }

  // Rows are added and removed at the end, so that the view keeps its place and what is selected in it.
  void set_lines(std::shared_ptr<const Lines> lines) {
    const int before = rowCount();
    const int after = static_cast<int>(lines->size());
    if (after > before) beginInsertRows({}, before, after - 1);
    if (after < before) beginRemoveRows({}, after, before - 1);
    lines_ = std::move(lines);
    if (after > before) endInsertRows();
    if (after < before) endRemoveRows();
    if (const int same = std::min(before, after); same > 0) Q_EMIT dataChanged(index(0), index(same - 1));
  }

  const std::shared_ptr<const Lines>& lines() const { return lines_; }

 private:
  std::shared_ptr<const Lines> lines_ = std::make_shared<const Lines>();
};

LineList::LineList(QWidget* parent) : QListView(parent), model_(new LineModel(this)) {
  setModel(model_);
  setUniformItemSizes(true);  // otherwise every line would be measured
  setSelectionMode(QAbstractItemView::ExtendedSelection);
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setTextElideMode(Qt::ElideNone);
  set_role(*this, Role::text_lines);
  connect(verticalScrollBar(), &QScrollBar::valueChanged, this, &LineList::look_again);
  connect(selectionModel(), &QItemSelectionModel::selectionChanged, this, &LineList::look_again);
}

void LineList::show_list(const std::shared_ptr<const Lines>& lines, const ListView& view) {
  showing_ = true;
  if (lines && lines != model_->lines()) model_->set_lines(lines);
  show_view(view);
  showing_ = false;
  look_again();
}

void LineList::show_view(const ListView& view) {
  verticalScrollBar()->setValue(static_cast<int>(view.top));
  if (view.selected == selected()) return;
  QItemSelection wanted;
  for (const LineRange& range : view.selected)
    wanted.select(model_->index(static_cast<int>(range.first)), model_->index(static_cast<int>(range.last)));
  selectionModel()->select(wanted, QItemSelectionModel::ClearAndSelect);
}

void LineList::resizeEvent(QResizeEvent* event) {
  QListView::resizeEvent(event);
  look_again();
}

void LineList::look_again() {
  if (showing_) return;
  ListView now{static_cast<std::size_t>(verticalScrollBar()->value()), room(), selected()};
  if (std::exchange(view_, now) != now) Q_EMIT view_changed();
}

std::size_t LineList::room() const {
  const int height = std::max(sizeHintForRow(0), 1);
  return model_->rowCount() == 0 ? 0 : static_cast<std::size_t>((viewport()->height() + height - 1) / height);
}

std::vector<LineRange> LineList::selected() const {
  QItemSelection selection = selectionModel()->selection();
  std::sort(selection.begin(), selection.end(),
            [](const auto& a, const auto& b) { return a.top() < b.top(); });
  std::vector<LineRange> ranges;
  for (const QItemSelectionRange& range : selection) {
    const auto first = static_cast<std::size_t>(range.top());
    const auto last = static_cast<std::size_t>(range.bottom());
    if (!ranges.empty() && ranges.back().last + 1 == first)
      ranges.back().last = last;
    else
      ranges.push_back({first, last});
  }
  return ranges;
}

}  // namespace halden
