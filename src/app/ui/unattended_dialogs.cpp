#include "app/ui/unattended_dialogs.h"

#include <cstdio>
#include <optional>
#include <string>

namespace halden {

void UnattendedDialogs::message(const Message& message) {
  std::fprintf(stderr, "%s\n", message.text.c_str());
}

bool UnattendedDialogs::confirm(const Message& question) {
  message(question);
  return false;
}

void UnattendedDialogs::tell(const Message& text) { message(text); }

std::string UnattendedDialogs::input(const std::string&, const std::string&, const std::string&) {
  return {};
}

std::optional<std::string> UnattendedDialogs::open_file(const FileQuestion&) { return std::nullopt; }

std::optional<std::string> UnattendedDialogs::save_file(const FileQuestion&) { return std::nullopt; }

}  // namespace halden
