// A day of recording, held against what the meter itself wrote down that it sent.
#include "program_test_base.h"

namespace halden {
namespace {

constexpr double day_s = 86400;
constexpr std::size_t sampling_time_s = 2;
constexpr std::size_t record_length = 418 + 2;
constexpr std::size_t v1_field = 5 * 11;  // behind DATE, TIME and the three line voltages

// One frame as the meter sent it: when it was asked for, and its three voltages as they are recorded.
struct Sent {
  double time_s;
  std::string voltages;
};

// "V2=  2298" in a group of 53 characters is 229.8V.
std::string recorded_voltages(const std::string& frame) {
  std::string fields;
  for (std::size_t group = 0; group < 3; ++group)
    fields += "    " + frame.substr(53 * group + 5, 3) + "." + frame.substr(53 * group + 8, 1) + "V,";
  return fields;
}

int seconds_of(const std::string& record) {
  return std::stoi(record.substr(13, 2)) * 3600 + std::stoi(record.substr(16, 2)) * 60 +
         std::stoi(record.substr(19, 2));
}

TEST(DayOfRecording, OneRecordPerSamplingInstantAndNoneDoubled) {
  constexpr double start_of_day_s = 12 * 3600;
  Journey journey(start_of_day_s);
  std::vector<Sent> ledger;
  journey.meter.on_frame = [&](double time_s, const std::string& frame) {
    ledger.push_back({time_s, recorded_voltages(frame)});
  };
  journey.start_on_port(1);
  journey.world.run_for(5);
  journey.world.dialogs.file_answers = {"d/day.csv"};
  journey.click("FileName");
  const std::size_t header = journey.world.files.contents["d/day.csv"].size();
  journey.click("auto_record");
  ledger.clear();
  journey.world.run_for(day_s);
  journey.click("FileStop");

  const std::string& bytes = journey.world.files.contents["d/day.csv"];
  const std::size_t records = (bytes.size() - header) / record_length;
  ASSERT_EQ((bytes.size() - header) % record_length, 0u);
  ASSERT_EQ(records, 43'200u);
  EXPECT_NEAR(static_cast<double>(ledger.size()), day_s * 4, 10) << "every quarter of a second";

  // The frame of a record is the one that had come in when the first reading after the instant was complete:
  // asked for at most half a second before it. No frame serves two records.
  std::size_t next = 0;
  int first_s = 0;
  for (std::size_t k = 0; k < records; ++k) {
    const std::string record = bytes.substr(header + k * record_length, record_length - 2);
    const int of_day_s = seconds_of(record);
    if (k == 0) first_s = of_day_s;
    const double instant_s = first_s + static_cast<double>(k * sampling_time_s);
    ASSERT_EQ(of_day_s, instant_s < day_s ? instant_s : instant_s - day_s) << record;
    ASSERT_EQ(record.substr(0, 11), instant_s < day_s ? "11-22-2026," : "11-23-2026,") << record;
    const auto holds = [&record](const Sent& frame) {
      return record.compare(v1_field, frame.voltages.size(), frame.voltages) == 0;
    };
    while (next < ledger.size() && ledger[next].time_s < instant_s - start_of_day_s - 0.5) ++next;
    while (next < ledger.size() && !holds(ledger[next])) ++next;
    ASSERT_LT(next, ledger.size()) << "no frame holds " << record;
    ASSERT_LT(ledger[next].time_s, instant_s - start_of_day_s + 0.5) << record;
    ++next;
  }
}

}  // namespace
}  // namespace halden
