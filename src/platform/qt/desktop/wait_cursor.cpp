#include "platform/qt/desktop/wait_cursor.h"

#include <QCursor>
#include <QGuiApplication>

#include "platform/qt/core/qt_world.h"

namespace halden {

WaitCursor::WaitCursor(QtWorld& world) {
  connect(&world, &QtWorld::long_wait_began, this, &WaitCursor::show);
  connect(&world, &QtWorld::wait_over, this, &WaitCursor::restore);
}

WaitCursor::~WaitCursor() { restore(); }

void WaitCursor::show() {
  if (!shown_) QGuiApplication::setOverrideCursor(Qt::WaitCursor);
  shown_ = true;
}

void WaitCursor::restore() {
  if (shown_) QGuiApplication::restoreOverrideCursor();
  shown_ = false;
}

}  // namespace halden
