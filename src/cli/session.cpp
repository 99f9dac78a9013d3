#include "cli/session.h"

#include <QDir>
#include <QTimer>
#include <cstdio>

#include "app/refusal.h"
#include "cli/interruption.h"
#include "cli/standard_output.h"
#include "screen/captions.h"

namespace halden {

namespace {

constexpr int interruption_period_ms = 50;

PortTable port_table(const PortArgument& port) {
  PortTable table;
  if (!port.device.empty()) table.override_device(port.number, port.device);
  return table;
}

StartOptions start_options(const PortArgument& port) {
  StartOptions options;
  options.work_folder = QDir::currentPath().toStdString();
  options.temporary_folder = QDir::tempPath().toStdString();
  options.first_port = port.number;
  return options;
}

}  // namespace

Session::Session(const PortArgument& port, Interruption interruption)
    : Session(port, interruption, no_files_) {}

Session::Session(const PortArgument& port, Interruption interruption, Files& files)
    : real_port_(port_table(port)),
      companion_(platform(port, files), start_options(port)),
      port_number_(port.number),
      interruption_(interruption) {}

Platform Session::platform(const PortArgument& port, Files& files) {
  SerialPort& chosen = port.simulated ? static_cast<SerialPort&>(simulated_port_) : real_port_;
  return {clock_, timer1_, timer2_, chosen, dialogs_, printer_, shell_, files};
}

int Session::run(const std::function<void()>& command) {
  note_interruptions();
  expect_readers_to_leave();
  QTimer interruption_watch;
  QObject::connect(&interruption_watch, &QTimer::timeout, &world_, [this] { end_when_interrupted(); });
  interruption_watch.start(interruption_period_ms);
  QTimer::singleShot(0, &world_, [this, &command] {
    world_.run([this, &command] {
      if (join_meter()) command();
    });
  });
  QCoreApplication::exec();
  return exit_code_;
}

// The port is tried before the start-up, which would only say that it is not available and not why.
bool Session::join_meter() {
  SerialPort& port = program().platform.port;
  const PortRefusal refusal = port.open(port_number_);
  if (refusal != PortRefusal::none) {
    failed(refusal_sentence(refusal, port.device_name(port_number_), english));
    return false;
  }
  companion_.start_up();
  if (program().query.succeeded()) return true;
  failed(dialogs_.last_message());
  return false;
}

void Session::print(const std::string& results) {
  if (world_.ending()) return;
  switch (write_results(results)) {
    case Written::all:
      return;
    case Written::reader_gone:
      return done();
    case Written::failed:
      return failed("The results could not be written.");
  }
}

void Session::note(const std::string& sentence) { std::fprintf(stderr, "%s\n", sentence.c_str()); }

void Session::done() { end(exit_done); }

void Session::failed(const std::string& sentence) {
  if (world_.ending()) return;
  std::fprintf(stderr, "%s\n", sentence.c_str());
  end(exit_failed);
}

void Session::end(int exit_code) {
  if (world_.ending()) return;
  exit_code_ = exit_code;
  world_.end_program();
}

void Session::end_when_interrupted() {
  if (!interrupted() || world_.ending()) return;
  if (finish_) {
    world_.run(finish_);
    return;
  }
  if (interruption_ == Interruption::ends_it) return done();
  failed("It was interrupted before the meter had answered.");
}

}  // namespace halden
