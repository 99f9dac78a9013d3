#ifndef _WIN32

#include <fcntl.h>
#include <unistd.h>

#include <csignal>

#include "platform/process.h"

namespace halden {

void prepare_process() {
  for (int stream = STDIN_FILENO; stream <= STDERR_FILENO; ++stream)
    if (::fcntl(stream, F_GETFD) == -1) {
      // The lowest free number is taken, which is this one.
      [[maybe_unused]] const int opened = ::open("/dev/null", stream == STDIN_FILENO ? O_RDONLY : O_WRONLY);
    }
  std::signal(SIGPIPE, SIG_IGN);
  std::signal(SIGXFSZ, SIG_IGN);
}

}  // namespace halden

#endif
