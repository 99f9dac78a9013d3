// What only the operating system knows about a serial device: what kind of file its name is, and whether the
// other end of an open one is still there. One implementation per system.
#pragma once

#include <QSerialPort>
#include <string>

#include "platform/serial_port.h"

namespace halden {

// What can be known without opening the device: missing, forbidden, not_serial, or none when opening it
// may succeed. Never changes the state of a line.
PortRefusal probe_device(const std::string& device);

// The device that symbolic links lead to, so that one device is locked under one name; the name itself when
// there is no such device.
std::string resolved_device(const std::string& device);

// The file by which a program keeps others from opening the device; empty when there is none.
std::string lock_file_of(const std::string& device);

// Whether an open port has lost its device.
bool hung_up(const QSerialPort& port);

}  // namespace halden
