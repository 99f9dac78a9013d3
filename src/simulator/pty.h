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

  // Empty when it went well, otherwise one sentence. The line is raw from the start. One slave descriptor
  // stays open here: without it the master reports a hang-up, and a poll on it returns at once, as long as no
  // program listens.
  std::string open();

  // The device vanishes; a program that has it open sees a hang-up.
  void close();

  bool is_open() const { return master_ >= 0; }
  int descriptor() const { return master_; }             // to poll; -1 when closed
  const std::string& device() const { return device_; }  // "/dev/pts/7"

  // A program takes the line for itself and, when killed, never gives it back, because our own descriptor
  // keeps the line alive. This gives it back.
  void lift_exclusive_use();

  std::string read();  // what has come, without waiting

  // What does not fit because nobody reads is lost, as on a real line.
  void write(const std::string& bytes);

 private:
  int master_ = -1;
  int slave_ = -1;
  std::string device_;
};

}  // namespace halden::simulator
