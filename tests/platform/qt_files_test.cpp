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

// Nothing may grow beyond 1000 bytes meanwhile: a disk that fills up in the middle of a write.
template <typename Operation>
FileFailure on_small_disk(Operation operation) {
  const auto old_handler = std::signal(SIGXFSZ, SIG_IGN);
  rlimit old_limit = {};
  getrlimit(RLIMIT_FSIZE, &old_limit);
  const rlimit limit = {1000, old_limit.rlim_max};
  setrlimit(RLIMIT_FSIZE, &limit);
  const FileFailure failure = operation();
  setrlimit(RLIMIT_FSIZE, &old_limit);
  std::signal(SIGXFSZ, old_handler);
  return failure;
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

TEST_F(QtFilesTest, ReadsPieces) {
  ASSERT_EQ(files_.append(path("pieces"), "0123456789"), FileFailure::none);
  const std::tuple<std::uint64_t, std::size_t, const char*> rows[] = {{0, 4, "0123"},
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

TEST_F(QtFilesTest, AFullDiskLeavesTheFileAsItWas) {
  EXPECT_EQ(files_.append("/dev/full", "one line\r\n"), FileFailure::disk_full);
  const std::string old(500, 'a');
  ASSERT_EQ(files_.append(path("data.csv"), old), FileFailure::none);
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

// What is there but may not be looked at is not missing: a file of the same name must not be begun anew.
TEST_F(QtFilesTest, FailuresNameTheirCause) {
  const std::string folder = folder_.path().toStdString();
  QDir(folder_.path()).mkdir(QStringLiteral("closed"));
  for (const char* file : {"closed/file", "data"})
    ASSERT_EQ(files_.append(path(file), "1"), FileFailure::none) << file;
  ASSERT_EQ(mkfifo(path("fifo").c_str(), 0600), 0);
  ASSERT_EQ(symlink("loop", path("loop").c_str()), 0);
  for (const char* forbidden : {"closed", "data"}) ASSERT_EQ(chmod(path(forbidden).c_str(), 0), 0);
  ASSERT_EQ(chmod(folder.c_str(), 0555), 0);
  const auto reading = [this](const std::string& file) { return files_.read(file, 0, 1).failure; };
  const std::tuple<const char*, FileFailure, std::function<FileFailure()>> rows[] = {
      {"read", FileFailure::forbidden, [&] { return reading(path("data")); }},
      {"read in closed folder", FileFailure::forbidden, [&] { return reading(path("closed/file")); }},
      {"append", FileFailure::forbidden, [&] { return files_.append(path("data"), "2"); }},
      {"append to new", FileFailure::forbidden, [&] { return files_.append(path("new"), "2"); }},
      {"replace", FileFailure::forbidden, [&] { return files_.replace(path("data"), "2"); }},
      {"replace new", FileFailure::forbidden, [&] { return files_.replace(path("new"), "2"); }},
      {"remove", FileFailure::forbidden, [&] { return files_.remove(path("data")); }},
      {"read missing", FileFailure::not_found, [&] { return reading(path("missing")); }},
      {"read in missing folder", FileFailure::not_found, [&] { return reading(path("missing/file")); }},
      {"read no name", FileFailure::not_found, [&] { return reading(""); }},
      {"append in missing folder", FileFailure::not_found,
       [&] { return files_.append(path("no/file"), "x"); }},
      {"replace in missing folder", FileFailure::not_found,
       [&] { return files_.replace(path("no/file"), "x"); }},
      {"read folder", FileFailure::failed, [&] { return reading(folder); }},
      {"append to folder", FileFailure::failed, [&] { return files_.append(folder, "x"); }},
      {"replace folder", FileFailure::failed, [&] { return files_.replace(folder, "x"); }},
      {"remove folder", FileFailure::failed, [&] { return files_.remove(folder); }}};
  for (const auto& [name, failure, operation] : rows) EXPECT_EQ(run_unprivileged(operation), failure) << name;
  for (const std::string& unreadable : {path("loop"), path(std::string(300, 'n').c_str())})
    EXPECT_NE(reading(unreadable), FileFailure::not_found) << unreadable;
  EXPECT_EQ(reading(path("fifo")), FileFailure::failed);
  EXPECT_EQ(files_.length(folder), std::nullopt);
  ASSERT_EQ(chmod(folder.c_str(), 0755), 0);
  for (const char* forbidden : {"closed", "data"}) ASSERT_EQ(chmod(path(forbidden).c_str(), 0755), 0);
  EXPECT_EQ(content(path("data")), "1");
}

}  // namespace
}  // namespace halden
