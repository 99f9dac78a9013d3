// Runs a part of a test as an ordinary user, who is refused things that nobody refuses to root.
#pragma once

#include <sys/wait.h>
#include <unistd.h>

namespace halden {

// The result of `part`, an enumeration, computed in a child process without root's rights.
template <typename Part>
auto run_unprivileged(Part part) {
  constexpr uid_t nobody = 65534;
  const pid_t child = fork();
  if (child == 0) {
    if (geteuid() == 0 && (setgid(nobody) != 0 || setuid(nobody) != 0)) _exit(127);
    _exit(static_cast<int>(part()));
  }
  int status = 0;
  waitpid(child, &status, 0);
  return static_cast<decltype(part())>(WIFEXITED(status) ? WEXITSTATUS(status) : -1);
}

}  // namespace halden
