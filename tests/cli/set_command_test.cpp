#include "cli/set_command.h"

#include <nlohmann/json.hpp>

#include "../scenario/program_test_base.h"
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
  const std::pair<std::vector<TypedSetting>, std::string> rows[] = {
      {{{"ct", "040"}, {"pt", "7"}, {"md", "30"}, {"sec", "4"}, {"hz", "auto"}}, "done"},
      {{{"sec", "3"}}, "Sampling time must be an even number (2, 4, 6, ...), please re-enter !"},
      {{{"ct", "0"}, {"pt", "9"}}, "The meter did not take ct=0; it holds 40."}};
  Journey journey;
  journey.start(1);
  const auto last_message = [&journey] {
    const auto texts = journey.world.dialogs.message_texts();
    return texts.empty() ? std::string() : texts.back();
  };
  std::vector<std::string> printed;
  for (const auto& [settings, ended] : rows) {
    NotedTerminal terminal;
    journey.world.dialogs.messages.clear();
    send_settings(journey.program(), settings, Format::text, last_message, terminal);
    EXPECT_EQ(terminal.ended, ended);
    printed.insert(printed.end(), terminal.printed.begin(), terminal.printed.end());
  }
  EXPECT_EQ(printed, std::vector<std::string>{"ct=40\npt=7\nmd=30\nsec=4\nhz=Auto\n"});
  EXPECT_EQ(journey.meter.settings().pt_ratio, 7) << "nothing is sent after a failure";
}

}  // namespace
}  // namespace halden
