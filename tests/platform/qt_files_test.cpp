#include "platform/qt/core/qt_files.h"

#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <QDir>
#include <QTemporaryDir>
#include <cerrno>
#include <csignal>

#include "in_child.h"

// Replaces the function of the system for Qt as well.
static int write_errno = 0;  // how every write fails; 0 for not at all

extern "C" ssize_t write(int file, const void* bytes, size_t size) {
  if (write_errno == 0) return syscall(SYS_write, file, bytes, size);
  errno = write_errno;
  return -1;
}

namespace halden {
namespace {

// In a process in which nothing may grow beyond 1000 bytes: a disk that fills up in the middle of a write.
template <typename Operation>
FileFailure on_small_disk(Operation operation) {
  return run_in_child([&] {
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit = {1000, 1000};
    return setrlimit(RLIMIT_FSIZE, &limit) == 0 ? operation() : FileFailure::none;
  });
}

class QtFilesTest : public testing::Test {
 protected:
  std::string path(const char* name) const { return folder_.filePath(QString::fromUtf8(name)).toStdString(); }
  std::string content(const std::string& path) { return files_.read(path, 0, 1000000).bytes; }
  qsizetype files_in_folder() const {
    return QDir(folder_.path()).entryList(QDir::Files | QDir::Hidden).size();
  }

