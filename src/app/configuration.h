// The files in the working folder that keep the user's choices: language.pha ("0" or "1") and commport.dat
// (the port number in decimal digits), of one line each, and recent.txt (app/recent_files.h).
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "platform/files.h"
#include "screen/language.h"

namespace halden {

// Whether a path is that of one of them.
bool is_configuration_file(std::string_view path);

std::string recent_files_path(const std::string& work_folder);

class Configuration {
 public:
  Configuration(Files& files, std::string work_folder)
      : files_(files), work_folder_(std::move(work_folder)) {}

  // Chinese when language.pha begins with "1"; English for any other character and where it is missing.
  Language read_language() const;

  // The text on the first line of commport.dat without the blanks around it. Nothing when the file is
  // missing; empty when it cannot be read.
  std::optional<std::string> read_port() const;

  // Both replace the file and return whether that succeeded.
  bool write_language(Language language);
  bool write_port(int number);

 private:
  std::string path(const char* name) const { return work_folder_ + "/" + name; }
  std::optional<std::string> first_line(const char* name) const;

  Files& files_;
  std::string work_folder_;
};

// What the status line says when a choice could not be kept; empty when it was.
std::string_view not_kept_hint(bool kept, Language language);

}  // namespace halden
