// Runs a part of a test in a child process: with limits of its own, or as an ordinary user, who is refused
// things that nobody refuses to root.
#pragma once

#include <sys/wait.h>
#include <unistd.h>

namespace halden {

// The result of `part`, an enumeration.
template <typename Part>
auto run_in_child(Part part) {
  const pid_t child = fork();
  if (child == 0) _exit(static_cast<int>(part()));
  int status = 0;
  waitpid(child, &status, 0);
  return static_cast<decltype(part())>(WIFEXITED(status) ? WEXITSTATUS(status) : -1);
}

template <typename Part>
auto run_unprivileged(Part part) {
  constexpr uid_t nobody = 65534;
  return run_in_child([&] {
    if (geteuid() == 0 && (setgid(nobody) != 0 || setuid(nobody) != 0)) _exit(127);
    return part();
  });
}

}  // namespace halden
