#include "cli/qt/offscreen_library.h"

#include <QCoreApplication>
#include <QDir>
#include <QLibrary>
#include <array>

namespace halden {

namespace {

// In the folder of the program, as it is built, or where it is installed.
constexpr std::array places = {"halden-offscreen", "../lib/halden/halden-offscreen"};

// Only an application knows its folder. It is gone before the one that draws begins.
QDir program_folder() {
  int argument_count = 1;
  std::array<char, 10> name{"haldenctl"};
  std::array<char*, 2> arguments{name.data(), nullptr};
  const QCoreApplication application(argument_count, arguments.data());
  return QDir(QCoreApplication::applicationDirPath());
}

}  // namespace

OffscreenStart open_offscreen(Files& files) {
  const QDir folder = program_folder();
  QLibrary library;
  for (const char* place : places) {
    library.setFileName(folder.filePath(QString::fromLatin1(place)));
    if (const auto make = reinterpret_cast<MakeOffscreen*>(library.resolve(make_offscreen_name)))
      return {std::unique_ptr<Offscreen>(make(files)), {}};
  }
  return {nullptr, "What draws pictures is not there: " + library.errorString().toStdString()};
}

}  // namespace halden
