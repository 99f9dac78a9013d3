// One of the programs as a real process, joined to the test by pipes.
#pragma once

#include <sys/types.h>

#include <cstdio>
#include <optional>
#include <string>
#include <vector>

namespace halden {

// What env(1) takes in front of a program: "NAME=VALUE", "-u", "NAME" or "-C", "FOLDER".
using Surroundings = std::vector<std::string>;

// A process that runs far too long is killed, so that nothing below waits for ever.
class Process {
 public:
  // The program is a path, or the name of one that was built with the tests.
  explicit Process(std::vector<std::string> program_and_arguments, const Surroundings& surroundings = {});

  // Kills a process that still runs.
  ~Process();
  Process(const Process&) = delete;
  Process& operator=(const Process&) = delete;

  void write_line(const std::string& line);

  // The next line of standard output without its end; nothing when the output ended before.
  std::optional<std::string> read_line();

  // Closes our end of standard output, as a reader does that has seen enough.
  void stop_reading();

  void send_signal(int signal);

  // Waits for the end. The negative signal for a process that was killed.
  int exit_code();

  // Everything not read yet, up to the end.
  std::string rest_of_output();
  std::string errors();

 private:
  pid_t pid_ = -1;
  std::optional<int> exit_code_;
  int input_ = -1;
  std::FILE* output_ = nullptr;
  std::FILE* errors_ = nullptr;
};

// How a program ended and what it said, for those that need no company.
struct Ended {
  int exit_code;
  std::string output;
  std::string errors;
};

Ended run_to_end(std::vector<std::string> program_and_arguments, const Surroundings& surroundings = {});

}  // namespace halden
