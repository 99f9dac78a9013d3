// Files dropped on a window, and the list of files opened last, in virtual time.
#include <gtest/gtest.h>

#include "program_test_base.h"

namespace halden {
namespace {

struct StoredFilesTest : testing::Test, Journey {
  const std::string hardcopy = "2009-05-12 15:30:00\r\n00129\r\n";
  const std::string record =
      "1P2W,CT=1\r\nDATE\r\n" + repeated("03-15-2024,") + "\r\n" + repeated("    230.1V,");

  static std::string repeated(const std::string& field) {
    std::string line;
    for (int column = 0; column < 17; ++column) line += field;
    return line + "\r\n";
  }
  void drop(const std::string& path, const std::string& on = "MeterRec") { window(on).dropped({path}); }
  std::string shown() const {
    std::string names;
    for (const Window* window : started->shared.windows.all())
      if (window->visible()) names += window->name() + " ";
    return names;
  }
  const std::string& kept() { return world.files.contents["work/recent.txt"]; }
};

TEST_F(StoredFilesTest, ADroppedFileOpensInTheWindowOfItsKindAndIsOfferedAgain) {
  world.files.contents = {{"d/a & b.csv", "\xEF\xBB\xBF" + record}, {"d/c.txt", hardcopy}};
  start_on_port(1);
  EXPECT_FALSE(window()["recent_files"].enabled);
  drop("d/a & b.csv");
  EXPECT_EQ(shown(), "MeterRec PlotFile ");
  drop("d/c.txt", "PlotFile");
  EXPECT_EQ(shown(), "MeterRec PlotFile HC_window ");
  EXPECT_EQ(kept(), "power d/a & b.csv\r\nhardcopy d/c.txt\r\n");
  EXPECT_EQ(text("recent_power_0"), "&1 a && b.csv");
  EXPECT_EQ(window()["recent_power_0"].tooltip, "d/a & b.csv");
  EXPECT_FALSE(window()["recent_power_1"].visible);
  EXPECT_FALSE(window()["recent_waveform"].enabled);

  window("HC_window").closed();
  start();  // the next run
  click("recent_hardcopy_0");
  EXPECT_EQ(shown(), "MeterRec HC_window ");
  EXPECT_EQ(window("HC_window")["HC_date_label"].text, "2009-05-12 15:30:00");
}

TEST_F(StoredFilesTest, TheLastTenOfAKindAreKept) {
  for (int k = 0; k < 12; ++k) world.files.contents["d/" + std::to_string(k) + ".txt"] = hardcopy;
  world.files.contents["work/recent.txt"] = "hardcopy d/gone.txt\r\npower\r\nsongs d/x\n\nhardcopy d/3.txt";
  start_on_port(1);
  EXPECT_EQ(text("recent_hardcopy_1"), "&2 3.txt");
  for (int k = 0; k < 12; ++k) drop("d/" + std::to_string(k) + ".txt");
  drop("d/5.txt");
  EXPECT_EQ(text("recent_hardcopy_0") + "|" + text("recent_hardcopy_1") + "|" + text("recent_hardcopy_9"),
            "&1 5.txt|&2 11.txt|1&0 2.txt");
  world.files.contents.erase("d/2.txt");
  click("recent_hardcopy_9");
  EXPECT_EQ(world.dialogs.message_texts(), std::vector<std::string>{"File not found"});
  EXPECT_EQ(text("recent_hardcopy_0"), "&1 5.txt") << "what could not be opened is not the newest";
  world.files.write_failure = FileFailure::disk_full;
  drop("d/7.txt");
  EXPECT_EQ(text("recent_hardcopy_0"), "&1 7.txt");
}

}  // namespace
}  // namespace halden
