#ifdef _WIN32

#include <QSerialPortInfo>

#include "platform/qt/core/serial_probe.h"

namespace halden {

PortRefusal probe_device(const std::string& device) {
  return QSerialPortInfo(QString::fromStdString(device)).isNull() ? PortRefusal::missing : PortRefusal::none;
}

std::string resolved_device(const std::string& device) { return device; }

std::string lock_file_of(const std::string&) { return {}; }

// The driver reports a pulled adapter by an error of the port itself.
bool hung_up(const QSerialPort&) { return false; }

}  // namespace halden

#endif
