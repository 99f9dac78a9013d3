#include "platform/qt/desktop/qt_shell.h"

#include <QApplication>
#include <QDesktopServices>
#include <QFileInfo>
#include <QUrl>

#include "platform/qt/core/qt_world.h"

namespace halden {

// Only a file that is there: viewers answer a missing one with a box of their own, or not at all.
bool QtShell::open_document(const std::string& path) {
  const QFileInfo file(QString::fromStdString(path));
  return file.isFile() && QDesktopServices::openUrl(QUrl::fromLocalFile(file.absoluteFilePath()));
}

void QtShell::beep() { QApplication::beep(); }

void QtShell::end_program() { world_.end_program(); }

}  // namespace halden
