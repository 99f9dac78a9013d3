// A folder of a test's own, gone with all that is in it at the end of the test.
#pragma once

#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

namespace halden {

class TempFolder {
 public:
  TempFolder() : path_(std::filesystem::temp_directory_path() / "halden_XXXXXX") {
    if (::mkdtemp(path_.data()) == nullptr) throw std::runtime_error("no temporary folder");
  }
  ~TempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;

  const std::string& path() const { return path_; }
  std::string operator/(const std::string& name) const { return path_ + "/" + name; }

  void write(const std::string& name, const std::string& bytes) const {
    std::ofstream(*this / name, std::ios::binary) << bytes;
  }

  // Empty when there is no such file.
  std::string read(const std::string& name) const {
    std::ifstream file(*this / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

 private:
  std::string path_;
};

}  // namespace halden
