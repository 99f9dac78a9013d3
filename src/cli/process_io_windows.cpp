#ifdef _WIN32

#define NOMINMAX
#include <io.h>
#include <windows.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>

#include "cli/process_io.h"

namespace halden {

namespace {

constexpr std::array signals = {SIGINT, SIGTERM};

// A signal handler can only use what exists as long as the process, and do little more than count.
volatile std::sig_atomic_t signals_came = 0;

Written write_all(std::FILE* stream, std::string_view bytes) {
  errno = 0;
  const bool taken = std::fwrite(bytes.data(), 1, bytes.size(), stream) == bytes.size();
  if (taken && std::fflush(stream) == 0) return Written::all;
  return errno == EPIPE ? Written::reader_gone : Written::failed;
}

}  // namespace

extern "C" {
// A signal is handled once only, unless that is asked for again.
static void note_signal(int signal) {
  std::signal(signal, note_signal);
  signals_came = signals_came + 1;
}
}

void note_interruptions() {
  for (const int signal : signals)
    if (std::signal(signal, note_signal) == SIG_IGN) std::signal(signal, SIG_IGN);
}

int interruptions() { return signals_came; }

Written write_results(std::string_view results) { return write_all(stdout, results); }

Written write_remark(std::string_view remark) { return write_all(stderr, remark); }

bool remarks_are_watched() { return _isatty(_fileno(stderr)) != 0; }

// An old console refuses the virtual terminal mode, and would show the sequences as text.
std::optional<ScreenSize> results_screen() {
  const HANDLE console = GetStdHandle(STD_OUTPUT_HANDLE);
  DWORD mode = 0;
  CONSOLE_SCREEN_BUFFER_INFO info = {};
  if (GetConsoleMode(console, &mode) == 0 || GetConsoleScreenBufferInfo(console, &info) == 0 ||
      SetConsoleMode(console, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING) == 0)
    return std::nullopt;
  const SMALL_RECT& window = info.srWindow;
  return ScreenSize{window.Right - window.Left + 1, window.Bottom - window.Top + 1};
}

}  // namespace halden

#endif
