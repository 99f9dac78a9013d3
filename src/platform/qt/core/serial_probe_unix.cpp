#ifndef _WIN32

#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <memory>

#include "platform/qt/core/serial_probe.h"

namespace halden {

namespace {

struct ErrnoCause {
  int number;
  PortRefusal cause;
};

constexpr std::array<ErrnoCause, 4> stat_causes = {{{ENOENT, PortRefusal::missing},
                                                    {ENOTDIR, PortRefusal::missing},
                                                    {ELOOP, PortRefusal::missing},
                                                    {EACCES, PortRefusal::forbidden}}};

PortRefusal cause_of(int number) {
  for (const auto& entry : stat_causes)
    if (entry.number == number) return entry.cause;
  return PortRefusal::failed;
}

}  // namespace

PortRefusal probe_device(const std::string& device) {
  struct stat status = {};
  if (stat(device.c_str(), &status) != 0) return cause_of(errno);
  if (!S_ISCHR(status.st_mode)) return PortRefusal::not_serial;
  return access(device.c_str(), R_OK | W_OK) == 0 ? PortRefusal::none : PortRefusal::forbidden;
}

std::string resolved_device(const std::string& device) {
  const std::unique_ptr<char, decltype(&std::free)> path(realpath(device.c_str(), nullptr), &std::free);
  return path ? std::string(path.get()) : device;
}

// poll reports a lost device even when no event is asked for.
bool hung_up(const QSerialPort& port) {
  pollfd look = {};
  look.fd = port.handle();
  return poll(&look, 1, 0) > 0 && (look.revents & (POLLHUP | POLLERR | POLLNVAL)) != 0;
}

}  // namespace halden

#endif
