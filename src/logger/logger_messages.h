// What the datalogger says in boxes. While all stored files are downloaded nobody may be there to answer, so
// the boxes do not wait then and their texts are kept for the end of the run.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "link/link_state.h"
#include "platform/dialogs.h"

namespace halden {

class LoggerMessages {
 public:
  // Both outlive this.
  LoggerMessages(Dialogs& dialogs, const LinkState& link) : dialogs_(dialogs), link_(link) {}

  void say(std::string_view text, Icon icon = Icon::none) {
    const Message message{std::string(text), "", icon};
    if (link_.logger_active == 0) return dialogs_.message(message);
    dialogs_.tell(message);
    told_.push_back(message.text);
  }

  // The texts of a run since the last call, in order.
  std::vector<std::string> take_told() { return std::exchange(told_, {}); }

 private:
  Dialogs& dialogs_;
  const LinkState& link_;
  std::vector<std::string> told_;
};

}  // namespace halden
