// The meter's end of a serial line, as a pseudo-terminal.
#pragma once

#include <fcntl.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <stdexcept>
#include <string>
#include <string_view>

namespace halden {

class PtyLine {
 public:
  PtyLine() {
    master_ = posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK);
    if (master_ < 0 || grantpt(master_) != 0 || unlockpt(master_) != 0)
      throw std::runtime_error("no pseudo-terminal");
    device_ = ptsname(master_);
    // Kept open: the meter's side would get an input/output error while nobody else listens.
    slave_ = ::open(device_.c_str(), O_RDWR | O_NOCTTY);
    termios raw = {};
    tcgetattr(slave_, &raw);
    cfmakeraw(&raw);
    tcsetattr(slave_, TCSANOW, &raw);
  }
  ~PtyLine() { hang_up(); }
  PtyLine(const PtyLine&) = delete;
  PtyLine& operator=(const PtyLine&) = delete;

  const std::string& device() const { return device_; }

  // Writes what the line takes at the moment; returns how much that was.
  std::size_t write_some(std::string_view bytes) {
    const ssize_t written = ::write(master_, bytes.data(), bytes.size());
    return written > 0 ? static_cast<std::size_t>(written) : 0;
  }

  // What has arrived at the meter.
  std::string read() {
    std::string result;
    std::array<char, 4096> piece = {};
    for (ssize_t got; (got = ::read(master_, piece.data(), piece.size())) > 0;)
      result.append(piece.data(), static_cast<std::size_t>(got));
    return result;
  }

  // Pulls the plug.
  void hang_up() {
    if (master_ < 0) return;
    ::close(slave_);
    ::close(master_);
    master_ = slave_ = -1;
  }

 private:
  int master_ = -1;
  int slave_ = -1;
  std::string device_;
};

}  // namespace halden
