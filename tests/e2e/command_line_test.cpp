// What the programs make of their command lines, without a meter.
#include <gtest/gtest.h>

#include <algorithm>

#include "process.h"
#include "temp_folder.h"

namespace halden {
namespace {

const Surroundings no_display{{}, {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}, {}};

std::string shown(const std::vector<std::string>& arguments) {
  std::string line;
  for (const std::string& argument : arguments) line += argument + " ";
  return line;
}

TEST(CommandLine, HelpAndVersionNeedNoDisplay) {
  const std::vector<std::vector<std::string>> questions = {{"halden", "--help"},
                                                           {"halden", "--version"},
                                                           {"haldenctl", "--help"},
                                                           {"haldenctl", "--version"},
                                                           {"haldenctl", "live", "--help"},
                                                           {"haldenctl", "live", "--version"},
                                                           {"haldenctl", "set", "-h"},
                                                           {"haldenctl", "status", "--version"},
                                                           {"halden-meter", "--help"},
                                                           {"halden-meter", "--version"}};
  for (const auto& question : questions) {
    const Ended ended = run_to_end(question, no_display);
    EXPECT_EQ(ended.exit_code, 0) << shown(question);
    EXPECT_EQ(ended.errors, "") << shown(question);
    EXPECT_NE(ended.output.find(question.front()), std::string::npos) << shown(question);
  }
}

TEST(CommandLine, WrongUsage) {
  const std::vector<std::vector<std::string>> mistakes = {
      {"haldenctl"},
      {"haldenctl", "measure"},
      {"haldenctl", "--port", "demo"},
      {"haldenctl", "live"},
      {"haldenctl", "live", "--port"},
      {"haldenctl", "live", "--port", "0"},
      {"haldenctl", "live", "--port", "17"},
      {"haldenctl", "live", "--port", "demo", "--colour"},
      {"haldenctl", "live", "--port", "demo", "--count", "0"},
      {"haldenctl", "live", "--port", "demo", "--count", "many"},
      {"haldenctl", "live", "--port", "demo", "--format", "xml"},
      {"haldenctl", "status", "--port", "demo", "--count", "1"},
      {"haldenctl", "set", "--port", "/dev/null"},
      {"haldenctl", "set", "--port", "/dev/null", "ct=1", "kv=2"},
      {"haldenctl", "set", "--port", "/dev/null", "ct"},
      {"halden", "--com", "17=/dev/null"},
      {"halden", "--com", "1="},
      {"halden", "--nonsense"},
      {"halden", "--workdir", "/not/there"},
      {"halden", "--palette", "green"},
      {"halden", "--after", "soon"},
      {"halden-meter", "--wiring", "4P5W"}};
  for (const auto& mistake : mistakes) {
    const Ended ended = run_to_end(mistake, no_display);
    EXPECT_EQ(ended.exit_code, 2) << shown(mistake);
    EXPECT_EQ(ended.output, "") << shown(mistake);
    EXPECT_NE(ended.errors, "") << shown(mistake);
  }
}

// The configuration of the program with windows has no say here: neither its port nor its language.
TEST(CommandLine, PortsThatDoNotOpen) {
  TempFolder folder;
  folder.write("commport.dat", "9\r\n");
  folder.write("language.pha", "1\r\n");
  folder.write("a file", "text");
  Surroundings there = no_display;
  there.folder = folder.path();
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"./nothing", "./nothing is not there. Is the adapter plugged in?\n"},
      {"./a file", "./a file is not a serial port.\n"},
      {folder.path() + "/", folder.path() + "/ is not a serial port.\n"},
      {"/dev/null", "/dev/null is not a serial port.\n"}};
  for (const char* command : {"status", "live"}) {
    for (const auto& [port, sentence] : cases) {
      const Ended ended = run_to_end({"haldenctl", command, "--port", port}, there);
      EXPECT_EQ(ended.exit_code, 1) << port;
      EXPECT_EQ(ended.output, "") << port;
      EXPECT_EQ(ended.errors, sentence);
    }
  }
}

TEST(CommandLine, TheDemoNeedsNothingAndKeepsNothing) {
  TempFolder folder;
  folder.write("commport.dat", "9\r\n");
  folder.write("language.pha", "1\r\n");
  Surroundings there = no_display;
  there.folder = folder.path();
  const Ended ended = run_to_end({"haldenctl", "status", "--port", "demo"}, there);
  EXPECT_EQ(ended.exit_code, 0);
  EXPECT_EQ(ended.errors, "");
  EXPECT_EQ(ended.output.substr(0, 51), "meter_mode=1\nharmonic_channel=0\nwiring_system=3\nfre");
  EXPECT_EQ(std::count(ended.output.begin(), ended.output.end(), '\n'), 30);
  EXPECT_EQ(folder.read("commport.dat") + folder.read("language.pha"), "9\r\n1\r\n");
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path()), {}), 2);
}

TEST(CommandLine, WindowsNeedADisplay) {
  const Ended ended = run_to_end({"halden", "--demo"}, no_display);
  EXPECT_EQ(ended.exit_code, 1);
  EXPECT_EQ(std::count(ended.errors.begin(), ended.errors.end(), '\n'), 1) << ended.errors;
  EXPECT_NE(ended.errors.find("haldenctl live"), std::string::npos) << ended.errors;
}

}  // namespace
}  // namespace halden
