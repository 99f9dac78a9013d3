// Dialogs for a run without a user, such as taking a picture: every message goes to the terminal and is
// answered at once, every question with no.
#pragma once

#include <optional>
#include <string>

#include "platform/dialogs.h"

namespace halden {

class UnattendedDialogs : public Dialogs {
 public:
  void message(const Message& message) override;
  bool confirm(const Message& question) override;
  void tell(const Message& message) override;
  std::string input(const std::string& prompt, const std::string& title, const std::string& initial) override;
  std::optional<std::string> open_file(const FileQuestion& question) override;
  std::optional<std::string> save_file(const FileQuestion& question) override;
};

}  // namespace halden
