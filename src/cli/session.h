// The whole program without windows, joined to the meter for the length of one command: real time, a real
// port or the simulated meter, and nothing of a desktop.
#pragma once

#include <QCoreApplication>
#include <array>
#include <functional>

#include "app/companion.h"
#include "app/program.h"
#include "cli/no_desktop.h"
#include "cli/port_argument.h"
#include "cli/terminal.h"
#include "platform/qt/core/qt_clock.h"
#include "platform/qt/core/qt_serial_port.h"
#include "platform/qt/core/qt_timer.h"
#include "platform/qt/core/qt_world.h"
#include "simulator/meter.h"
#include "simulator/simulated_port.h"

namespace halden {

// What it means for a command that it was interrupted by Ctrl-C or a request to terminate.
enum class Interruption { ends_it, spoils_it };

// Exit codes.
inline constexpr int exit_done = 0;
inline constexpr int exit_failed = 1;
inline constexpr int exit_wrong_usage = 2;

// One at a time.
class Session : public Terminal {
 public:
  Session(const PortArgument& port, Interruption interruption);

  // The same with files the command works on; they outlive the session.
  Session(const PortArgument& port, Interruption interruption, Files& files);

  // Starts the program up on the port; when the meter has told its status and is being polled, runs
  // `command`. Then the program lives in the event loop until the command ends. Returns the exit code. When
  // the port does not open or the meter does not answer, the command is not run: it has failed.
  int run(const std::function<void()>& command);

  // From now on an interruption runs `finish`, which ends the command.
  void on_interruption(std::function<void()> finish) { finish_ = std::move(finish); }

  void print(const std::string& results) override;
  void note(const std::string& sentence) override;
  void done() override;
  void failed(const std::string& sentence) override;

  Companion& companion() { return companion_; }
  Program& program() { return companion_.program(); }

  // The text of the last message of the program; empty when there was none.
  const std::string& last_message() const { return dialogs_.last_message(); }

  QtWorld& world() { return world_; }

 private:
  Platform platform(const PortArgument& port, Files& files);
  bool join_meter();
  void end(int exit_code);
  void end_when_interrupted();

  // The application keeps looking at these.
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
  SilentShell shell_{[this] { done(); }};
  NoFiles no_files_;
  Companion companion_;
  const int port_number_;
  const Interruption interruption_;
  std::function<void()> finish_;
  int exit_code_ = exit_done;
};

}  // namespace halden
