// A day of recording, held against what the meter itself wrote down that it sent.
#include <array>

#include "companion_test_base.h"

namespace halden {
namespace {

constexpr double day_s = 86400;
constexpr std::size_t sampling_time_s = 2;
constexpr std::size_t record_length = 418 + 2;
constexpr std::size_t v1_field = 5 * 11;  // behind DATE, TIME and the three line voltages

// One frame as the meter sent it: when it was asked for, and its three voltages as they are shown.
struct Sent {
  double time_s;
  std::array<std::string, 3> voltages;
};

// "V2=  2298" in a group of 53 characters is 229.8V.
std::string shown_voltage(const std::string& frame, std::size_t phase) {
  const std::string digits = frame.substr(53 * phase + 5, 4);
  return digits.substr(0, 3) + "." + digits.substr(3) + "V";
}

bool holds(const std::string& record, const Sent& frame) {
  for (std::size_t phase = 0; phase < 3; ++phase)
    if (record.compare(v1_field + 11 * phase, 11, "    " + frame.voltages[phase] + ",") != 0) return false;
  return true;
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
    ledger.push_back({time_s, {shown_voltage(frame, 0), shown_voltage(frame, 1), shown_voltage(frame, 2)}});
  };
  journey.start_on_port(1);
  journey.world.run_for(5);
  journey.world.dialogs.file_answers = {"d/day.csv"};
  journey.companion->click("FileName");
  const std::size_t header = journey.world.files.contents["d/day.csv"].size();
  journey.companion->click("auto_record");
  ledger.clear();
  journey.world.run_for(day_s);
  journey.companion->click("FileStop");

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
    while (next < ledger.size() && ledger[next].time_s < instant_s - start_of_day_s - 0.5) ++next;
    while (next < ledger.size() && !holds(record, ledger[next])) ++next;
    ASSERT_LT(next, ledger.size()) << "no frame holds " << record;
    ASSERT_LT(ledger[next].time_s, instant_s - start_of_day_s + 0.5) << record;
    ++next;
  }
}

}  // namespace
}  // namespace halden
