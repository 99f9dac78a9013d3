#ifdef _WIN32

#include <io.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>

#include "cli/process_io.h"

namespace halden {

namespace {

constexpr std::array signals = {SIGINT, SIGTERM};

// A signal handler can only use what exists as long as the process, and do little more than set a flag.
volatile std::sig_atomic_t signal_came = 0;

Written write_all(std::FILE* stream, std::string_view bytes) {
  errno = 0;
  const bool taken = std::fwrite(bytes.data(), 1, bytes.size(), stream) == bytes.size();
  if (taken && std::fflush(stream) == 0) return Written::all;
  return errno == EPIPE ? Written::reader_gone : Written::failed;
}

}  // namespace

extern "C" {
static void note_signal(int) { signal_came = 1; }
}

void note_interruptions() {
  for (const int signal : signals)
    if (std::signal(signal, note_signal) == SIG_IGN) std::signal(signal, SIG_IGN);
}

bool interrupted() { return signal_came != 0; }

Written write_results(std::string_view results) { return write_all(stdout, results); }

Written write_remark(std::string_view remark) { return write_all(stderr, remark); }

bool remarks_are_watched() { return _isatty(_fileno(stderr)) != 0; }

}  // namespace halden

#endif
