#include "process.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <stdexcept>

namespace halden {

namespace {

constexpr unsigned longest_run_s = 90;  // of what takes 25 s when the computer has nothing else to do

struct Pipe {
  Pipe() {
    std::array<int, 2> ends;
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
    read_end = ends[0];
    write_end = ends[1];
  }
  int read_end, write_end;
};

// In the child; does not return. Whoever runs the tests may have signals ignored, which a process hands on.
void run(std::vector<std::string>& words) {
  for (const int signal : {SIGINT, SIGTERM, SIGPIPE, SIGALRM}) ::signal(signal, SIG_DFL);
  ::alarm(longest_run_s);
  std::vector<char*> pointers;
  for (std::string& word : words) pointers.push_back(word.data());
  pointers.push_back(nullptr);
  ::execvp(pointers.front(), pointers.data());
  ::_exit(127);
}

std::string read_all(std::FILE* file) {
  std::string result;
  for (int byte; (byte = std::getc(file)) != EOF;) result += static_cast<char>(byte);
  return result;
}

}  // namespace

Process::Process(std::vector<std::string> program_and_arguments, const Surroundings& surroundings) {
  std::vector<std::string> words = {"env"};
  words.insert(words.end(), surroundings.begin(), surroundings.end());
  words.insert(words.end(), program_and_arguments.begin(), program_and_arguments.end());
  std::string& program = words[1 + surroundings.size()];
  if (program.find('/') == std::string::npos) program = HALDEN_BIN_DIR "/" + program;
  const Pipe input, output, errors;
  pid_ = ::fork();
  if (pid_ < 0) throw std::runtime_error("no process");
  if (pid_ == 0) {
    ::dup2(input.read_end, STDIN_FILENO);
    ::dup2(output.write_end, STDOUT_FILENO);
    ::dup2(errors.write_end, STDERR_FILENO);
    run(words);
  }
  for (const int theirs : {input.read_end, output.write_end, errors.write_end}) ::close(theirs);
  input_ = input.write_end;
  output_ = ::fdopen(output.read_end, "r");
  errors_ = ::fdopen(errors.read_end, "r");
}

Process::~Process() {
  if (!exit_code_) send_signal(SIGKILL);
  exit_code();
  ::close(input_);
  stop_reading();
  std::fclose(errors_);
}

void Process::write_line(const std::string& line) { ::dprintf(input_, "%s\n", line.c_str()); }

std::optional<std::string> Process::read_line() {
  std::string line;
  for (int byte; (byte = std::getc(output_)) != EOF; line += static_cast<char>(byte))
    if (byte == '\n') return line;
  return std::nullopt;
}

void Process::stop_reading() {
  if (output_ != nullptr) std::fclose(output_);
  output_ = nullptr;
}

void Process::send_signal(int signal) { ::kill(pid_, signal); }

int Process::exit_code() {
  if (!exit_code_) {
    int status = 0;
    ::waitpid(pid_, &status, 0);
    exit_code_ = WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
  }
  return *exit_code_;
}

std::string Process::rest_of_output() { return read_all(output_); }

std::string Process::errors() { return read_all(errors_); }

Ended run_to_end(std::vector<std::string> program_and_arguments, const Surroundings& surroundings) {
  Process process(std::move(program_and_arguments), surroundings);
  const std::string output = process.rest_of_output();
  const std::string errors = process.errors();
  return {process.exit_code(), output, errors};
}

}  // namespace halden
