#include "platform/qt/core/qt_serial_port.h"

#include <array>
#include <utility>

#include "platform/qt/core/serial_probe.h"

namespace halden {

namespace {

constexpr int watch_period_ms = 100;
constexpr int search_period_ms = 500;

// More than a minute of the line's 960 bytes a second; only a device that is not a meter sends more at once.
constexpr std::size_t max_received_bytes = 65536;

// Of the bytes that Qt has read and nobody has taken yet. Beyond that a device that floods the line waits.
// Qt reads on by itself only after a pause when the buffer was full, so it is much larger than a piece.
constexpr qint64 read_buffer_bytes = 1024 * 1024;

struct ErrorCause {
  QSerialPort::SerialPortError error;
  PortRefusal cause;
};

// A device name without its hardware gives a resource error. probe_device has checked before whether the user
// may open the device, so a permission error means that another program uses it.
constexpr std::array<ErrorCause, 4> open_causes = {
    {{QSerialPort::DeviceNotFoundError, PortRefusal::missing},
     {QSerialPort::ResourceError, PortRefusal::missing},
     {QSerialPort::PermissionError, PortRefusal::in_use},
     {QSerialPort::UnsupportedOperationError, PortRefusal::not_serial}}};

PortRefusal cause_of(QSerialPort::SerialPortError error) {
  for (const auto& entry : open_causes)
    if (entry.error == error) return entry.cause;
  return PortRefusal::failed;
}

}  // namespace

QtSerialPort::QtSerialPort(PortTable table) : table_(std::move(table)) {
  watch_timer_.setInterval(watch_period_ms);
  search_timer_.setInterval(search_period_ms);
  QObject::connect(&port_, &QSerialPort::errorOccurred, &port_, [this] { error_occurred(); });
  QObject::connect(&watch_timer_, &QTimer::timeout, &watch_timer_, [this] { watch(); });
  QObject::connect(&search_timer_, &QTimer::timeout, &search_timer_, [this] { search(); });
}

PortRefusal QtSerialPort::open(int number) {
  close();
  if (table_.device(number).empty()) return PortRefusal::invalid_number;
  number_ = number;
  return try_open();
}

void QtSerialPort::close() {
  watch_timer_.stop();
  search_timer_.stop();
  port_.close();
  received_.clear();
  state_ = PortState::closed;
}

void QtSerialPort::keep_looking(int number) {
  close();
  number_ = number;
  vanish();
}

PortRefusal QtSerialPort::try_open() {
  const std::string device = table_.device(number_);
  if (const PortRefusal cause = probe_device(device); cause != PortRefusal::none) return cause;
  port_.setPortName(QString::fromStdString(resolved_device(device)));
  busy_ = true;
  const bool opened = port_.open(QIODevice::ReadWrite);
  if (opened) prepare_line();
  busy_ = false;
  if (!opened) return cause_of(port_.error());
  state_ = PortState::open;
  watch_timer_.start();
  return PortRefusal::none;
}

// Some adapters power their optical head from DTR and RTS; devices without these lines refuse them, which is
// not an error.
void QtSerialPort::prepare_line() {
  port_.setReadBufferSize(read_buffer_bytes);
  port_.setDataTerminalReady(true);
  port_.setRequestToSend(true);
  port_.clear();
  port_.clearError();
}

bool QtSerialPort::present(int number) const {
  const std::string device = table_.device(number);
  return !device.empty() && probe_device(device) != PortRefusal::missing;
}

std::string QtSerialPort::lock_file(int number) const { return lock_file_of(table_.device(number)); }

// A full output buffer gives a resource error although the device is there, so hung_up decides instead. The
// event loop sends later what could not be sent yet.
void QtSerialPort::send(std::string_view bytes) {
  if (state_ != PortState::open) return;
  busy_ = true;
  port_.write(bytes.data(), static_cast<qint64>(bytes.size()));
  port_.flush();
  busy_ = false;
  port_.clearError();
  if (hung_up(port_)) vanish();
}

std::string QtSerialPort::receive() {
  collect();
  return std::exchange(received_, {});
}

std::size_t QtSerialPort::received_count() {
  collect();
  return received_.size();
}

// One waitForReadyRead takes at most 4095 bytes, and none when bytes are buffered already: call it until it
// returns false, then read in any case. An error stays set until it is cleared, and every call on an idle
// line sets a timeout error.
void QtSerialPort::collect() {
  if (state_ != PortState::open) return;
  busy_ = true;
  port_.clearError();
  const auto room = static_cast<qint64>(max_received_bytes - received_.size());
  while (port_.bytesAvailable() < room && port_.waitForReadyRead(0)) {
  }
  received_ += port_.read(room).toStdString();
  busy_ = false;
  if (line_is_faulty()) vanish();
}

bool QtSerialPort::line_is_faulty() const {
  return port_.error() != QSerialPort::NoError && port_.error() != QSerialPort::TimeoutError;
}

void QtSerialPort::error_occurred() {
  if (state_ == PortState::open && !busy_ && line_is_faulty()) vanish();
}

void QtSerialPort::watch() {
  if (hung_up(port_)) vanish();
}

void QtSerialPort::vanish() {
  watch_timer_.stop();
  port_.close();
  state_ = PortState::vanished;
  search_timer_.start();
}

void QtSerialPort::search() {
  if (try_open() == PortRefusal::none) search_timer_.stop();
}

}  // namespace halden
