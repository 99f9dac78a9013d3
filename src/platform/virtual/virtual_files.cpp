#include "platform/virtual/virtual_files.h"

#include <utility>

namespace halden {

namespace {

class VirtualFileReader : public FileReader {
 public:
  explicit VirtualFileReader(std::string bytes) : bytes_(std::move(bytes)) {}

  std::uint64_t length() const override { return bytes_.size(); }
  std::optional<std::size_t> read(char* target, std::size_t count) override {
    const std::size_t copied = bytes_.copy(target, count, at_);
    at_ += copied;
    return copied;
  }

 private:
  std::string bytes_;
  std::size_t at_ = 0;
};

class VirtualFileWriter : public FileWriter {
 public:
  VirtualFileWriter(VirtualFiles& files, std::string path)
      : files_(files), path_(std::move(path)), part_(path_ + std::string(part_suffix)) {
    files_.contents[part_].clear();
  }
  ~VirtualFileWriter() override { files_.contents.erase(part_); }
  VirtualFileWriter(const VirtualFileWriter&) = delete;
  VirtualFileWriter& operator=(const VirtualFileWriter&) = delete;

  FileFailure write(std::string_view bytes) override { return files_.append(part_, bytes); }
  FileFailure finish() override {
    if (files_.write_failure != FileFailure::none) return files_.write_failure;
    files_.contents[path_] = std::move(files_.contents[part_]);
    return FileFailure::none;
  }

 private:
  VirtualFiles& files_;
  std::string path_, part_;
};

}  // namespace

FilePiece VirtualFiles::read(const std::string& path, std::uint64_t offset, std::size_t max_bytes) {
  if (const auto failing = read_failures.find(path); failing != read_failures.end())
    return {failing->second, {}};
  const auto found = contents.find(path);
  if (found == contents.end()) return {FileFailure::not_found, {}};
  if (offset >= found->second.size()) return {};
  return {FileFailure::none, found->second.substr(static_cast<std::size_t>(offset), max_bytes)};
}

OpenedFile VirtualFiles::open(const std::string& path) {
  if (const auto failing = read_failures.find(path); failing != read_failures.end()) return {failing->second};
  const auto found = contents.find(path);
  if (found == contents.end()) return {FileFailure::not_found};
  return {FileFailure::none, std::make_unique<VirtualFileReader>(found->second)};
}

FileFailure VirtualFiles::append(const std::string& path, std::string_view bytes) {
  if (const FileFailure why = why_not_writable(path); why != FileFailure::none) return why;
  if (free_bytes) {
    if (bytes.size() > *free_bytes) return FileFailure::disk_full;
    *free_bytes -= bytes.size();
  }
  contents[path] += bytes;
  return FileFailure::none;
}

FileFailure VirtualFiles::replace(const std::string& path, std::string_view bytes) {
  if (const FileFailure why = why_not_writable(path); why != FileFailure::none) return why;
  contents[path] = bytes;
  return FileFailure::none;
}

CreatedFile VirtualFiles::create(const std::string& path) {
  if (const FileFailure why = why_not_writable(path); why != FileFailure::none) return {why};
  return {FileFailure::none, std::make_unique<VirtualFileWriter>(*this, path)};
}

FileFailure VirtualFiles::remove(const std::string& path) {
  if (const FileFailure why = why_not_writable(path); why != FileFailure::none) return why;
  contents.erase(path);
  return FileFailure::none;
}

FileFailure VirtualFiles::rename(const std::string& path, const std::string& new_path) {
  if (const FileFailure why = why_not_writable(path); why != FileFailure::none) return why;
  if (contents.count(path) == 0) return FileFailure::not_found;
  if (contents.count(new_path) > 0) return FileFailure::failed;
  contents[new_path] = std::move(contents[path]);
  contents.erase(path);
  return FileFailure::none;
}

std::optional<std::uint64_t> VirtualFiles::length(const std::string& path) {
  const auto found = contents.find(path);
  if (found == contents.end()) return std::nullopt;
  return found->second.size();
}

FileFailure VirtualFiles::why_not_writable(const std::string& path) const {
  for (const auto& [beginning, failure] : folder_failures)
    if (path.starts_with(beginning)) return failure;
  return write_failure;
}

}  // namespace halden
