#include "cli/qt/qt_session.h"

#include <QDir>
#include <QTimer>
#include <string>
#include <utility>

#include "cli/process_io.h"
#include "platform/process.h"
#include "screen/failure_texts.h"
#include "simulator/stored_files.h"

namespace halden {

namespace {

constexpr int interruption_period_ms = 50;

PortTable port_table(const PortArgument& port) {
  PortTable table;
  if (!port.device.empty()) table.override_device(port.number, port.device);
  return table;
}

}  // namespace

QtSession::QtSession(const PortArgument& port, Interruption interruption, FileAccess access)
    : real_port_(port_table(port)),
      program_(platform(port, access), start_options(port, access)),
      port_number_(port.number),
      interruption_(interruption) {
  if (port.simulated) simulated_meter_.memory() = simulator::example_memory();
}

Platform QtSession::platform(const PortArgument& port, FileAccess access) {
  SerialPort& chosen = port.simulated ? static_cast<SerialPort&>(simulated_port_) : real_port_;
  Files& files = access == FileAccess::none ? static_cast<Files&>(no_files_) : recorded_files_;
  return {clock_, timer1_, timer2_, chosen, dialogs_, printer_, pictures_, shell_, files};
}

// Without a private folder its files stand beside those of other programs.
StartOptions QtSession::start_options(const PortArgument& port, FileAccess access) {
  StartOptions options;
  options.work_folder = QDir::currentPath().toStdString();
  options.temporary_folder = QDir::tempPath().toStdString();
  options.first_port = port.number;
  if (access != FileAccess::disk_and_private_folder) return options;
  private_folder_.emplace();
  options.work_folder =
      private_folder_->isValid() ? private_folder_->path().toStdString() : options.temporary_folder;
  return options;
}

int QtSession::run(const std::function<void()>& command) {
  note_interruptions();
  QTimer interruption_watch;
  QObject::connect(&interruption_watch, &QTimer::timeout, &world_, [this] { end_when_interrupted(); });
  interruption_watch.start(interruption_period_ms);
  QTimer::singleShot(0, &world_, [this, &command] {
    world_.run([this, &command] {
      if (connect_to_meter()) command();
    });
  });
  QCoreApplication::exec();
  return exit_code_;
}

void QtSession::every(int period_ms, std::function<void()> handler) {
  auto* const timer = new QTimer(&world_);
  QObject::connect(timer, &QTimer::timeout, &world_,
                   [this, handler = std::move(handler)] { world_.run(handler); });
  timer->start(period_ms);
}

// The port is opened before the start-up, which would only say that it is not available and not why.
bool QtSession::connect_to_meter() {
  SerialPort& port = program_.platform.port;
  const PortRefusal refusal = port.open(port_number_);
  if (refusal != PortRefusal::none) {
    const std::string device = port.device_name(port_number_);
    failed(refusal_sentence(refusal, device, port.lock_file(port_number_), Language::english));
    return false;
  }
  progress("Reading the settings...");
  program_.application.start_up();
  erase_progress();
  if (program_.link.query.succeeded()) return true;
  failed(dialogs_.last_message());
  return false;
}

void QtSession::print(const std::string& results) {
  if (world_.ending()) return;
  erase_progress();
  switch (write_results(results)) {
    case Written::all:
      return;
    case Written::reader_gone:  // it has seen enough
      return each_ ? void() : done();
    case Written::failed:
      return failed(not_written);
    case Written::interrupted:
      return interruption_ == Interruption::is_end ? done() : failed(not_written);
  }
}

void QtSession::note(const std::string& sentence) {
  erase_progress();
  write_remark(sentence + "\n");
}

void QtSession::progress(const std::string& sentence) {
  if (!remarks_are_watched()) return;
  erase_progress();
  write_remark(sentence);
  progress_length_ = sentence.size();
}

// Blanks, which every terminal knows.
void QtSession::erase_progress() {
  const std::size_t length = std::exchange(progress_length_, 0);
  if (length > 0) write_remark("\r" + std::string(length, ' ') + "\r");
}

void QtSession::done() { end(exit_done); }

void QtSession::failed(const std::string& sentence) {
  if (world_.ending()) return;
  note(sentence);
  end(exit_failed);
}

void QtSession::end(int exit_code) {
  if (world_.ending()) return;
  erase_progress();
  exit_code_ = exit_code;
  world_.end_program();
}

void QtSession::end_when_interrupted() {
  if (!interrupted() || world_.ending()) return;
  if (each_) {
    for (; answered_interruptions_ < interruptions(); ++answered_interruptions_) world_.run(each_);
    return;
  }
  if (finish_) {
    world_.run(finish_);
    return;
  }
  if (interruption_ == Interruption::is_end) return done();
  failed("It was interrupted before the meter had answered.");
}

std::unique_ptr<Session> open_qt_session(const PortArgument& port, Interruption interruption,
                                         FileAccess access) {
  return std::make_unique<QtSession>(port, interruption, access);
}

}  // namespace halden
