// halden-meter in a folder of its own, with its device under the name `port()`.
#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <thread>
#include <vector>

#include "process.h"
#include "temp_folder.h"

namespace halden {

class MeterProcess {
 public:
  explicit MeterProcess(std::vector<std::string> options = {})
      : port_(folder_ / "meter"), process_(with_link(std::move(options), port_)) {
    EXPECT_TRUE(process_.read_line()) << "the meter does not start";
  }

  const std::string& port() const { return port_; }
  const TempFolder& folder() const { return folder_; }

  // The answer to one line of the meter's console.
  std::string command(const std::string& line) {
    process_.write_line(line);
    return announcement();
  }

  // The next line that the meter says by itself.
  std::string announcement() { return process_.read_line().value_or("nothing"); }

  // Returns when a program has opened the port for good and asked for the status, and waits, taking no input.
  void wait_for_request() {
    for (int looks = 0; looks < 1500 && command("log") == "0 \"\""; ++looks)
      std::this_thread::sleep_for(std::chrono::milliseconds(20));
  }

 private:
  static std::vector<std::string> with_link(std::vector<std::string> options, const std::string& link) {
    options.insert(options.begin(), {"halden-meter", "--link", link});
    return options;
  }

  TempFolder folder_;
  std::string port_;
  Process process_;
};

}  // namespace halden
