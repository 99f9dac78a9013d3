#include "app/ui/desktop_program.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QTimer>
#include <cstdio>
#include <functional>
#include <memory>

#include "app/program.h"
#include "app/ui/box_language.h"
#include "app/ui/demo_panel.h"
#include "app/ui/forms.h"
#include "app/ui/notice_window.h"
#include "app/ui/recording_mark.h"
#include "app/ui/signal_watch.h"
#include "app/ui/unattended_dialogs.h"
#include "platform/qt/core/qt_clock.h"
#include "platform/qt/core/qt_files.h"
#include "platform/qt/core/qt_serial_port.h"
#include "platform/qt/core/qt_timer.h"
#include "platform/qt/core/qt_world.h"
#include "platform/qt/desktop/qt_dialogs.h"
#include "platform/qt/desktop/qt_printer.h"
#include "platform/qt/desktop/qt_shell.h"
#include "platform/qt/desktop/wait_cursor.h"
#include "platform/qt/pictures/qt_pictures.h"
#include "screen/ui/fonts.h"
#include "screen/ui/menu_corner.h"
#include "simulator/demo_port.h"
#include "simulator/meter.h"
#include "simulator/simulated_port.h"
#include "simulator/stored_files.h"

namespace halden {

namespace {

// The windows are refreshed this often while nothing else happens.
constexpr int idle_refresh_ms = 500;

// For message boxes and other widgets that set no font size.
constexpr int box_text_pixels = 14;

PortTable port_table(const DesktopOptions& options) {
  PortTable table;
  for (const auto& [number, device] : options.devices) table.override_device(number, device);
  return table;
}

// In the demo the port of the simulated meter; with exactly one device given, the port of that device.
int first_port(const DesktopOptions& options) {
  if (options.demo) return first_port_number;
  return options.devices.size() == 1 ? options.devices.front().first : 0;
}

StartOptions start_options(const DesktopOptions& options) {
  // The full path, because the user is told the folder of rescued lines.
  return {from_qt(QDir(to_qt(options.work_folder)).absolutePath()),
          from_qt(QCoreApplication::applicationDirPath()), from_qt(QDir::tempPath()), first_port(options)};
}

// The platform of the desktop.
struct Outside {
  explicit Outside(const DesktopOptions& options) : real_port(port_table(options)) {
    if (options.demo) meter.memory() = simulator::example_memory();
  }

  Platform platform(const DesktopOptions& options) {
    return {clock,
            timer1,
            timer2,
            options.demo ? static_cast<SerialPort&>(demo_port) : real_port,
            options.screenshot.empty() ? static_cast<Dialogs&>(dialogs) : unattended,
            printer,
            pictures,
            shell,
            files};
  }

  QtWorld world;
  QtClock clock{world};
  QtTimer timer1{world};
  QtTimer timer2{world};
  QtSerialPort real_port;
  simulator::Meter meter;
  simulator::SimulatedPort simulated_port{clock, meter};
  simulator::DemoPort demo_port{simulated_port, real_port};
  QtDialogs dialogs{world};
  UnattendedDialogs unattended;
  QtPrinter printer;
  QtShell shell{world};
  QtFiles files;
  QtPictures pictures{files};
  WaitCursor wait_cursor{world};
};

// Passes what the user does through QtWorld, which keeps it while a wait takes no input.
class WorldInput : public UserInput {
 public:
  explicit WorldInput(QtWorld& world) : world_(world) {}
  void run_input(std::function<void()> handler) override { world_.run_input(std::move(handler)); }
  void run_now(std::function<void()> handler) override { world_.run(handler); }
  bool busy() const override { return world_.holding(); }

 private:
  QtWorld& world_;
};

class DesktopProgram {
 public:
  DesktopProgram(const DesktopOptions& options, Look look)
      : options_(options),
        outside_(options),
        program_(outside_.platform(options), start_options(options)),
        input_(outside_.world),
        forms_(make_forms(program_.shared.windows, input_, look)),
        main_window_(*forms_.front()),
        notice_(program_.shared.notice, main_window_, look),
        recording_mark_(new RecordingMark(program_.shared.notice, theme(look))),
        demo_panel_(outside_.meter, outside_.simulated_port, &main_window_),
        signals_([this] { close_program(); }) {
    outside_.dialogs.set_parent(&main_window_);
    for (const auto& form : forms_) {
      outside_.printer.add_window(form->window().name(), [form = form.get()] { return form->paper_image(); });
      if (form->window().name() == "Logger") notice_.give_way_to(*form);
    }
    new MenuCorner(main_window_, *recording_mark_);
    if (shows_demo_panel()) demo_panel_.place_beside(main_window_);
    connect_mirrors();
  }

