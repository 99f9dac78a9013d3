#include "live/phasors/phasors.h"

#include <gtest/gtest.h>

#include "live/phasors/phasor_form.h"
#include "live/phasors/unbalance.h"
#include "screen/meter_rec/main_window.h"

namespace halden {
namespace {

TEST(Phasors, OwnAtanKnowsAllFourQuadrants) {
  const struct {
    double x, y, tenths;
  } directions[] = {{1, 0, 0},       {1, 1, 450},   {0, 2, 900},   {-1, 1, 1350}, {-3, 0, 1800},
                    {-1, -1, -1350}, {0, -2, -900}, {1, -1, -450}, {0, 0, 0}};
  for (const auto& to : directions)
    EXPECT_NEAR(static_cast<double>(own_atan(to.x, to.y)), to.tenths, 0.003) << to.x << ", " << to.y;
}

TEST(Phasors, AnglesAreCountedFromV1AndBroughtIntoRangeOnce) {
  PowerReadings raw;
  raw.v_angle = {100, 1300, -1100};
  raw.i_angle = {400, -1800, 1900};
  const PhasorAngles angles = calculate_vi_angles(raw);
  EXPECT_EQ(angles.v_phasor_angle, (PerPhase<double>{0, -1200, 1200}));
  EXPECT_EQ(angles.i_phasor_angle, (PerPhase<double>{-300, -1700, -1800})) << "exactly -1800 stays";
}

struct Supply : testing::Test {
  // The unbalance texts and the neutral values, with V2 and V3 at -120 and 120 degrees.
  std::string shown(PerPhase<double> v, PerPhase<std::optional<std::int32_t>> lines, PerPhase<double> i) {
    raw.v_raw = v;
    raw.line_raw = lines;
    raw.i_raw = i;
    raw.v_angle = {0, 1200, -1200};
    raw.i_angle = {0, 1200, -1200};
    angles = calculate_vi_angles(raw);
    calculate_unbalance(raw, angles, scaling, meter_rec, form);
    std::string texts;
    for (const Panel& panel : unbalance_panels()) texts += meter_rec[panel.value].text + "|";
    return texts + form["Vn_value"].text + "|" + form["In_value"].text;
  }

  const Scaling scaling{1, 1, 1.0F, 1};
  PowerReadings raw;
  PhasorAngles angles;
  Window meter_rec = make_main_window();
  Window form = make_phasor_form();
};

// 230, 220 and 210 V at 0, -120 and 120 degrees:
//   V12 = sqrt(230^2 + 220^2 + 230 x 220) = 389.7, V23 = 372.4, V31 = 381.1 (cut); their mean is 381.067,
//   the largest deviation 8.667, VUR = 2.27 %
//   sum: 230 - 110 - 105 = 15.0 and (210 - 220) x 0.8660 = -8.66, together 17.32 V; S1 = 660 V, d0 = 2.62 %;
//   S2 mirrors the sum, so d2 is the same
//   V1 - V2 = 340 + 190.53i at 29.26 degrees; V2 - V3 = -5 - 372.39i at -90.77; V3 - V1 = -335 + 181.87i at
//   151.50
// Raw currents 100, 99 and 102.5: their mean of 100.5 is a tie that goes to the even 100, IUR = 2.5 / 100;
//   sum 100 - 49.5 - 51.25 = -0.75 and (102.5 - 99) x 0.8660 = 3.031, together 3.12; 3.12 / 301.5 = 1.04 %
TEST_F(Supply, AnUnbalancedOneWorkedOutOnPaper) {
  EXPECT_EQ(shown({2300, 2200, 2100}, {3897, 3724, 3811}, {100, 99, 102.5}),
            "2.27%|2.62%|2.62%|2.50%|1.04%|1.04%|017.3V|0.003A");
  EXPECT_NEAR(static_cast<double>(angles.v12_phasor_angle), 292.6, 0.1);
  EXPECT_NEAR(static_cast<double>(angles.v23_phasor_angle), -907.7, 0.1);
  EXPECT_EQ(angles.v31_phasor_angle, 1515);
}

TEST_F(Supply, BalancedDeadAndOneSided) {
  EXPECT_EQ(shown({2300, 2300, 2300}, {3983, 3983, 3983}, {5000, 5000, 5000}),
            "0.00%|0.00%|0.00%|0.00%|0.00%|0.00%|000.0V|0.000A");
  EXPECT_EQ(shown({0, 0, 0}, {0, 0, 0}, {0, 0, 0}), "OL %|OL %|OL %|OL %|OL %|OL %|000.0V|0.000A");
  // One phase alone: all three components are equal, and the mean deviation is twice the mean.
  EXPECT_EQ(shown({2300, 0, 0}, {2300, 0, 2300}, {5000, 0, 0}),
            "OL %|OL %|OL %|OL %|OL %|OL %|230.0V|5.000A");
  // A phase over range: what it enters has no figure.
  EXPECT_EQ(shown({-1, 2300, 2300}, {std::nullopt, 3983, std::nullopt}, {-1, 5000, 5000}),
            "OL %|OL %|OL %|OL %|OL %|OL %|  OL |  OL ");
}

}  // namespace
}  // namespace halden