  QTemporaryDir folder_;
  QtFiles files_;
};

TEST_F(QtFilesTest, AppendsReadsPiecesReplacesAndRemovesUnderAnyName) {
  const std::string file = path("電力  紀錄.csv");
  EXPECT_FALSE(files_.exists(file));
  EXPECT_EQ(files_.length(file), std::nullopt);
  EXPECT_EQ(files_.append(file, "line 1\r\n"), FileFailure::none);
  EXPECT_EQ(files_.append(file, std::string_view("\0\x80\xFF\n", 4)), FileFailure::none);
  EXPECT_TRUE(files_.exists(file));
  EXPECT_EQ(files_.length(file), 12u);
  const std::tuple<std::uint64_t, std::size_t, std::string> rows[] = {
      {0, 4, "line"},       {6, 6, std::string("\r\n\0\x80\xFF\n", 6)},
      {10, 4, "\xFF\n"},    {3, 0, ""},
      {11, SIZE_MAX, "\n"}, {UINT64_MAX, SIZE_MAX, ""}};
  for (const auto& [offset, max_bytes, bytes] : rows) {
    const FilePiece piece = files_.read(file, offset, max_bytes);
    EXPECT_EQ(piece.failure, FileFailure::none) << offset;
    EXPECT_EQ(piece.bytes, bytes) << offset;
  }
  EXPECT_EQ(files_.replace(file, "new"), FileFailure::none);
  EXPECT_EQ(content(file), "new");
  EXPECT_EQ(files_in_folder(), 1);
  for (int time = 0; time < 2; ++time) EXPECT_EQ(files_.remove(file), FileFailure::none);
  EXPECT_FALSE(files_.exists(file));
}

// What another program appends meanwhile does not count; a pipe would wait for ever for somebody to write.
TEST_F(QtFilesTest, AnOpenFileIsReadFromItsBeginningToItsEnd) {
  const std::string file = path("電力.csv");
  files_.append(file, "line 1\r\nline 2");
  const OpenedFile opened = files_.open(file);
  ASSERT_TRUE(opened.reader);
  files_.append(file, "!");
  EXPECT_EQ(opened.reader->length(), 14u);
  std::string bytes(10, '?');
  EXPECT_EQ(opened.reader->read(bytes.data(), 10), 10u);
  EXPECT_EQ(bytes, "line 1\r\nli");
  EXPECT_EQ(opened.reader->read(bytes.data(), 10), 5u);
  EXPECT_EQ(bytes.substr(0, 5), "ne 2!");
  EXPECT_EQ(opened.reader->read(bytes.data(), 10), 0u);
  EXPECT_EQ(files_.open(path("missing")).failure, FileFailure::not_found);
  ASSERT_EQ(mkfifo(path("pipe").c_str(), 0600), 0);
  for (const std::string& other : {path("pipe"), path(".")}) EXPECT_FALSE(files_.open(other).reader) << other;
}

TEST_F(QtFilesTest, AFullDiskLeavesTheFileAsItWas) {
  const std::string old(500, 'a');
  ASSERT_EQ(files_.append(path("data.csv"), old), FileFailure::none);
  const std::string more(2000, 'b');
  const std::string much_more(100000, 'b');
  for (const std::string& bytes : {more, much_more}) {
    EXPECT_NE(on_small_disk([&] { return files_.append(path("data.csv"), bytes); }), FileFailure::none);
    EXPECT_NE(on_small_disk([&] { return files_.replace(path("data.csv"), bytes); }), FileFailure::none);
    EXPECT_EQ(content(path("data.csv")), old);
    EXPECT_EQ(files_in_folder(), 1);
  }
  EXPECT_EQ(files_.append(path("data.csv"), "c"), FileFailure::none);
  EXPECT_EQ(content(path("data.csv")), old + "c");
}

TEST_F(QtFilesTest, AFileInPiecesAppearsOnlyWhenItIsWhole) {
  ASSERT_EQ(files_.append(path("電力.csv"), "earlier"), FileFailure::none);
  for (const bool finished : {false, true}) {
    const CreatedFile created = files_.create(path("電力.csv"));
    ASSERT_TRUE(created.writer);
    for (const char* piece : {"one ", "two"}) EXPECT_EQ(created.writer->write(piece), FileFailure::none);
    EXPECT_EQ(content(path("電力.csv.part")), "one two");
    EXPECT_EQ(content(path("電力.csv")), "earlier");
    EXPECT_TRUE(!finished || created.writer->finish() == FileFailure::none);
  }
  EXPECT_EQ(content(path("電力.csv")), "one two");
  EXPECT_NE(on_small_disk([&] {
              const CreatedFile created = files_.create(path("small.csv"));
              return created.writer->write(std::string(2000, 'b'));
            }),
            FileFailure::none);
  EXPECT_EQ(files_in_folder(), 1);
  EXPECT_EQ(files_.create(path("no/file")).failure, FileFailure::not_found);
  QDir(folder_.path()).mkdir(QStringLiteral("folder"));
  for (const std::string& name : {path("folder"), std::string("/dev/full")})
    EXPECT_EQ(files_.create(name).failure, FileFailure::not_a_file) << name;
}

// A device, a pipe without a reader: a write would wait, or leave the line to the meter disturbed.
TEST_F(QtFilesTest, WritesFailWithTheirCauseAndOnlyIntoFiles) {
  const std::pair<int, FileFailure> rows[] = {
      {ENOSPC, FileFailure::disk_full}, {EDQUOT, FileFailure::over_quota}, {EIO, FileFailure::failed}};
  for (const auto& [number, failure] : rows) {
    write_errno = number;
    EXPECT_EQ(files_.append(path("new"), "1"), failure) << number;
    EXPECT_EQ(files_.replace(path("new"), "1"), failure) << number;
  }
  write_errno = 0;
  ASSERT_EQ(mkfifo(path("fifo").c_str(), 0600), 0);
  for (const std::string& name : {path("fifo"), std::string("/dev/full")})
    EXPECT_EQ(files_.append(name, "1"), FileFailure::not_a_file) << name;
}

// In a mount namespace of its own, where the system allows that.
TEST_F(QtFilesTest, AReadOnlyDiskIsNoQuestionOfPermission) {
  const auto on_read_only_disk = [&](auto operation) {
    return run_in_child([&] {
      const std::string folder = folder_.path().toStdString();
      constexpr unsigned long again = MS_REMOUNT | MS_BIND | MS_RDONLY;
      const bool mounted = unshare(CLONE_NEWUSER | CLONE_NEWNS) == 0 &&
                           mount(folder.c_str(), folder.c_str(), nullptr, MS_BIND, nullptr) == 0 &&
                           mount(nullptr, folder.c_str(), nullptr, again, nullptr) == 0;
      return mounted ? operation() : FileFailure::none;
    });
  };
  ASSERT_EQ(files_.append(path("old"), "1"), FileFailure::none);
  const FileFailure appended = on_read_only_disk([&] { return files_.append(path("old"), "2"); });
  if (appended == FileFailure::none) GTEST_SKIP() << "no mount namespaces here";
  EXPECT_EQ(appended, FileFailure::read_only);
  EXPECT_EQ(on_read_only_disk([&] { return files_.replace(path("new"), "2"); }), FileFailure::read_only);
  EXPECT_EQ(on_read_only_disk([&] { return files_.remove(path("old")); }), FileFailure::read_only);
  EXPECT_EQ(content(path("old")), "1");
}

// What is there but may not be looked at is not missing: a file of the same name must not be begun anew.
TEST_F(QtFilesTest, FailuresNameTheirCause) {
  using enum FileFailure;
  const std::string folder = folder_.path().toStdString();
  const auto set_modes = [&](mode_t inside, mode_t around) {
    for (const char* name : {"closed", "data"}) EXPECT_EQ(chmod(path(name).c_str(), inside), 0);
    EXPECT_EQ(chmod(folder.c_str(), around), 0);
  };
  QDir(folder_.path()).mkdir(QStringLiteral("closed"));
  for (const char* file : {"closed/file", "data"}) ASSERT_EQ(files_.append(path(file), "1"), none) << file;
  ASSERT_EQ(mkfifo(path("fifo").c_str(), 0600), 0);
  ASSERT_EQ(symlink("loop", path("loop").c_str()), 0);
  set_modes(0, 0555);
  const struct {
    std::string file;
    FileFailure read, append, replace;
  } rows[] = {{path("data"), forbidden, forbidden, forbidden},
              {path("closed/file"), forbidden, forbidden, forbidden},
              {path("new"), not_found, forbidden, forbidden},
              {path("no/file"), not_found, not_found, not_found},
              {path("loop"), forbidden, forbidden, forbidden},
              {path(std::string(300, 'n').c_str()), forbidden, forbidden, forbidden},
              {folder, failed, not_a_file, not_a_file}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.file);
    EXPECT_EQ(run_unprivileged([&] { return files_.read(row.file, 0, 1).failure; }), row.read);
    EXPECT_EQ(run_unprivileged([&] { return files_.append(row.file, "2"); }), row.append);
    EXPECT_EQ(run_unprivileged([&] { return files_.replace(row.file, "2"); }), row.replace);
  }
  EXPECT_EQ(run_unprivileged([&] { return files_.remove(path("data")); }), forbidden);
  EXPECT_EQ(run_unprivileged([&] { return files_.remove(folder); }), failed);
  EXPECT_EQ(files_.read(path("fifo"), 0, 1).failure, failed);
  EXPECT_EQ(files_.length(folder), std::nullopt);
  set_modes(0755, 0755);
  EXPECT_EQ(content(path("data")), "1");
}

}  // namespace
}  // namespace halden
