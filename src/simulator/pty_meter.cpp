#ifndef _WIN32

#include "simulator/pty_meter.h"

#include <poll.h>
#include <signal.h>
#include <time.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <system_error>
#include <utility>

#include "simulator/console.h"

namespace halden::simulator {

namespace {

namespace fs = std::filesystem;

// Bytes are handed over in small batches, as a serial adapter does, not one by one.
constexpr double batch_s = 0.010;

// Exclusive use is lifted at least this often.
constexpr double longest_wait_s = 1.0;

double monotonic_s() {
  return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

void say(const std::string& line) {
  std::fputs((line + "\n").c_str(), stdout);
  std::fflush(stdout);
}

// SIGTERM and SIGINT are blocked except during a wait, which they interrupt: no flag has to be shared with a
// handler, and no signal is lost between two waits. SIGPIPE is ignored: the program that reads the answers
// may have ended.
class SignalsWhileWaiting {
 public:
  SignalsWhileWaiting() {
    sigset_t ours;
    sigemptyset(&ours);
    for (std::size_t i = 0; i < signals.size(); ++i) {
      struct sigaction action {};
      action.sa_handler = signals[i] == SIGPIPE ? SIG_IGN : [](int) {};
      ::sigaction(signals[i], &action, &actions_before_[i]);
      sigaddset(&ours, signals[i]);
    }
    ::sigprocmask(SIG_BLOCK, &ours, &mask_before_);
    while_waiting_ = mask_before_;
    for (const int signal : signals) sigdelset(&while_waiting_, signal);
  }

  ~SignalsWhileWaiting() {
    for (std::size_t i = 0; i < signals.size(); ++i) ::sigaction(signals[i], &actions_before_[i], nullptr);
    ::sigprocmask(SIG_SETMASK, &mask_before_, nullptr);
  }

  SignalsWhileWaiting(const SignalsWhileWaiting&) = delete;
  SignalsWhileWaiting& operator=(const SignalsWhileWaiting&) = delete;

  // False when a signal came.
  bool wait(std::array<pollfd, 2>& descriptors, double seconds) const {
    timespec time{};
    time.tv_sec = static_cast<time_t>(seconds);
    time.tv_nsec = static_cast<long>((seconds - static_cast<double>(time.tv_sec)) * 1e9);
    return ::ppoll(descriptors.data(), descriptors.size(), &time, &while_waiting_) >= 0 || errno != EINTR;
  }

 private:
  static constexpr std::array<int, 3> signals = {SIGTERM, SIGINT, SIGPIPE};

  std::array<struct sigaction, 3> actions_before_{};
  sigset_t mask_before_{};
  sigset_t while_waiting_{};
};

}  // namespace

PtyMeter::PtyMeter(Meter& meter, std::string link_path) : meter_(meter), link_path_(std::move(link_path)) {}

std::string PtyMeter::open() {
  std::string refusal = pty_.open();
  if (refusal.empty()) refusal = make_link();
  if (!refusal.empty()) pty_.close();
  return refusal;
}

std::string PtyMeter::make_link() const {
  if (link_path_.empty()) return {};
  std::error_code error;
  if (fs::is_symlink(fs::symlink_status(link_path_, error))) fs::remove(link_path_, error);
  fs::create_symlink(pty_.device(), link_path_, error);
  return error ? "The link " + link_path_ + " could not be made: " + error.message() + "." : std::string();
}

// Removes only a link to our own device: another meter may have replaced it meanwhile.
void PtyMeter::remove_link() const {
  std::error_code error;
  if (!link_path_.empty() && pty_.is_open() && fs::read_symlink(link_path_, error) == pty_.device())
    fs::remove(link_path_, error);
}

std::string PtyMeter::run() {
  const SignalsWhileWaiting signals;
  if (std::string refusal = open(); !refusal.empty()) return refusal;
  say(pty_.device());
  while (true) {
    double now_s = monotonic_s();
    if (std::string refusal = plug_back(now_s); !refusal.empty()) return refusal;
    pty_.write(meter_.take_output(now_s));
    pty_.lift_exclusive_use();
    std::array<pollfd, 2> descriptors = {
        {{pty_.descriptor(), POLLIN, 0}, {console_open_ ? STDIN_FILENO : -1, POLLIN, 0}}};
    if (!signals.wait(descriptors, wait_s(now_s))) break;
    now_s = monotonic_s();
    if (descriptors[0].revents != 0) meter_.receive(pty_.read(), now_s);
    if (descriptors[1].revents != 0 && !take_console(now_s)) break;
  }
  unplug();
  return {};
}

// The link is removed first: the system soon gives the number of a closed device to another one.
void PtyMeter::unplug() {
  remove_link();
  pty_.close();
}

std::string PtyMeter::plug_back(double now_s) {
  if (pty_.is_open() || now_s < plug_back_s_) return {};
  std::string refusal = open();
  if (refusal.empty()) say("plugged " + pty_.device());
  return refusal;
}

double PtyMeter::wait_s(double now_s) const {
  const double output_s = std::max(meter_.next_output_s(now_s) - now_s, batch_s);
  const double plug_s = pty_.is_open() ? longest_wait_s : std::max(plug_back_s_ - now_s, 0.0);
  return std::min({output_s, plug_s, longest_wait_s});
}

// False when the program is to end.
bool PtyMeter::take_console(double now_s) {
  std::array<char, 1024> bytes;
  const auto count = ::read(STDIN_FILENO, bytes.data(), bytes.size());
  console_open_ = count > 0;
  if (!console_open_) return true;
  console_text_.append(bytes.data(), static_cast<std::size_t>(count));
  for (std::size_t end; (end = console_text_.find('\n')) != std::string::npos;) {
    const auto answer = apply_command(console_text_.substr(0, end), meter_);
    console_text_.erase(0, end + 1);
    if (answer.unplug_s) {
      unplug();
      plug_back_s_ = now_s + *answer.unplug_s;
    }
    if (answer.press_transient) meter_.press_transient(now_s);
    if (!answer.text.empty()) say(answer.text);
    if (answer.quit) return false;
  }
  return true;
}

}  // namespace halden::simulator

#endif
