// Keeps a widget at the end of a window's menu bar. To assistive technology a menu bar has no children but
// its menus, and a widget in its corner would be unknown. The widget therefore belongs to the window and lies
// above the corner, which only keeps the room for it.
#pragma once

#include <QWidget>

class QMainWindow;

namespace halden {

class MenuCorner : public QWidget {
  Q_OBJECT

 public:
  // Gives the widget to the window. The corner is as wide as the widget's hint, and hidden while that is.
  MenuCorner(QMainWindow& window, QWidget& shown);

  QSize sizeHint() const override;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void moveEvent(QMoveEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void place();

  QMainWindow& window_;
  QWidget& shown_;
};

}  // namespace halden
