#include "platform/qt/core/qt_files.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <QDir>
#include <QTemporaryDir>
#include <csignal>

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
  for (const char* name : {"data.csv", "two  words.csv", "電力 紀錄.csv"}) {
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
    EXPECT_EQ(files_.remove(file), FileFailure::none) << name;
    EXPECT_FALSE(files_.exists(file)) << name;
    EXPECT_EQ(files_.remove(file), FileFailure::none) << name;
  }
}

TEST_F(QtFilesTest, ReadsPieces) {
  const std::string file = path("pieces");
  ASSERT_EQ(files_.append(file, "0123456789"), FileFailure::none);
  const struct {
    std::uint64_t offset;
    std::size_t max_bytes;
    std::string bytes;
  } rows[] = {
      {0, 4, "0123"}, {4, 4, "4567"}, {8, 4, "89"},       {10, 4, ""},
      {11, 4, ""},    {3, 0, ""},     {9, SIZE_MAX, "9"}, {UINT64_MAX, SIZE_MAX, ""},
  };
  for (const auto& row : rows) {
    const FilePiece piece = files_.read(file, row.offset, row.max_bytes);
    EXPECT_EQ(piece.failure, FileFailure::none) << row.offset;
    EXPECT_EQ(piece.bytes, row.bytes) << row.offset;
  }
}

TEST_F(QtFilesTest, WhatIsNotAFileCannotBeReadOrWritten) {
  const std::string folder = folder_.path().toStdString();
  ASSERT_EQ(mkfifo(path("fifo").c_str(), 0600), 0);
  EXPECT_EQ(files_.read(path("missing"), 0, 10).failure, FileFailure::not_found);
  EXPECT_EQ(files_.read("", 0, 10).failure, FileFailure::not_found);
  EXPECT_EQ(files_.read(folder, 0, 10).failure, FileFailure::failed);
  EXPECT_EQ(files_.read(path("fifo"), 0, 10).failure, FileFailure::failed);
  EXPECT_EQ(files_.length(folder), std::nullopt);
  EXPECT_EQ(files_.append(folder, "x"), FileFailure::failed);
  EXPECT_EQ(files_.replace(folder, "x"), FileFailure::failed);
  EXPECT_EQ(files_.remove(folder), FileFailure::failed);
  EXPECT_EQ(files_.append(path("missing/file"), "x"), FileFailure::not_found);
  EXPECT_EQ(files_.replace(path("missing/file"), "x"), FileFailure::not_found);
}

TEST_F(QtFilesTest, AFullDiskIsToldAsSuch) {
  EXPECT_EQ(files_.append("/dev/full", "one line\r\n"), FileFailure::disk_full);
}

TEST_F(QtFilesTest, AnAppendThatFailsHalfWayLeavesTheFileAsItWas) {
  const std::string file = path("data.csv");
  const std::string old(500, 'a');
  ASSERT_EQ(files_.append(file, old), FileFailure::none);
  FileFailure failure = FileFailure::none;
  {
    const SmallDisk disk(1000);
    failure = files_.append(file, std::string(2000, 'b'));
  }
  EXPECT_NE(failure, FileFailure::none);
  EXPECT_EQ(content(file), old);
  EXPECT_EQ(files_.append(file, "c"), FileFailure::none);
  EXPECT_EQ(content(file), old + "c");
}

TEST_F(QtFilesTest, AReplacementThatFailsKeepsTheOldContentAndLeavesNothingBehind) {
  const std::string file = path("commport.dat");
  ASSERT_EQ(files_.replace(file, "3\r\n"), FileFailure::none);
  for (const std::size_t size : {10u, 100000u}) {
    FileFailure failure = FileFailure::none;
    {
      const SmallDisk disk(5);
      failure = files_.replace(file, std::string(size, 'b'));
    }
    EXPECT_NE(failure, FileFailure::none) << size;
    EXPECT_EQ(content(file), "3\r\n") << size;
    EXPECT_EQ(files_in_folder(), 1) << size;
  }
}

TEST_F(QtFilesTest, WithoutPermissionEverythingIsForbidden) {
  ASSERT_EQ(files_.append(path("data"), "1"), FileFailure::none);
  ASSERT_EQ(chmod(path("data").c_str(), 0), 0);
  ASSERT_EQ(chmod(folder_.path().toUtf8().constData(), 0555), 0);
  const auto refused = [&](auto operation) { return static_cast<FileFailure>(run_unprivileged(operation)); };
  EXPECT_EQ(refused([&] { return files_.read(path("data"), 0, 1).failure; }), FileFailure::forbidden);
  EXPECT_EQ(refused([&] { return files_.append(path("data"), "2"); }), FileFailure::forbidden);
  EXPECT_EQ(refused([&] { return files_.append(path("new"), "2"); }), FileFailure::forbidden);
  EXPECT_EQ(refused([&] { return files_.replace(path("data"), "2"); }), FileFailure::forbidden);
  EXPECT_EQ(refused([&] { return files_.replace(path("new"), "2"); }), FileFailure::forbidden);
  EXPECT_EQ(refused([&] { return files_.remove(path("data")); }), FileFailure::forbidden);
  ASSERT_EQ(chmod(folder_.path().toUtf8().constData(), 0755), 0);
  ASSERT_EQ(chmod(path("data").c_str(), 0600), 0);
  EXPECT_EQ(content(path("data")), "1");
}

}  // namespace
}  // namespace halden
