#ifndef _WIN32

#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <memory>
#include <string_view>

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

// The folders in which QSerialPort locks, in its order; it takes the first one it can write to.
std::string lock_file_of(const std::string& device) {
  std::string name = resolved_device(device);
  constexpr std::string_view devices = "/dev/";
  if (name.starts_with(devices)) name.erase(0, devices.size());
  std::replace(name.begin(), name.end(), '/', '_');
  for (const char* folder : {"/var/lock", "/etc/locks", "/var/spool/locks", "/var/spool/uucp", "/tmp",
                             "/var/tmp", "/var/lock/lockdev", "/run/lock"})
    if (const std::string file = std::string(folder) + "/LCK.." + name; access(file.c_str(), F_OK) == 0)
      return file;
  return {};
}

// poll reports a lost device even when no event is asked for.
bool hung_up(const QSerialPort& port) {
  pollfd look = {};
  look.fd = port.handle();
  return poll(&look, 1, 0) > 0 && (look.revents & (POLLHUP | POLLERR | POLLNVAL)) != 0;
}

}  // namespace halden

#endif
