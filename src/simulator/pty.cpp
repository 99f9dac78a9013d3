#ifndef _WIN32

#include "simulator/pty.h"

#include <fcntl.h>
#include <stdlib.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <system_error>

namespace halden::simulator {

namespace {

bool make_raw(int descriptor) {
  termios line{};
  if (::tcgetattr(descriptor, &line) != 0) return false;
  ::cfmakeraw(&line);
  return ::tcsetattr(descriptor, TCSANOW, &line) == 0;
}

}  // namespace

std::string Pty::open() {
  close();
  master_ = ::posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
  const bool unlocked = master_ >= 0 && ::grantpt(master_) == 0 && ::unlockpt(master_) == 0;
  const char* name = unlocked ? ::ptsname(master_) : nullptr;
  if (name != nullptr) {
    device_ = name;
    slave_ = ::open(name, O_RDWR | O_NOCTTY | O_CLOEXEC);
  }
  if (slave_ >= 0 && make_raw(slave_)) return {};
  const std::string cause = std::generic_category().message(errno);
  close();
  return "No pseudo-terminal could be opened: " + cause + ".";
}

void Pty::close() {
  if (slave_ >= 0) ::close(slave_);
  if (master_ >= 0) ::close(master_);
  slave_ = master_ = -1;
  device_.clear();
}

void Pty::lift_exclusive_use() {
  if (slave_ >= 0) ::ioctl(slave_, TIOCNXCL);
}

std::string Pty::read() {
  std::array<char, 4096> bytes;
  const auto count = ::read(master_, bytes.data(), bytes.size());
  return count > 0 ? std::string(bytes.data(), static_cast<std::size_t>(count)) : std::string();
}

void Pty::write(const std::string& bytes) {
  if (master_ < 0 || bytes.empty()) return;
  [[maybe_unused]] const auto written = ::write(master_, bytes.data(), bytes.size());
}

}  // namespace halden::simulator

#endif
