// Lets the program end cleanly when it is interrupted from a terminal or told to end by the system.
#pragma once

#include <QObject>
#include <functional>

namespace halden {

// Calls `ended` from the event loop after SIGINT, SIGTERM or SIGHUP. Only one at a time. Where such signals
// do not exist it does nothing.
class SignalWatch : public QObject {
 public:
  explicit SignalWatch(std::function<void()> ended);
  ~SignalWatch() override;

 private:
  std::function<void()> ended_;
};

}  // namespace halden
