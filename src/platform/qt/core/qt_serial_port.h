// The serial line to the meter on QSerialPort. Works with and without a running event loop: receive and
// received_count fetch what has arrived themselves.
//
// A device that disappears is closed at once (an open port without a device keeps a whole processor busy),
// looked for twice a second under the same number, and opened again. Nothing here shows a box.
#pragma once

#include <QSerialPort>
#include <QTimer>

#include "platform/port_table.h"
#include "platform/serial_port.h"

namespace halden {

class QtSerialPort : public SerialPort {
 public:
  explicit QtSerialPort(PortTable table);

  PortRefusal open(int number) override;
  void close() override;
  void keep_looking(int number) override;
  PortState state() const override { return state_; }
  void send(std::string_view bytes) override;
  std::string receive() override;
  std::size_t received_count() override;
  std::string device_name(int number) const override { return table_.device(number); }
  bool present(int number) const override;
  std::string lock_file(int number) const override;

 private:
  PortRefusal try_open();
  void prepare_line();
  void collect();
  bool line_is_faulty() const;
  void error_occurred();
  void watch();
  void search();
  void vanish();

  PortTable table_;
  QSerialPort port_;
  QTimer watch_timer_;
  QTimer search_timer_;
  int number_ = 0;
  PortState state_ = PortState::closed;
  std::string received_;

  // Whether port_ is being used by our own code, which looks at its errors itself when it is done.
  bool busy_ = false;
};

}  // namespace halden
