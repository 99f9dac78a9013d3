#include "filetools/reading_progress.h"

#include <gtest/gtest.h>

#include "platform/virtual/virtual_world.h"

namespace halden {
namespace {

TEST(ReadingProgress, ShowsItselfWhenItTakesLongAndEndsAtCancel) {
  VirtualWorld world;
  Window window("P_Harmo");
  for (const char* name : {"text", "bar", "cancel"}) {
    window.add(name, {});
    window.set_visible(name, false);
  }
  ReadingProgress reading(world.clock, window, {"text", "bar", "cancel"}, 0.5);
  reading.begin();
  const FileProgress progress = reading.progress();
  EXPECT_TRUE(reading.runs() && progress(1, 4));
  EXPECT_FALSE(window["bar"].visible) << "it may be over soon";
  world.run_for(0.6);
  EXPECT_TRUE(progress(3, 4) && window["cancel"].visible);
  EXPECT_EQ(window["bar"].value, 750);
  world.user_does(0, [&window] { window.press("cancel"); });
  world.run_for(0.2);
  EXPECT_FALSE(progress(4, 4));
  reading.end();
  EXPECT_FALSE(reading.runs() || window["bar"].visible);
}

}  // namespace
}  // namespace halden
