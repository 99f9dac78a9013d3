// SIGINT, SIGTERM and SIGHUP (a closed terminal) on systems that have them: the signal handler may only write
// into a pipe; the event loop reads it.
#if defined(__unix__) || defined(__APPLE__)

#include <fcntl.h>
#include <unistd.h>

#include <QSocketNotifier>
#include <array>
#include <csignal>
#include <utility>

#include "app/ui/signal_watch.h"

namespace halden {

namespace {

constexpr std::array watched_signals = {SIGINT, SIGTERM, SIGHUP};

// Static, because a signal handler can only use what exists as long as the process.
std::array<int, 2> pipe_ends = {-1, -1};

void note_signal(int) {
  const char byte = 0;
  // A write to a full pipe may fail: an earlier signal is still in it.
  [[maybe_unused]] const ssize_t written = ::write(pipe_ends[1], &byte, 1);
}

void handle_signals_with(void (*handler)(int)) {
  struct sigaction action = {};
  action.sa_handler = handler;
  action.sa_flags = SA_RESTART;
  for (const int signal : watched_signals) ::sigaction(signal, &action, nullptr);
}

}  // namespace

SignalWatch::SignalWatch(std::function<void()> ended) : ended_(std::move(ended)) {
  if (::pipe2(pipe_ends.data(), O_CLOEXEC | O_NONBLOCK) != 0) return;
  auto* const notifier = new QSocketNotifier(pipe_ends[0], QSocketNotifier::Read, this);
  QObject::connect(notifier, &QSocketNotifier::activated, this, [this] {
    char byte = 0;
    while (::read(pipe_ends[0], &byte, 1) == 1) {
    }
    ended_();
  });
  handle_signals_with(note_signal);
}

SignalWatch::~SignalWatch() {
  handle_signals_with(SIG_DFL);
  for (int& end : pipe_ends) {
    if (end >= 0) ::close(end);
    end = -1;
  }
}

}  // namespace halden

#endif
