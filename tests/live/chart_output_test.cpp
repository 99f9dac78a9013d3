// The buttons that copy and save the chart: where it goes, and what the status line says.

#include "live/chart_output.h"

#include <gtest/gtest.h>

#include <memory>

#include "chart/chart.h"
#include "platform/virtual/scripted_port.h"
#include "platform/virtual/virtual_world.h"
#include "screen/meter_rec/main_window.h"

namespace halden {
namespace {

struct ChartOutputTest : testing::Test {
  void click(const char* button) {
    window.set_visible(button, true);
    window.click(button);
  }
  const std::string& hint() { return window["status_hint"].text; }

  VirtualWorld world;
  ScriptedPort port{world};
  Window window = make_main_window();
  LinkState link;
  ChartOutput output{world.platform(port), link, window};
};

TEST_F(ChartOutputTest, NothingIsCopiedOrAskedBeforeThereIsAChart) {
  for (const char* button : {"chart_copy", "chart_copy_points", "chart_save"}) click(button);
  EXPECT_EQ(world.pictures.copied_charts + static_cast<int>(world.dialogs.file_questions.size()), 0);
  EXPECT_EQ(hint(), "");
}

TEST_F(ChartOutputTest, TheChartGoesToTheClipboardAndIntoAFile) {
  Chart chart;
  chart.sets = {{make_points({0, 100, 2.3}), "V1", 0}};
  chart.labels = texts_by([](std::size_t order) { return std::to_string(order); });
  window.set_chart("Harmo_Graph1", std::make_shared<const Chart>(chart));
  click("chart_copy");
  EXPECT_EQ(world.pictures.copied_charts, 1);
  click("chart_copy_points");
  EXPECT_EQ(world.pictures.copied_text, "0\t0\n1\t100\n2\t2.3\n");
  click("chart_save");  // cancelled
  EXPECT_EQ(hint(), "The points are on the clipboard.");
  world.dialogs.file_answers = {"a.svg", "b.png"};
  click("chart_save");
  EXPECT_EQ(hint(), "The picture was saved as a.svg.");
  world.pictures.failure = FileFailure::disk_full;
  link.language = Language::chinese;
  click("chart_save");
  EXPECT_EQ(hint(), "圖片無法儲存（磁碟已滿）。");
  EXPECT_EQ(world.pictures.saved, (std::vector<std::string>{"a.svg", "b.png"}));
}

}  // namespace
}  // namespace halden
