#include "cli/set_command.h"

#include <nlohmann/json.hpp>

#include "../scenario/companion_test_base.h"
#include "noted_terminal.h"

namespace halden {
namespace {

TEST(SetCommand, KnowsItsNames) {
  EXPECT_EQ(parse_setting("ct=40")->value, "40");
  EXPECT_EQ(parse_setting("hz=")->name, "hz");
  for (const char* wrong : {"ct", "CT=1", "kv=1", "=1", "ct=12345678901"})
    EXPECT_FALSE(parse_setting(wrong)) << wrong;
}

TEST(SetCommand, SendsInOrderAndTellsWhatTheMeterHolds) {
  struct Case {
    std::vector<TypedSetting> settings;
    std::string ended;
  };
  const std::vector<Case> cases = {
      {{{"ct", "040"}, {"pt", "7"}, {"md", "30"}, {"sec", "4"}, {"hz", "auto"}}, "done"},
      {{{"sec", "3"}}, "Sampling time must be an even number (2, 4, 6, ...), please re-enter !"},
      {{{"ct", "0"}, {"pt", "9"}}, "The meter did not take ct=0; it holds 40."}};
  Journey journey;
  journey.start(1);
  for (const Case& one : cases) {
    NotedTerminal terminal;
    journey.world.dialogs.messages.clear();
    const auto last_message = [&] {
      const auto& messages = journey.world.dialogs.messages;
      return messages.empty() ? std::string() : messages.back().text;
    };
    send_settings(*journey.companion, one.settings, Format::text, last_message, terminal);
    EXPECT_EQ(terminal.ended, one.ended);
    if (one.ended == "done") {
      EXPECT_EQ(terminal.printed[0], "ct=40\npt=7\nmd=30\nsec=4\nhz=Auto\n");
    }
  }
  EXPECT_EQ(journey.meter.settings().pt_ratio, 7) << "nothing is sent after a failure";
}

}  // namespace
}  // namespace halden
