// A session in real time, on a real port or the simulated meter, without a desktop.
#pragma once

#include <QCoreApplication>
#include <QTemporaryDir>
#include <array>
#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "app/program.h"
#include "cli/no_desktop.h"
#include "cli/session.h"
#include "platform/qt/core/qt_clock.h"
#include "platform/qt/core/qt_files.h"
#include "platform/qt/core/qt_serial_port.h"
#include "platform/qt/core/qt_timer.h"
#include "platform/qt/core/qt_world.h"
#include "simulator/meter.h"
#include "simulator/simulated_port.h"

namespace halden {

// One at a time.
class QtSession : public Session {
 public:
  QtSession(const PortArgument& port, Interruption interruption, FileAccess access);

  int run(const std::function<void()>& command) override;
  void on_interruption(std::function<void()> finish) override { finish_ = std::move(finish); }
  void on_each_interruption(std::function<void()> handler) override { each_ = std::move(handler); }
  void every(int period_ms, std::function<void()> handler) override;

  void print(const std::string& results) override;
  std::optional<ScreenSize> screen() const override { return results_screen(); }
  void note(const std::string& sentence) override;
  void progress(const std::string& sentence) override;
  void done() override;
  void failed(const std::string& sentence) override;

  Program& program() override { return program_; }
  const std::string& last_message() const override { return dialogs_.last_message(); }

 private:
  Platform platform(const PortArgument& port, FileAccess access);
  StartOptions start_options(const PortArgument& port, FileAccess access);
  bool connect_to_meter();
  void erase_progress();
  void end(int exit_code);
  void end_when_interrupted();

  // The application refers to these as long as it exists.
  int argument_count_ = 1;
  std::array<char, 10> program_name_{"haldenctl"};
  std::array<char*, 2> arguments_{program_name_.data(), nullptr};
  QCoreApplication application_{argument_count_, arguments_.data()};

  QtWorld world_;
  QtClock clock_{world_};
  QtTimer timer1_{world_};
  QtTimer timer2_{world_};
  QtSerialPort real_port_;
  simulator::Meter simulated_meter_;
  simulator::SimulatedPort simulated_port_{clock_, simulated_meter_};
  RememberingDialogs dialogs_;
  NoPrinter printer_;
  NoPictures pictures_;
  SilentShell shell_{[this] { done(); }};
  NoFiles no_files_;
  QtFiles disk_;
  std::optional<QTemporaryDir> private_folder_;
  RecordedFiles recorded_files_{disk_};
  Program program_;
  const int port_number_;
  const Interruption interruption_;
  std::function<void()> finish_;
  std::function<void()> each_;
  int answered_interruptions_ = 0;
  std::size_t progress_length_ = 0;  // of the line that stands on the terminal
  int exit_code_ = exit_done;
};

std::unique_ptr<Session> open_qt_session(const PortArgument& port, Interruption interruption,
                                         FileAccess access);

}  // namespace halden
