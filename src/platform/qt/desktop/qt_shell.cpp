#include "platform/qt/desktop/qt_shell.h"

#include <QApplication>
#include <QDesktopServices>
#include <QFileInfo>
#include <QUrl>

#include "platform/qt/core/qt_world.h"

namespace halden {

// Only what exists: for a missing one a viewer shows a box of its own, or nothing at all.
bool QtShell::open_document(const std::string& path) {
  const QFileInfo file(QString::fromStdString(path));
  return file.exists() && QDesktopServices::openUrl(QUrl::fromLocalFile(file.absoluteFilePath()));
}

void QtShell::beep() { QApplication::beep(); }

void QtShell::end_program() { world_.end_program(); }

}  // namespace halden
