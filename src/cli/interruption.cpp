#include "cli/interruption.h"

#include <array>
#include <csignal>

namespace halden {

namespace {

constexpr std::array signals = {SIGINT, SIGTERM};

// A signal handler can reach nothing but what lives as long as the process, and do little more than this.
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

}  // namespace halden
