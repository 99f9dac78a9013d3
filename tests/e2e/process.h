// One of the programs as a real process, joined to the test by pipes.
#pragma once

#include <sys/types.h>

#include <optional>
#include <string>
#include <vector>

namespace halden {

struct Surroundings {
  std::vector<std::string> set;    // "NAME=VALUE"
  std::vector<std::string> unset;  // "NAME"
  std::string folder;              // to start in; that of the test when empty
};

// Enough for the slowest step of any test on a busy machine; steps end as soon as they can.
inline constexpr double patience_s = 25.0;

class Process {
 public:
  // The program is a path, or the name of one that was built with the tests.
  explicit Process(std::vector<std::string> program_and_arguments, const Surroundings& surroundings = {});

  // Kills a process that still runs.
  ~Process();
  Process(const Process&) = delete;
  Process& operator=(const Process&) = delete;

  void write_line(const std::string& line);

  // The next line of standard output without its end; nothing when none came in time.
  std::optional<std::string> read_line(double limit_s = patience_s);

  // Closes our end of standard output, as a reader does that has seen enough.
  void stop_reading();

  void send_signal(int signal);

  // Waits for the end. The negative signal for a process that was killed; nothing when it still runs.
  std::optional<int> exit_code(double limit_s = patience_s);

  // Everything not read yet; for a process that has ended.
  std::string rest_of_output();
  std::string errors();

 private:
  void run(const std::vector<std::string>& arguments, const Surroundings& surroundings);

  pid_t pid_ = -1;
  std::optional<int> exit_code_;
  int input_ = -1;
  int output_ = -1;
  int errors_ = -1;
  std::string pending_;
};

// How a program ended and what it said, for those that need no company.
struct Ended {
  std::optional<int> exit_code;
  std::string output;
  std::string errors;
};

Ended run_to_end(std::vector<std::string> program_and_arguments, const Surroundings& surroundings = {});

}  // namespace halden
