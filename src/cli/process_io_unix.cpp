#ifndef _WIN32

#include <poll.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdlib>

#include "cli/process_io.h"

namespace halden {

namespace {

constexpr std::array signals = {SIGINT, SIGTERM, SIGHUP};  // the last one: a closed terminal

constexpr int look_ms = 50;                     // from one look for an interruption to the next
constexpr int looks_when_interrupted = 10;      // half a second
constexpr std::size_t most_at_once = PIPE_BUF;  // fits into a pipe that poll calls writable

// A signal handler can only use what exists as long as the process, and do little more than count.
volatile std::sig_atomic_t signals_came = 0;

// False when the reader takes nothing although the command was interrupted. A reader that has gone counts as
// ready: the write tells.
bool wait_for_reader(int stream) {
  for (int looks = 0; looks < looks_when_interrupted; looks += interrupted() ? 1 : 0) {
    pollfd look = {stream, POLLOUT, 0};
    if (poll(&look, 1, look_ms) > 0) return true;
  }
  return false;
}

Written write_all(int stream, std::string_view bytes) {
  while (!bytes.empty()) {
    if (!wait_for_reader(stream)) return Written::interrupted;
    const ssize_t taken = ::write(stream, bytes.data(), std::min(bytes.size(), most_at_once));
    if (taken >= 0)
      bytes.remove_prefix(static_cast<std::size_t>(taken));
    else if (errno != EINTR && errno != EAGAIN)
      return errno == EPIPE ? Written::reader_gone : Written::failed;
  }
  return Written::all;
}

}  // namespace

extern "C" {
static void note_signal(int) { signals_came = signals_came + 1; }
}

// Without SA_RESTART, so that a signal ends a write that waits.
void note_interruptions() {
  for (const int signal : signals) {
    struct sigaction action = {};
    if (sigaction(signal, nullptr, &action) != 0 || action.sa_handler == SIG_IGN) continue;
    action = {};
    action.sa_handler = note_signal;
    sigaction(signal, &action, nullptr);
  }
}

int interruptions() { return signals_came; }

Written write_results(std::string_view results) { return write_all(STDOUT_FILENO, results); }

Written write_remark(std::string_view remark) { return write_all(STDERR_FILENO, remark); }

bool remarks_are_watched() { return isatty(STDERR_FILENO) == 1; }

std::optional<ScreenSize> results_screen() {
  const char* const kind = std::getenv("TERM");
  if (kind == nullptr || *kind == '\0' || std::string_view(kind) == "dumb") return std::nullopt;
  winsize size = {};
  if (isatty(STDOUT_FILENO) != 1 || ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) != 0) return std::nullopt;
  return ScreenSize{size.ws_col, size.ws_row};
}

}  // namespace halden

#endif
