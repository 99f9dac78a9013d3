// A terminal that keeps what a command says.
#pragma once

#include <string>
#include <vector>

#include "cli/session.h"

namespace halden {

struct NotedTerminal : Terminal {
  void print(const std::string& results) override { printed.push_back(results); }
  void note(const std::string& sentence) override { notes.push_back(sentence); }
  void done() override { end("done"); }
  void failed(const std::string& sentence) override { end(sentence); }
  void end(const std::string& how) {
    if (ended.empty()) ended = how;
  }

  std::vector<std::string> printed;
  std::vector<std::string> notes;
  std::string ended;
};

}  // namespace halden
