// What a command says to whoever typed it, and how it ends.
#pragma once

#include <string>

namespace halden {

class Terminal {
 public:
  virtual ~Terminal() = default;

  // Results, for people and for other programs; they reach the reader at once.
  virtual void print(const std::string& results) = 0;

  // Something to know while the command goes on, in one sentence.
  virtual void note(const std::string& sentence) = 0;

  // The command ends: done, or failed for the reason given in one sentence. Only the first call counts.
  virtual void done() = 0;
  virtual void failed(const std::string& sentence) = 0;
};

}  // namespace halden
