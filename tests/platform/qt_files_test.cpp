#include "platform/qt/core/qt_files.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QDir>
#include <QTemporaryDir>
#include <csignal>
#include <functional>

#include "unprivileged.h"

namespace halden {
namespace {

// No file may grow beyond `bytes` while this lives: a disk that fills up in the middle of a write.
class SmallDisk {
 public:
  explicit SmallDisk(rlim_t bytes) : old_handler_(std::signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &old_limit_);
    const rlimit limit = {bytes, old_limit_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  ~SmallDisk() {
    setrlimit(RLIMIT_FSIZE, &old_limit_);
    std::signal(SIGXFSZ, old_handler_);
  }
  SmallDisk(const SmallDisk&) = delete;
  SmallDisk& operator=(const SmallDisk&) = delete;

 private:
  rlimit old_limit_ = {};
  void (*old_handler_)(int);
};

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

TEST_F(QtFilesTest, AppendsReplacesMeasuresAndRemovesUnderAnyName) {
  for (const char* name : {"two  words.csv", "電力 紀錄.csv"}) {
    const std::string file = path(name);
    EXPECT_FALSE(files_.exists(file)) << name;
    EXPECT_EQ(files_.length(file), std::nullopt) << name;
    EXPECT_EQ(files_.append(file, "line 1\r\n"), FileFailure::none) << name;
    EXPECT_EQ(files_.append(file, std::string_view("\0\x80\xFF\n", 4)), FileFailure::none) << name;
    EXPECT_TRUE(files_.exists(file)) << name;
    EXPECT_EQ(files_.length(file), 12u) << name;
    EXPECT_EQ(content(file), std::string("line 1\r\n\0\x80\xFF\n", 12)) << name;
    EXPECT_EQ(files_.replace(file, "new"), FileFailure::none) << name;
    EXPECT_EQ(content(file), "new") << name;
    EXPECT_EQ(files_in_folder(), 1) << name;
    for (int time = 0; time < 2; ++time) EXPECT_EQ(files_.remove(file), FileFailure::none) << name;
    EXPECT_FALSE(files_.exists(file)) << name;
  }
}

TEST_F(QtFilesTest, OnlyWhatIsNotThereIsNotFound) {
  QDir(folder_.path()).mkdir(QStringLiteral("closed"));
  ASSERT_EQ(files_.append(path("closed/file"), "x"), FileFailure::none);
  ASSERT_EQ(files_.append(path("file"), "x"), FileFailure::none);
  ASSERT_EQ(chmod(path("closed").c_str(), 0), 0);
  ASSERT_EQ(chmod(folder_.path().toStdString().c_str(), 0755), 0);
  ASSERT_EQ(symlink("loop", path("loop").c_str()), 0);
  const auto reading = [this](const std::string& path) {
    return run_unprivileged([&] { return files_.read(path, 0, 1).failure; });
  };
  EXPECT_EQ(reading(path("missing")), FileFailure::not_found);
  EXPECT_EQ(reading(path("file")), FileFailure::none);
  EXPECT_EQ(reading(path("closed/file")), FileFailure::forbidden);
  for (const std::string& unreadable : {path("loop"), path(std::string(300, 'n').c_str())})
    EXPECT_NE(reading(unreadable), FileFailure::not_found) << unreadable;
  ASSERT_EQ(chmod(path("closed").c_str(), 0755), 0);
}

TEST_F(QtFilesTest, ReadsPieces) {
  ASSERT_EQ(files_.append(path("pieces"), "0123456789"), FileFailure::none);
  struct Row {
    std::uint64_t offset;
    std::size_t max_bytes;
    const char* bytes;
  };
  const Row rows[] = {{0, 4, "0123"},
                      {4, 4, "4567"},
                      {8, 4, "89"},
                      {11, 4, ""},
                      {3, 0, ""},
                      {9, SIZE_MAX, "9"},
                      {UINT64_MAX, SIZE_MAX, ""}};
  for (const auto& [offset, max_bytes, bytes] : rows) {
    const FilePiece piece = files_.read(path("pieces"), offset, max_bytes);
    EXPECT_EQ(piece.failure, FileFailure::none) << offset;
    EXPECT_EQ(piece.bytes, bytes) << offset;
  }
}

TEST_F(QtFilesTest, WhatIsNotAFileCannotBeReadOrWritten) {
  const std::string folder = folder_.path().toStdString();
  ASSERT_EQ(mkfifo(path("fifo").c_str(), 0600), 0);
  for (const std::string& file : {folder, path("fifo")})
    EXPECT_EQ(files_.read(file, 0, 10).failure, FileFailure::failed) << file;
  EXPECT_EQ(files_.length(folder), std::nullopt);
  EXPECT_EQ(files_.append(folder, "x"), FileFailure::failed);
  EXPECT_EQ(files_.replace(folder, "x"), FileFailure::failed);
  EXPECT_EQ(files_.remove(folder), FileFailure::failed);
  for (const std::string& missing : {path("missing/file"), std::string()})
    EXPECT_EQ(files_.read(missing, 0, 10).failure, FileFailure::not_found) << missing;
  EXPECT_EQ(files_.append(path("missing/file"), "x"), FileFailure::not_found);
  EXPECT_EQ(files_.replace(path("missing/file"), "x"), FileFailure::not_found);
}

TEST_F(QtFilesTest, AFullDiskLeavesTheFileAsItWas) {
  EXPECT_EQ(files_.append("/dev/full", "one line\r\n"), FileFailure::disk_full);
  const std::string old(500, 'a');
  ASSERT_EQ(files_.append(path("data.csv"), old), FileFailure::none);
  const auto on_small_disk = [](auto operation) {
    const SmallDisk disk(1000);
    return operation();
  };
  const std::string more(2000, 'b');
  const std::string much_more(100000, 'b');
  EXPECT_NE(on_small_disk([&] { return files_.append(path("data.csv"), more); }), FileFailure::none);
  EXPECT_EQ(content(path("data.csv")), old);
  for (const std::string& bytes : {more, much_more}) {
    EXPECT_NE(on_small_disk([&] { return files_.replace(path("data.csv"), bytes); }), FileFailure::none);
    EXPECT_EQ(content(path("data.csv")), old);
    EXPECT_EQ(files_in_folder(), 1);
  }
  EXPECT_EQ(files_.append(path("data.csv"), "c"), FileFailure::none);
  EXPECT_EQ(content(path("data.csv")), old + "c");
}

TEST_F(QtFilesTest, WithoutPermissionEverythingIsForbidden) {
  ASSERT_EQ(files_.append(path("data"), "1"), FileFailure::none);
  ASSERT_EQ(chmod(path("data").c_str(), 0), 0);
  ASSERT_EQ(chmod(folder_.path().toUtf8().constData(), 0555), 0);
  const std::pair<const char*, std::function<FileFailure()>> rows[] = {
      {"read", [&] { return files_.read(path("data"), 0, 1).failure; }},
      {"append", [&] { return files_.append(path("data"), "2"); }},
      {"append to new", [&] { return files_.append(path("new"), "2"); }},
      {"replace", [&] { return files_.replace(path("data"), "2"); }},
      {"replace new", [&] { return files_.replace(path("new"), "2"); }},
      {"remove", [&] { return files_.remove(path("data")); }}};
  for (const auto& [name, operation] : rows)
    EXPECT_EQ(run_unprivileged(operation), FileFailure::forbidden) << name;
  ASSERT_EQ(chmod(folder_.path().toUtf8().constData(), 0755), 0);
  ASSERT_EQ(chmod(path("data").c_str(), 0600), 0);
  EXPECT_EQ(content(path("data")), "1");
}

}  // namespace
}  // namespace halden
