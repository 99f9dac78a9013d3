#include "link/meter_status.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace halden {
namespace {

// The 35 fields of a reply as the meter sends them; a test changes some by their number (1-based).
struct Reply {
  std::vector<std::string> fields = {"00001", "00004", "00003", "00002", "00000", "00100", "00020",
                                     "00010", "00000", "00007", "00000", "00015", "00001", "00005",
                                     "00002", "00001", "00383", "00110", "00040", "00060", "32768",
                                     "00000", "00000", "00001", "00000", "00000", "01536", "00012",
                                     "00014", "00005", "00012", "00009", "00030", "00000", "00003"};

  Reply& set(std::size_t number, std::string text) {
    fields[number - 1] = std::move(text);
    return *this;
  }

  std::string text(std::size_t count = 35) const {
    std::string all;
    for (std::size_t i = 0; i < count; ++i) all += fields[i] + " ";
    return all;
  }
};

TEST(MeterStatusTest, OnlyTheFirstEIsCutWithAllThatStandsBeforeIt) {
  MeterStatus status;
  const std::string frame = "V1=  2301  I1=  1234  B O=00000 E";
  EXPECT_TRUE(read_status_reply(frame + "   " + Reply().text(), status));
  EXPECT_EQ(status.ct_ratio, 20);
  EXPECT_TRUE(read_status_reply(Reply().set(7, "00033").text(), status)) << "no prefix at all";
  EXPECT_EQ(status.ct_ratio, 33);
  EXPECT_TRUE(read_status_reply("E" + Reply().set(7, "E0044").set(6, "00009").text(), status));
  EXPECT_EQ(status.pt_ratio, 9) << "a second E stays";
  EXPECT_EQ(status.ct_ratio, 0) << "a letter where digits belong gives 0";
}

// Our own request comes back from a line with an echo. 12 of 35 fields are more than a third.
TEST(MeterStatusTest, AnEchoIsSkippedAndNoiseIsRefused) {
  MeterStatus status;
  EXPECT_TRUE(read_status_reply(" ? " + Reply().set(7, "00033").text(), status));
  EXPECT_EQ(status.ct_ratio, 33);
  EXPECT_EQ(status.meter_mode, 1) << "the first field is the one behind the echo";
  Reply noise;
  for (std::size_t field = 24; field <= 34; ++field) noise.set(field, "0#0x0");
  EXPECT_TRUE(read_status_reply(noise.set(7, "00044").text(), status)) << "24 numbers of 35";
  EXPECT_EQ(status.ct_ratio, 44);
  EXPECT_FALSE(read_status_reply(noise.set(7, "00055").set(35, "0#0x0").text(), status));
  EXPECT_EQ(status.ct_ratio, 44);
}

TEST(MeterStatusTest, AReplyOf161CharactersIsParsedOneOf160IsNot) {
  // 26 fields of six characters make 156; field 27 as "1536 " makes 161.
  const std::string reply = Reply().text(26) + "1536 ";
  ASSERT_EQ(reply.size(), 161u);
  MeterStatus status;
  status.meter_day = "31";
  status.logger_file_count = 8;
  EXPECT_FALSE(read_status_reply("E " + reply.substr(1), status));
  EXPECT_EQ(status.ct_ratio, 0) << "nothing is taken from a reply that is too short";
  ASSERT_EQ(read_status_reply("E " + reply, status).value().fields, 27);
  EXPECT_EQ(status.ct_ratio, 20);
  EXPECT_FLOAT_EQ(status.current_scale, 1.2F);
  EXPECT_EQ(status.meter_day, "31") << "a missing field leaves its value";
  EXPECT_EQ(status.logger_file_count, 8);
}

TEST(MeterStatusTest, WideValuesAndTornFieldsLeaveWhatWasThere) {
  MeterStatus status;
  status.ct_ratio = 5;
  status.md_period = 30;
  Reply reply;
  reply.set(7, "40000").set(12, "99999999999").set(17, "65791").set(27, "4294968832").set(6, "-00001");
  ASSERT_TRUE(read_status_reply("E" + reply.text(), status));
  EXPECT_EQ(status.ct_ratio, 5);
  EXPECT_EQ(status.md_period, 30);
  EXPECT_EQ(status.pt_ratio, -1);
  EXPECT_EQ(status.logger_current_range, 0) << "65791 is 0x100FF: the low 16 bits have the high byte 0";
  EXPECT_FLOAT_EQ(status.current_scale, 1.2F) << "4294968832 is 0x100000600";
  EXPECT_EQ(status.logger_clamp_flags & 0xC000, 0x8000) << "a bit pattern beyond 32767 keeps its bits";

  const std::string torn = Reply().set(8, "00099").text(34) + "0";
  ASSERT_TRUE(read_status_reply("E" + Reply().text(30) + "0001", status));
  EXPECT_EQ(status.meter_day, "12") << "field 31 lacks its blank, so digits may be missing";
  ASSERT_EQ(read_status_reply("E" + torn, status).value().fields, 35);
}

TEST(MeterStatusTest, ClampFactorComesFromBitsNineAndTen) {
  for (const auto& [flags, factor] : std::vector<std::pair<std::int32_t, float>>{
           {0, 1.0F}, {512, 3.0F}, {1024, 1.0F}, {1536, 1.2F}, {1536 + 255, 1.2F}, {2048, 1.0F}, {-1, 1.2F}})
    EXPECT_FLOAT_EQ(clamp_factor(flags), factor) << flags;
}

}  // namespace
}  // namespace halden
