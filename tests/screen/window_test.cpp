#include "screen/window.h"

#include <gtest/gtest.h>

namespace halden {
namespace {

struct WindowTest : testing::Test {
  WindowTest() {
    for (const char* name : {"panel", "list"}) window.add(name, {});
  }

  // Whether the step counts as a change.
  template <typename Step>
  bool changes(Step step) {
    const std::uint64_t before = window.revision();
    step();
    return window.revision() != before;
  }

  Window window{"Sample"};
};

TEST_F(WindowTest, OnlyADifferenceIsAChange) {
  for (const bool first : {true, false}) {
    EXPECT_EQ(changes([&] { window.set_text("panel", "230.1V"); }), first);
    EXPECT_EQ(changes([&] { window.set_place("panel", {15, 0, 30, 0}); }), first);
    EXPECT_EQ(changes([&] { window.set_enabled("panel", false); }), first);
    EXPECT_EQ(changes([&] { window.set_caption("Sample"); }), first);
  }
  EXPECT_FALSE(changes([&] { EXPECT_EQ(window["panel"].text, "230.1V"); })) << "reading is none";
  window.show();
  EXPECT_TRUE(changes([&] { window.show(); })) << "a window shown again comes to the front";
}

// The same entries in a new list are a change: nobody looks into the 100,000 of them.
TEST_F(WindowTest, ListsAreComparedByTheirPointer) {
  const auto entries = std::make_shared<const Lines>(Lines(100'000, "V1"));
  EXPECT_TRUE(changes([&] { window.set_lines("list", entries); }));
  EXPECT_FALSE(changes([&] { window.set_lines("list", entries); }));
  EXPECT_TRUE(changes([&] { window.set_lines("list", std::make_shared<const Lines>(*entries)); }));
}

TEST_F(WindowTest, HandlersRunForWhatTheUserCanReach) {
  std::string ran;
  window.click("panel");
  window.closed();  // nothing is connected yet
  window.on_click("panel", [&] { ran += "click "; });
  window.on_change("list", [&] { ran += "change "; });
  window.on_resize([&] { ran += "resize "; });
  window.on_close([&] { ran += "close "; });
  window.click("panel");
  window.set_enabled("panel", false);
  window.click("panel");
  window.set_enabled("panel", true);
  window.set_visible("panel", false);
  window.click("panel");
  window.click("list");
  window.changed("list");
  window.resized();
  window.closed();
  EXPECT_EQ(ran, "click change resize close ");
}

}  // namespace
}  // namespace halden
