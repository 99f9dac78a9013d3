#include "cli/process_io.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>

namespace halden {

namespace {

#ifdef SIGHUP  // a closed terminal
constexpr std::array signals = {SIGINT, SIGTERM, SIGHUP};
#else
constexpr std::array signals = {SIGINT, SIGTERM};
#endif

// A signal handler can only use what exists as long as the process, and do little more than set a flag.
volatile std::sig_atomic_t signal_came = 0;

}  // namespace

extern "C" {
static void note_signal(int) { signal_came = 1; }
}

void note_interruptions() {
  for (const int signal : signals)
    if (std::signal(signal, note_signal) == SIG_IGN) std::signal(signal, SIG_IGN);
}

bool interrupted() { return signal_came != 0; }

Written write_results(std::string_view results) {
  errno = 0;
  const bool taken = std::fwrite(results.data(), 1, results.size(), stdout) == results.size();
  if (taken && std::fflush(stdout) == 0) return Written::all;
  return errno == EPIPE ? Written::reader_gone : Written::failed;
}

}  // namespace halden
