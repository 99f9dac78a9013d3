// The commands by which the datalogger changes something in the meter: the selected file, and the memory. The
// meter answers neither; what it holds afterwards its status says.
#pragma once

#include <string_view>

#include "link/waits.h"
#include "platform/serial_port.h"

namespace halden {

// Makes the file with this number ("0", "07") the selected one: "R", the digits and a carriage return, with
// 2 s after each character and 3 s after the last. Does not yield: the meter waits for the end of a command.
void select_stored_file(Waits& waits, SerialPort& port, std::string_view digits);

// Erases all stored files: 0x03 after half a second, and again 2 s later.
void erase_memory(Waits& waits, SerialPort& port);

}  // namespace halden
