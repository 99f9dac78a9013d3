// A pseudo-terminal that stands in for the serial adapter: the meter writes and reads the master, the program
// opens the slave by its path.
#pragma once

#include <string>

namespace halden::simulator {

class Pty {
 public:
  Pty() = default;
  ~Pty() { close(); }
  Pty(const Pty&) = delete;
  Pty& operator=(const Pty&) = delete;

  // Empty on success, otherwise one sentence. The line is in raw mode from the start. One slave descriptor
  // stays open here: without it, while no program has the device open, the master would report a hang-up and
  // every poll on it would return at once.
  std::string open();

  // The device vanishes; a program that has it open sees a hang-up.
  void close();

  bool is_open() const { return master_ >= 0; }
  int descriptor() const { return master_; }             // to poll; -1 when closed
  const std::string& device() const { return device_; }  // "/dev/pts/7"

  // Ends the exclusive use of the line by a program. A program that is killed does not end it itself, and the
  // system does not either, because our own slave descriptor keeps the line open.
  void lift_exclusive_use();

  std::string read();  // what has arrived; does not wait

  // Bytes that do not fit, because no program reads, are lost, as on a real line.
  void write(const std::string& bytes);

 private:
  int master_ = -1;
  int slave_ = -1;
  std::string device_;
};

}  // namespace halden::simulator
