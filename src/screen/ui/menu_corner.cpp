#include "screen/ui/menu_corner.h"

#include <QEvent>
#include <QMainWindow>
#include <QMenuBar>

namespace halden {

MenuCorner::MenuCorner(QMainWindow& window, QWidget& shown)
    : QWidget(window.menuBar()), window_(window), shown_(shown) {
  const bool hidden = shown.isHidden();
  shown.setParent(&window);
  shown.setVisible(!hidden);
  setVisible(!hidden);
  shown.installEventFilter(this);
  window.menuBar()->setCornerWidget(this);
  setFixedHeight(window.menuBar()->sizeHint().height());
}

QSize MenuCorner::sizeHint() const {
  return shown_.sizeHint().expandedTo(shown_.minimumSize()).boundedTo(shown_.maximumSize());
}

bool MenuCorner::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::ShowToParent:
    case QEvent::HideToParent:
      setVisible(!shown_.isHidden());
      break;
    case QEvent::LayoutRequest:
      updateGeometry();
      break;
    default:
      break;
  }
  return QWidget::eventFilter(watched, event);
}

void MenuCorner::moveEvent(QMoveEvent*) { place(); }

void MenuCorner::resizeEvent(QResizeEvent*) { place(); }

void MenuCorner::place() { shown_.setGeometry(QRect(mapTo(&window_, QPoint()), size())); }

}  // namespace halden
