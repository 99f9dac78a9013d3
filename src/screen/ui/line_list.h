// A list box for ten thousands of lines, which it shares with the values instead of copying them. The user
// may select several.
#pragma once

#include <QListView>
#include <memory>

#include "screen/window.h"

namespace halden {

class LineModel;

class LineList : public QListView {
  Q_OBJECT

 public:
  explicit LineList(QWidget* parent = nullptr);

  // Of lines that were shown already, those at the same place stay selected unless `view` says otherwise.
  void show_list(const std::shared_ptr<const Lines>& lines, const ListView& view);

  // As the user sees it now.
  const ListView& view() const { return view_; }

 Q_SIGNALS:
  void view_changed();  // by the user

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void show_view(const ListView& view);
  void look_again();
  std::size_t room() const;
  std::vector<LineRange> selected() const;

  LineModel* model_;
  ListView view_;
  bool showing_ = false;  // what changes meanwhile does not come from the user
};

}  // namespace halden