  int run() {
    QTimer::singleShot(0, &main_window_, [this] { world().run([this] { start(); }); });
    QTimer idle;
    QObject::connect(&idle, &QTimer::timeout, &idle, [this] { world().refresh(); });
    idle.start(idle_refresh_ms);
    QApplication::exec();
    return exit_code_;
  }

 private:
  QtWorld& world() { return outside_.world; }
  bool shows_demo_panel() const { return options_.demo && options_.screenshot.empty(); }

  void start() {
    program_.application.start_up();
    for (const std::string& file : options_.open_files)
      program_.files.open(from_qt(QFileInfo(to_qt(file)).absoluteFilePath()));
  }

  // At once, also during a wait.
  void close_program() {
    world().run([this] { program_.shared.meter_rec.closed(); });
  }

  void connect_mirrors() {
    world().add_mirror([this] { program_.application.refresh_status_line(); });
    world().add_mirror([this] { program_.link.query.show_progress(); });
    for (const auto& form : forms_) {
      world().add_mirror([form = form.get()] { form->show_changes(); });
      world().add_mirror([this, form = form.get()] {
        if (!program_.link.gate.busy()) form->set_typing(Typing::taken);
      });
      QObject::connect(&world(), &QtWorld::long_wait_began, form.get(),
                       [form = form.get()] { form->set_typing(Typing::refused); });
    }
    world().add_mirror([this] { box_language_.follow(program_.link.state.language); });
    world().add_mirror([this] { notice_.show_changes(); });
    world().add_mirror([this] { recording_mark_->show_changes(); });
    world().add_mirror([this] { follow_first_show(); });
    world().on_end([this] {
      for (QWidget* window : QApplication::topLevelWidgets()) window->hide();
    });
  }

  // Runs once, when the main window is shown.
  void follow_first_show() {
    if (shown_ || !main_window_.isVisible()) return;
    shown_ = true;
    if (!options_.screenshot.empty())
      QTimer::singleShot(static_cast<int>(options_.screenshot_after_s * 1000), &main_window_,
                         [this] { take_picture(); });
    else if (shows_demo_panel())
      demo_panel_.show();
  }

  void take_picture() {
    if (!main_window_.grab().save(to_qt(options_.screenshot))) {
      std::fprintf(stderr, "The picture could not be written to %s.\n", options_.screenshot.c_str());
      exit_code_ = 1;
    }
    world().end_program();
  }

  const DesktopOptions& options_;
  Outside outside_;
  Program program_;
  WorldInput input_;
  std::vector<std::unique_ptr<FormWindow>> forms_;
  FormWindow& main_window_;
  NoticeWindow notice_;
  RecordingMark* recording_mark_;  // owned by the main window
  DemoPanel demo_panel_;
  BoxLanguage box_language_;
  SignalWatch signals_;
  bool shown_ = false;
  int exit_code_ = 0;
};

}  // namespace

QIcon program_icon() {
  QIcon icon;
  for (const char* file : {":/icons/halden-32.png", ":/icons/halden-128.png"})
    icon.addFile(QLatin1String(file));
  return icon;
}

int run_desktop(int& argc, char** argv, const DesktopOptions& options) {
  QApplication::setStyle(QStringLiteral("Fusion"));
  QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);  // only the logic ends the program
  QApplication::setWindowIcon(program_icon());
  QApplication::setDesktopFileName(QStringLiteral("halden"));  // where the desktop finds the icon by itself
  const Look look = options.look.value_or(desktop_look(QApplication::palette()));
  apply_to_application(look);
  QApplication::setFont(with_pixel_size(text_font(), box_text_pixels));
  return DesktopProgram(options, look).run();
}

}  // namespace halden
