#include "app/ui/desktop_program.h"

#include <QApplication>
#include <QDir>
#include <QMenuBar>
#include <QTimer>
#include <cstdio>

#include "app/companion.h"
#include "app/ui/demo_panel.h"
#include "app/ui/meter_rec.h"
#include "app/ui/notice_window.h"
#include "app/ui/recording_mark.h"
#include "app/ui/signal_watch.h"
#include "app/ui/unattended_dialogs.h"
#include "live/ui/phasor_form.h"
#include "platform/qt/core/qt_clock.h"
#include "platform/qt/core/qt_files.h"
#include "platform/qt/core/qt_serial_port.h"
#include "platform/qt/core/qt_timer.h"
#include "platform/qt/core/qt_world.h"
#include "platform/qt/desktop/qt_dialogs.h"
#include "platform/qt/desktop/qt_printer.h"
#include "platform/qt/desktop/qt_shell.h"
#include "platform/qt/desktop/wait_cursor.h"
#include "screen/main_window.h"
#include "screen/ui/fonts.h"
#include "simulator/demo_port.h"
#include "simulator/meter.h"
#include "simulator/simulated_port.h"

namespace halden {

namespace {

// The status line is looked at this often while nothing else happens.
constexpr int idle_refresh_ms = 500;

// Of message boxes and whatever else chooses no size of its own.
constexpr int box_text_pixels = 14;

PortTable port_table(const DesktopOptions& options) {
  PortTable table;
  for (const auto& [number, device] : options.devices) table.override_device(number, device);
  return table;
}

// Demo: the simulated meter. One device given: that one, as there is nothing to choose.
int first_port(const DesktopOptions& options) {
  if (options.demo) return first_port_number;
  return options.devices.size() == 1 ? options.devices.front().first : 0;
}

StartOptions start_options(const DesktopOptions& options) {
  // In full: the folder of rescued lines is told to the user.
  return {from_qt(QDir(to_qt(options.work_folder)).absolutePath()),
          from_qt(QCoreApplication::applicationDirPath()), from_qt(QDir::tempPath()), first_port(options)};
}

// What the outside world offers.
struct Outside {
  explicit Outside(const DesktopOptions& options) : real_port(port_table(options)) {}

  Platform platform(const DesktopOptions& options) {
    return {clock,
            timer1,
            timer2,
            options.demo ? static_cast<SerialPort&>(demo_port) : real_port,
            options.screenshot.empty() ? static_cast<Dialogs&>(dialogs) : unattended,
            printer,
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
  WaitCursor wait_cursor{world};
};

class DesktopProgram {
 public:
  DesktopProgram(const DesktopOptions& options, Look look)
      : options_(options),
        outside_(options),
        companion_(outside_.platform(options), start_options(options)),
        main_window_(companion_.screen().meter_rec, events(), look),
        phasor_form_(companion_.screen().phasor_form, phasor_events(), look),
        notice_(companion_.screen().chkspeed, main_window_, look),
        recording_mark_(new RecordingMark(companion_.screen().chkspeed, theme(look))),
        demo_panel_(outside_.meter, outside_.simulated_port, &main_window_),
        signals_([this] { close_program(); }) {
    outside_.dialogs.set_parent(&main_window_);
    outside_.printer.add_window(companion_.screen().meter_rec.name(),
                                [this] { return main_window_.paper_image(); });
    outside_.printer.add_window(companion_.screen().phasor_form.name(),
                                [this] { return phasor_form_.paper_image(); });
    recording_mark_->setFixedHeight(main_window_.menuBar()->sizeHint().height());
    main_window_.menuBar()->setCornerWidget(recording_mark_);
    connect_mirrors();
  }

  int run() {
    QTimer::singleShot(0, &main_window_, [this] { world().run([this] { companion_.start_up(); }); });
    QTimer idle;
    QObject::connect(&idle, &QTimer::timeout, &idle, [this] { world().refresh(); });
    idle.start(idle_refresh_ms);
    QApplication::exec();
    return exit_code_;
  }

 private:
  QtWorld& world() { return outside_.world; }

  MeterRecEvents events() {
    return {[this](std::string_view control) { click(control); },
            [this] { world().run([this] { companion_.main_window_resized(); }); },
            [this] { close_program(); }, [this] { return world().holding(); }};
  }

  PhasorFormEvents phasor_events() {
    return {[this](std::string_view control) { click(control); },
            [this] { world().run([this] { companion_.phasor_form_resized(); }); },
            [this] { world().run_input([this] { companion_.phasor_form_closed(); }); },
            [this] { return world().holding(); }};
  }

  void click(std::string_view control) {
    world().run_input([this, name = std::string(control)] { companion_.click(name); });
  }

  // At once, whatever is going on: by the window's frame or by a signal.
  void close_program() {
    world().run([this] { companion_.main_window_closed(); });
    world().end_program();
  }

  void connect_mirrors() {
    world().add_mirror([this] { companion_.refresh_status_line(); });
    world().add_mirror([this] { main_window_.show_changes(); });
    world().add_mirror([this] { phasor_form_.show_changes(); });
    world().add_mirror([this] { notice_.show_changes(); });
    world().add_mirror([this] { recording_mark_->show_changes(); });
    world().add_mirror([this] {
      if (!companion_.exchange_runs()) main_window_.take_typing();
    });
    world().add_mirror([this] { follow_first_show(); });
    QObject::connect(&world(), &QtWorld::long_wait_began, &main_window_, &MeterRec::refuse_typing);
    world().on_end([this] {
      for (QWidget* window : QApplication::topLevelWidgets()) window->hide();
    });
  }

  // What happens once, when the main window shows.
  void follow_first_show() {
    if (shown_ || !main_window_.isVisible()) return;
    shown_ = true;
    if (!options_.screenshot.empty())
      QTimer::singleShot(static_cast<int>(options_.screenshot_after_s * 1000), &main_window_,
                         [this] { take_picture(); });
    else if (options_.demo)
      demo_panel_.show_beside(main_window_.frameGeometry());
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
  Companion companion_;
  MeterRec main_window_;
  PhasorForm phasor_form_;
  NoticeWindow notice_;
  RecordingMark* recording_mark_;  // owned by the menu bar
  DemoPanel demo_panel_;
  SignalWatch signals_;
  bool shown_ = false;
  int exit_code_ = 0;
};

}  // namespace

int run_desktop(int& argc, char** argv, const DesktopOptions& options) {
  QApplication::setStyle(QStringLiteral("Fusion"));
  QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);  // only the logic ends the program
  const Look look = options.look.value_or(desktop_look(QApplication::palette()));
  apply_to_application(look);
  QApplication::setFont(with_pixel_size(text_font(), box_text_pixels));
  return DesktopProgram(options, look).run();
}

}  // namespace halden
