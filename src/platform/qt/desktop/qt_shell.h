// The user's desktop: default viewers, the beep, and the end of the program.
#pragma once

#include "platform/shell.h"

namespace halden {

class QtWorld;

class QtShell : public Shell {
 public:
  explicit QtShell(QtWorld& world) : world_(world) {}

  bool open_document(const std::string& path) override;
  void beep() override;
  void end_program() override;

 private:
  QtWorld& world_;
};

}  // namespace halden
