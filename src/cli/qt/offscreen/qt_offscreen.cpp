// The library that draws for haldenctl: Qt with its windows and fonts, but without a display.

#include <QApplication>
#include <array>
#include <cstdio>

#include "platform/offscreen.h"
#include "platform/qt/desktop/qt_printer.h"
#include "platform/qt/pictures/qt_pictures.h"
#include "screen/ui/mirror.h"

namespace halden {

namespace {

// Settings of the desktop that would load parts of it, or change the size of what is drawn.
constexpr std::array settings_of_desktop = {"QT_QPA_PLATFORMTHEME", "QT_STYLE_OVERRIDE",       "QT_IM_MODULE",
                                            "QT_SCALE_FACTOR",      "QT_SCREEN_SCALE_FACTORS", "QT_FONT_DPI"};

// Remarks about the desktop that is not used would stand among the command's own sentences.
void tell_fatal_only(QtMsgType type, const QMessageLogContext&, const QString& text) {
  if (type == QtFatalMsg) std::fprintf(stderr, "%s\n", qUtf8Printable(text));
}

class QtOffscreen : public Offscreen {
 public:
  explicit QtOffscreen(Files& files) : pictures_(files) {}

  Pictures& pictures() override { return pictures_; }

  Printer& printer(const std::string& pdf_path) override {
    printer_.set_target({.printer = "", .pdf_path = pdf_path});
    return printer_;
  }

 private:
  // Before Qt begins.
  struct NoDisplay {
    NoDisplay() {
      qInstallMessageHandler(tell_fatal_only);
      qputenv("QT_QPA_PLATFORM", "offscreen");
      for (const char* setting : settings_of_desktop) qunsetenv(setting);
    }
  };

  NoDisplay no_display_;
  int argument_count_ = 1;
  std::array<char, 10> program_name_{"haldenctl"};
  std::array<char*, 2> arguments_{program_name_.data(), nullptr};
  QApplication application_{argument_count_, arguments_.data()};
  QtPictures pictures_;
  QtPrinter printer_;
};

}  // namespace

}  // namespace halden

extern "C" Q_DECL_EXPORT halden::Offscreen* halden_make_offscreen(halden::Files& files);

halden::Offscreen* halden_make_offscreen(halden::Files& files) { return new halden::QtOffscreen(files); }
