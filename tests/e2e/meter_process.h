// halden-meter in a folder of its own, with its device under the name `port()`.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "process.h"
#include "temp_folder.h"

namespace halden {

class MeterProcess {
 public:
  explicit MeterProcess(std::vector<std::string> options = {})
      : port_(folder_ / "meter"), process_(with_link(std::move(options), port_)) {
    EXPECT_TRUE(process_.read_line()) << "the meter does not start";
  }

  const std::string& port() const { return port_; }
  const TempFolder& folder() const { return folder_; }

  // The answer to one line of the meter's console.
  std::string command(const std::string& line) {
    process_.write_line(line);
    return process_.read_line().value_or("no answer");
  }

  // The next line that the meter says by itself.
  std::string announcement() { return process_.read_line().value_or("nothing"); }

  // Every displayed digit of this load is worked out by hand (current range 1, all ratios 1):
  //   VA1 = 2301 x 12340 \ 10000 = 2839        VAR1 = sqrt(2839^2 - 2781^2) - 0.5 = 570.4 -> 570
  //   VA2 = 2298 x 11870 \ 10000 = 2727        VAR2 = sqrt(2727^2 - 2655^2) - 0.5 = 622.0 -> 622
  //   VA3 = 2306 x 13020 \ 10000 = 3002        VAR3 = sqrt(3002^2 - 2902^2) - 0.5 = 767.9 -> 768
  //   PF1 = 10005 x 2781 / 2839 \ 10 = 980     PF2 = 974     PF3 = 967
  //   W = 8338, VAR = -1960 (the currents lag), VA = sqrt(8338^2 + 1960^2) = 8565.3, PF = 974
  //   V12 = sqrt(2301^2 + 2298^2 + 2301 x 2298) - 0.5 = 3982.3, V23 = 3986.7, V31 = 3989.3
  void fix_worked_load() {
    for (const char* raw : {"raw 1 2301 12340 2781 0 116", "raw 2 2298 11870 2655 1200 1332",
                            "raw 3 2306 13020 2902 -1200 -1052"})
      EXPECT_EQ(command(raw), "ok") << raw;
  }

 private:
  static std::vector<std::string> with_link(std::vector<std::string> options, const std::string& link) {
    options.insert(options.begin(), {"halden-meter", "--link", link});
    return options;
  }

  TempFolder folder_;
  std::string port_;
  Process process_;
};

// The worked load as haldenctl prints it in JSON, from "V1_value" to "PF_sys_value".
inline constexpr const char* worked_load_json =
    R"("V1_value":"230.1V","I1_value":"12.34A","W1_value":"2.781KW","VA1_value":"2.839KVA",)"
    R"("VAR1_value":"-0.570KVAR","PF1_value":"0.98","Phase1_value":"-011.6",)"
    R"("V2_value":"229.8V","I2_value":"11.87A","W2_value":"2.655KW","VA2_value":"2.727KVA",)"
    R"("VAR2_value":"-0.622KVAR","PF2_value":"0.97","Phase2_value":"-013.2",)"
    R"("V3_value":"230.6V","I3_value":"13.02A","W3_value":"2.902KW","VA3_value":"3.002KVA",)"
    R"("VAR3_value":"-0.768KVAR","PF3_value":"0.96","Phase3_value":"-014.8",)"
    R"("V12_value":"398.2V","V23_value":"398.7V","V31_value":"398.9V",)"
    R"("W_sys_value":"8.338KW","VA_sys_value":"8.565KVA","VAR_sys_value":"-1.960KVAR","PF_sys_value":"0.97",)";

}  // namespace halden
