// The terminal that keeps what a command says.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "cli/session.h"

namespace halden {

struct NotedTerminal : Terminal {
  void print(const std::string& results) override { printed.push_back(results); }
  std::optional<ScreenSize> screen() const override { return size; }
  void note(const std::string& sentence) override { notes.push_back(sentence); }
  void progress(const std::string& sentence) override { steps += sentence; }
  void done() override { end("done"); }
  void failed(const std::string& sentence) override { end(sentence); }
  void end(const std::string& how) {
    if (ended.empty()) ended = how;
  }

  std::vector<std::string> printed;
  std::vector<std::string> notes;
  std::string steps;
  std::string ended;
  std::optional<ScreenSize> size;
};

}  // namespace halden
