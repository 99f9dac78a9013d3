// What only the operating system itself tells about a serial device: what stands behind its name, and whether
// the other end of an open one is still there. One implementation per system.
#pragma once

#include <QSerialPort>
#include <string>

#include "platform/serial_port.h"

namespace halden {

// What can be known without opening the device: missing, forbidden, not_serial, or none when opening it is
// worth a try. Never changes the state of a line.
PortRefusal probe_device(const std::string& device);

// The device behind symbolic links, so that one device is locked under one name; the name itself when there
// is none.
std::string resolved_device(const std::string& device);

// Whether an open port has lost its device.
bool hung_up(const QSerialPort& port);

}  // namespace halden
