#include "process.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <stdexcept>
#include <utility>

namespace halden {

namespace {

constexpr int cannot_start = 127;

class Deadline {
 public:
  explicit Deadline(double seconds) : end_(Steady::now() + std::chrono::duration<double>(seconds)) {}

  // 0 once it has passed.
  int remaining_ms() const {
    const std::chrono::duration<double, std::milli> rest = end_ - Steady::now();
    return std::max(0, static_cast<int>(rest.count()));
  }

 private:
  using Steady = std::chrono::steady_clock;
  std::chrono::time_point<Steady, std::chrono::duration<double>> end_;
};

struct Pipe {
  Pipe() {
    std::array<int, 2> ends;
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
    read_end = ends[0];
    write_end = ends[1];
  }
  int read_end, write_end;
};

void close_descriptor(int& descriptor) {
  if (descriptor >= 0) ::close(descriptor);
  descriptor = -1;
}

std::string read_all(int descriptor) {
  std::string result;
  std::array<char, 4096> piece;
  for (ssize_t got; (got = ::read(descriptor, piece.data(), piece.size())) > 0;)
    result.append(piece.data(), static_cast<std::size_t>(got));
  return result;
}

std::string path_of(const std::string& program) {
  return program.find('/') == std::string::npos ? HALDEN_BIN_DIR "/" + program : program;
}

// Whoever runs the tests may have signals ignored, which a process hands on.
void let_signals_work() {
  for (const int signal : {SIGINT, SIGTERM, SIGPIPE}) ::signal(signal, SIG_DFL);
}

}  // namespace

Process::Process(std::vector<std::string> program_and_arguments, const Surroundings& surroundings) {
  const Pipe input, output, errors;
  pid_ = ::fork();
  if (pid_ < 0) throw std::runtime_error("no process");
  if (pid_ == 0) {
    ::dup2(input.read_end, STDIN_FILENO);
    ::dup2(output.write_end, STDOUT_FILENO);
    ::dup2(errors.write_end, STDERR_FILENO);
    run(program_and_arguments, surroundings);
  }
  for (const int theirs : {input.read_end, output.write_end, errors.write_end}) ::close(theirs);
  input_ = input.write_end;
  output_ = output.read_end;
  errors_ = errors.read_end;
}

// In the child; does not return.
void Process::run(const std::vector<std::string>& arguments, const Surroundings& surroundings) {
  let_signals_work();
  for (const std::string& name : surroundings.unset) ::unsetenv(name.c_str());
  for (const std::string& variable : surroundings.set) ::putenv(const_cast<char*>(variable.c_str()));
  if (!surroundings.folder.empty() && ::chdir(surroundings.folder.c_str()) != 0) ::_exit(cannot_start);
  std::vector<char*> pointers;
  for (const std::string& argument : arguments) pointers.push_back(const_cast<char*>(argument.c_str()));
  pointers.push_back(nullptr);
  ::execv(path_of(arguments.front()).c_str(), pointers.data());
  ::_exit(cannot_start);
}

Process::~Process() {
  if (!exit_code_ && pid_ > 0) {
    ::kill(pid_, SIGKILL);
    ::waitpid(pid_, nullptr, 0);
  }
  for (int* descriptor : {&input_, &output_, &errors_}) close_descriptor(*descriptor);
}

void Process::write_line(const std::string& line) {
  const std::string bytes = line + "\n";
  if (::write(input_, bytes.data(), bytes.size()) != static_cast<ssize_t>(bytes.size()))
    throw std::runtime_error("the process does not listen");
}

std::optional<std::string> Process::read_line(double limit_s) {
  const Deadline deadline(limit_s);
  std::size_t end;
  while ((end = pending_.find('\n')) == std::string::npos) {
    pollfd look{output_, POLLIN, 0};
    if (::poll(&look, 1, deadline.remaining_ms()) <= 0) return std::nullopt;
    std::array<char, 4096> piece;
    const ssize_t got = ::read(output_, piece.data(), piece.size());
    if (got <= 0) return std::nullopt;
    pending_.append(piece.data(), static_cast<std::size_t>(got));
  }
  const std::string line = pending_.substr(0, end);
  pending_.erase(0, end + 1);
  return line;
}

void Process::stop_reading() { close_descriptor(output_); }

void Process::send_signal(int signal) { ::kill(pid_, signal); }

std::optional<int> Process::exit_code(double limit_s) {
  constexpr int look_again_ms = 5;
  const Deadline deadline(limit_s);
  while (!exit_code_) {
    int status = 0;
    if (::waitpid(pid_, &status, WNOHANG) == pid_)
      exit_code_ = WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
    else if (deadline.remaining_ms() == 0)
      break;
    else
      ::poll(nullptr, 0, look_again_ms);
  }
  return exit_code_;
}

std::string Process::rest_of_output() { return std::exchange(pending_, {}) + read_all(output_); }

std::string Process::errors() { return read_all(errors_); }

Ended run_to_end(std::vector<std::string> program_and_arguments, const Surroundings& surroundings) {
  Process process(std::move(program_and_arguments), surroundings);
  Ended ended;
  ended.exit_code = process.exit_code();
  if (!ended.exit_code) return ended;
  ended.output = process.rest_of_output();
  ended.errors = process.errors();
  return ended;
}

}  // namespace halden
