// The desktop the program runs on.
#pragma once

#include <string>

namespace halden {

class Shell {
 public:
  virtual ~Shell() = default;

  // Opens a document with its default viewer. False when that could not be done.
  virtual bool open_document(const std::string& path) = 0;

  virtual void beep() = 0;

  // Hides all windows and ends the program: the waits that are running end with ProgramEnded.
  virtual void end_program() = 0;
};

}  // namespace halden
