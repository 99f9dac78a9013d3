// How far an exchange with the meter's memory has come, for somebody who watches the command.
#pragma once

#include <string>

#include "cli/session.h"
#include "screen/window.h"

namespace halden {

class LoggerProgress {
 public:
  // All outlive the progress: the datalogger window and the notice, which hold what is shown.
  LoggerProgress(const Window& logger, const Window& notice, Terminal& terminal);

  // Called twice a second: shows what has changed since the last call, the figures of a transfer first.
  //
  //   20090512153003P.csv, file 1 of 3: 12,340 bytes, 953 bytes/s, 1 min 01 s
  void show();

 private:
  struct Shown {
    std::string note;     // tells that the meter is still sending
    std::string figures;  // empty before a transfer
    std::string step;     // what the notice says
  };

  Shown now() const;
  std::string file_of_run() const;

  const Window& logger_;
  const Window& notice_;
  Terminal& terminal_;
  Shown shown_;
};

}  // namespace halden
