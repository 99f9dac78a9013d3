#include "app/configuration.h"

namespace halden {

namespace {

constexpr const char* language_file = "language.pha";
constexpr const char* port_file = "commport.dat";
constexpr const char* recent_file = "recent.txt";
constexpr std::size_t longest_line = 64;  // the text is shown in a message box; the file may hold anything

}  // namespace

bool is_configuration_file(std::string_view path) {
  const std::string_view name = path.substr(path.find_last_of('/') + 1);
  return name == language_file || name == port_file || name == recent_file;
}

std::string recent_files_path(const std::string& work_folder) { return work_folder + "/" + recent_file; }

std::optional<std::string> Configuration::first_line(const char* name) const {
  const FilePiece piece = files_.read(path(name), 0, longest_line);
  if (piece.failure == FileFailure::not_found) return std::nullopt;
  return piece.bytes.substr(0, piece.bytes.find_first_of(std::string_view("\r\n\0", 3)));
}

Language Configuration::read_language() const {
  const std::optional<std::string> line = first_line(language_file);
  return line && line->starts_with('1') ? Language::chinese : Language::english;
}

std::optional<std::string> Configuration::read_port() const {
  const std::optional<std::string> line = first_line(port_file);
  if (!line) return std::nullopt;
  const std::size_t begin = line->find_first_not_of(" \t");
  if (begin == std::string::npos) return std::string();
  return line->substr(begin, line->find_last_not_of(" \t") - begin + 1);
}

bool Configuration::write_language(Language language) {
  const std::string_view line = language == Language::chinese ? "1\r\n" : "0\r\n";
  return files_.replace(path(language_file), line) == FileFailure::none;
}

bool Configuration::write_port(int number) {
  return files_.replace(path(port_file), std::to_string(number) + "\r\n") == FileFailure::none;
}

std::string_view not_kept_hint(bool kept, Language language) {
  constexpr Text not_kept = {"The choice could not be kept: the working folder cannot be written.",
                             "無法寫入工作資料夾，此選擇未能保存。"};
  return kept ? std::string_view() : not_kept.in(language);
}

}  // namespace halden
