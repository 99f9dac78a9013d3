#include "platform/qt/core/qt_files.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStorageInfo>
#include <QString>
#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <system_error>

namespace halden {

namespace {

#ifdef _WIN32
constexpr int quota_exceeded = 1295;  // ERROR_DISK_QUOTA_EXCEEDED
#else
constexpr int quota_exceeded = EDQUOT;
#endif

// Not QFileInfo::exists, which is false also for a file that the user has no right to see.
bool is_missing(const QFileInfo& info) {
  std::error_code why;
  const std::filesystem::path path(info.filePath().toStdU16String());
  return std::filesystem::status(path, why).type() == std::filesystem::file_type::not_found;
}

// Qt does not keep the cause of a failed open; these functions determine it afterwards.
FileFailure cause_of_failed_read(const QFileInfo& info) {
  if (is_missing(info)) return FileFailure::not_found;
  if (!info.exists()) return FileFailure::forbidden;
  return info.isFile() && !info.isReadable() ? FileFailure::forbidden : FileFailure::failed;
}

// Qt has no error of its own for this, but keeps the system's text.
bool is_over_quota(const QFileDevice& file) { return file.errorString() == qt_error_string(quota_exceeded); }

FileFailure cause_of_failed_open(const QFileDevice& file) {
  if (is_over_quota(file)) return FileFailure::over_quota;
  const QFileInfo info(file.fileName());
  const QFileInfo folder(info.absolutePath());
  if (!folder.isDir()) return FileFailure::not_found;
  if (info.exists() && !info.isFile()) return FileFailure::not_a_file;
  if (QStorageInfo(folder.absoluteFilePath()).isReadOnly()) return FileFailure::read_only;
  const bool allowed = info.exists() ? info.isWritable() : folder.isWritable();
  return allowed ? FileFailure::failed : FileFailure::forbidden;
}

FileFailure cause_of_failed_write(const QFileDevice& file) {
  if (is_over_quota(file)) return FileFailure::over_quota;
  return file.error() == QFileDevice::ResourceError ? FileFailure::disk_full : FileFailure::failed;
}

// On a full disk the first write is cut short and only the next one reports the cause; the failure may also
// appear only in the flush.
bool write_all(QFileDevice& file, std::string_view bytes) {
  while (!bytes.empty()) {
    const qint64 written = file.write(bytes.data(), static_cast<qint64>(bytes.size()));
    if (written <= 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return file.flush();
}

// Unbuffered, so that the bytes are copied only once.
class QtFileReader : public FileReader {
 public:
  explicit QtFileReader(const std::string& path) : file_(QString::fromStdString(path)) {}

  bool open() { return file_.open(QIODevice::ReadOnly | QIODevice::Unbuffered); }
  std::uint64_t length() const override { return length_; }
  std::optional<std::size_t> read(char* target, std::size_t count) override;

 private:
  QFile file_;
  std::uint64_t length_ = static_cast<std::uint64_t>(file_.size());
};

std::optional<std::size_t> QtFileReader::read(char* target, std::size_t count) {
  const qint64 got = file_.read(target, static_cast<qint64>(count));
  if (got < 0) return std::nullopt;
  return static_cast<std::size_t>(got);
}

// Unbuffered, for the same reason, and so that a failure is known at once.
class QtFileWriter : public FileWriter {
 public:
  explicit QtFileWriter(std::string path)
      : path_(std::move(path)), part_(QString::fromStdString(path_ + std::string(part_suffix))) {}

  ~QtFileWriter() override {
    if (part_.isOpen()) part_.remove();
  }
  QtFileWriter(const QtFileWriter&) = delete;
  QtFileWriter& operator=(const QtFileWriter&) = delete;

  FileFailure open();
  FileFailure write(std::string_view bytes) override {
    return write_all(part_, bytes) ? FileFailure::none : cause_of_failed_write(part_);
  }
  FileFailure finish() override;

 private:
  std::string path_;
  QFile part_;
};

FileFailure QtFileWriter::open() {
  for (const QFileInfo& info : {QFileInfo(QString::fromStdString(path_)), QFileInfo(part_)})
    if (info.exists() && !info.isFile()) return FileFailure::not_a_file;
  if (part_.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Unbuffered))
    return FileFailure::none;
  return cause_of_failed_open(part_);
}

// Not QFile::rename, which refuses to replace a file.
FileFailure QtFileWriter::finish() {
  part_.close();
  std::error_code why;
  if (part_.error() == QFileDevice::NoError)
    std::filesystem::rename(part_.fileName().toStdU16String(), QString::fromStdString(path_).toStdU16String(),
                            why);
  if (part_.error() == QFileDevice::NoError && !why) return FileFailure::none;
  part_.remove();
  return FileFailure::failed;
}

}  // namespace

bool QtFiles::exists(const std::string& path) { return QFileInfo::exists(QString::fromStdString(path)); }

FilePiece QtFiles::read(const std::string& path, std::uint64_t offset, std::size_t max_bytes) {
  QFile file(QString::fromStdString(path));
  const QFileInfo info(file);
  if (!info.isFile() || !file.open(QIODevice::ReadOnly)) return {cause_of_failed_read(info), {}};
  const auto size = static_cast<std::uint64_t>(file.size());
  if (offset >= size) return {};
  const auto wanted = static_cast<std::size_t>(std::min<std::uint64_t>(max_bytes, size - offset));
  std::string bytes(wanted, '\0');
  if (!file.seek(static_cast<qint64>(offset))) return {FileFailure::failed, {}};
  const qint64 got = file.read(bytes.data(), static_cast<qint64>(wanted));
  if (got < 0) return {FileFailure::failed, {}};
  bytes.resize(static_cast<std::size_t>(got));
  return {FileFailure::none, std::move(bytes)};
}

OpenedFile QtFiles::open(const std::string& path) {
  const QFileInfo info(QString::fromStdString(path));
  auto reader = std::make_unique<QtFileReader>(path);
  if (!info.isFile() || !reader->open()) return {cause_of_failed_read(info)};
  return {FileFailure::none, std::move(reader)};
}

// Unbuffered: bytes that a failed write left in a buffer would be written again by close, after the file
// was truncated.
FileFailure QtFiles::append(const std::string& path, std::string_view bytes) {
  QFile file(QString::fromStdString(path));
  const QFileInfo info(file);
  if (info.exists() && !info.isFile()) return FileFailure::not_a_file;
  if (!file.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Unbuffered))
    return cause_of_failed_open(file);
  const qint64 old_size = file.size();
  if (write_all(file, bytes)) return FileFailure::none;
  const FileFailure failure = cause_of_failed_write(file);
  if (file.size() != old_size) file.resize(old_size);
  return failure;
}

// commit() writes the bytes to the disk before it renames, but does not notice a full disk; write_all does.
// Without commit() the new file is removed.
FileFailure QtFiles::replace(const std::string& path, std::string_view bytes) {
  QSaveFile file(QString::fromStdString(path));
  if (!file.open(QIODevice::WriteOnly)) return cause_of_failed_open(file);
  if (!write_all(file, bytes)) return cause_of_failed_write(file);
  return file.commit() ? FileFailure::none : FileFailure::failed;
}

CreatedFile QtFiles::create(const std::string& path) {
  auto writer = std::make_unique<QtFileWriter>(path);
  if (const FileFailure failure = writer->open(); failure != FileFailure::none) return {failure};
  return {FileFailure::none, std::move(writer)};
}

FileFailure QtFiles::remove(const std::string& path) {
  QFile file(QString::fromStdString(path));
  if (file.remove() || !QFileInfo::exists(file.fileName())) return FileFailure::none;
  const QFileInfo folder(QFileInfo(file).absolutePath());
  if (QStorageInfo(folder.absoluteFilePath()).isReadOnly()) return FileFailure::read_only;
  return folder.isWritable() ? FileFailure::failed : FileFailure::forbidden;
}

FileFailure QtFiles::rename(const std::string& path, const std::string& new_path) {
  QFile file(QString::fromStdString(path));
  if (!file.exists()) return FileFailure::not_found;
  if (file.rename(QString::fromStdString(new_path))) return FileFailure::none;
  return QFileInfo(QFileInfo(file).absolutePath()).isWritable() ? FileFailure::failed
                                                                : FileFailure::forbidden;
}

std::optional<std::uint64_t> QtFiles::length(const std::string& path) {
  const QFileInfo info(QString::fromStdString(path));
  if (!info.isFile()) return std::nullopt;
  return static_cast<std::uint64_t>(info.size());
}

}  // namespace halden
