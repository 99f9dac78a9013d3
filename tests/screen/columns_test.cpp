#include "screen/columns.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "screen/main_window.h"

namespace halden {
namespace {

// Designer left positions of the five header columns, in 1/1440 inch (15 to the pixel).
constexpr float p1 = 54 * 15, p2 = 184 * 15, p3 = 314 * 15, p4 = 586 * 15, p5 = 741 * 15;

const std::vector<std::string> movable = {"V12", "V23", "V31", "V1", "V2", "V3", "I1", "I2", "I3"};
const std::vector<std::string> unbalance = {"VUR", "d0_v", "d2_v", "IUR", "d0_i", "d2_i"};

struct Item {
  std::string label, value;
};

std::vector<Item> column_items() {
  std::vector<Item> items;
  for (const std::string& stem : movable) items.push_back({stem + "_label", stem + "_value"});
  for (const std::string phase : {"1", "2", "3"}) {
    items.push_back({"P" + phase + "_label", "W" + phase + "_value"});
    items.push_back({"S" + phase + "_label", "VA" + phase + "_value"});
    items.push_back({"Q" + phase + "_label", "VAR" + phase + "_value"});
    items.push_back({"PF" + phase + "_label", "PF" + phase + "_value"});
    items.push_back({"Phase" + phase + "_label", "Phase" + phase + "_value"});
  }
  for (const std::string& stem : unbalance) items.push_back({stem + "_label", stem + "_value"});
  return items;
}

std::set<std::string> visible_values(const Window& window) {
  std::set<std::string> visible;
  for (const Item& item : column_items()) {
    EXPECT_EQ(window[item.label].visible, window[item.value].visible) << item.value;
    if (window[item.value].visible) visible.insert(item.value);
  }
  return visible;
}

struct ColumnsTest : testing::Test {
  Screen screen;
  const LabelColumns lefts = read_label_columns(screen.meter_rec);
  const Window& window = screen.meter_rec;

  float left_of(const std::string& stem) {
    EXPECT_EQ(window[stem + "_label"].left, window[stem + "_value"].left) << stem;
    return window[stem + "_value"].left;
  }
};

TEST_F(ColumnsTest, HeadersStandWhereTheyWereDesigned) {
  EXPECT_EQ(lefts, (LabelColumns{p1, p2, p3, p4, p5}));
}

TEST_F(ColumnsTest, OnePhaseTwoWiresShowsVoltageCurrentAndAngleOfPhaseOne) {
  arrange_for_system(0, screen.meter_rec, lefts);
  EXPECT_EQ(visible_values(window), (std::set<std::string>{"V1_value", "I1_value", "Phase1_value"}));
  EXPECT_EQ(left_of("V1"), p4);
  EXPECT_EQ(left_of("I1"), p5);
}

TEST_F(ColumnsTest, OnePhaseThreeWiresShowsTwoPhases) {
  arrange_for_system(0, screen.meter_rec, lefts);
  arrange_for_system(1, screen.meter_rec, lefts);
  EXPECT_EQ(visible_values(window),
            (std::set<std::string>{"V1_value", "V2_value", "I1_value", "I2_value", "W1_value", "W2_value",
                                   "VA1_value", "VA2_value", "VAR1_value", "VAR2_value", "PF1_value",
                                   "PF2_value", "Phase1_value", "Phase2_value"}));
  EXPECT_EQ(left_of("V1"), p2);
  EXPECT_EQ(left_of("I1"), p3);
  EXPECT_EQ(left_of("I2"), p3);
}

TEST_F(ColumnsTest, ThreePhaseThreeWiresMovesLineVoltagesToTheApparentPowerColumn) {
  arrange_for_system(2, screen.meter_rec, lefts);
  EXPECT_EQ(visible_values(window),
            (std::set<std::string>{"V12_value", "V23_value", "V31_value", "I1_value", "I2_value", "I3_value",
                                   "VUR_value", "d0_v_value", "d2_v_value", "IUR_value", "d0_i_value",
                                   "d2_i_value"}));
  for (const std::string stem : {"V12", "V23", "V31"}) EXPECT_EQ(left_of(stem), p4) << stem;
  for (const std::string stem : {"I1", "I2", "I3"}) EXPECT_EQ(left_of(stem), p5) << stem;
  EXPECT_EQ(window["V12_value"].width, window["VA1_value"].width) << "as wide as the column it stands in";
}

TEST_F(ColumnsTest, ComingBackToFourWiresRestoresTheDesign) {
  for (const int system : {0, 1, 2, 3}) arrange_for_system(system, screen.meter_rec, lefts);
  EXPECT_EQ(visible_values(window).size(), column_items().size());
  const Screen designed;
  for (const Item& item : column_items()) {
    EXPECT_EQ(window[item.value].left, designed.meter_rec[item.value].left) << item.value;
    EXPECT_EQ(window[item.value].width, designed.meter_rec[item.value].width) << item.value;
  }
}

// Moving V1 does not move V2 and V3; items that are not named keep the place an earlier wiring system gave
// them.
TEST_F(ColumnsTest, RowsMoveIndependently) {
  arrange_for_system(2, screen.meter_rec, lefts);
  arrange_for_system(1, screen.meter_rec, lefts);
  EXPECT_EQ(left_of("V2"), p2);
  EXPECT_EQ(left_of("I3"), p5) << "not moved by 1P3W";
  EXPECT_EQ(left_of("V12"), p4) << "not moved by 1P3W";
  arrange_for_system(0, screen.meter_rec, lefts);
  EXPECT_EQ(left_of("V2"), p2);
  EXPECT_EQ(left_of("I2"), p3) << "not moved by 1P2W";
}

TEST_F(ColumnsTest, AnUnknownSystemCountsAsOnePhaseTwoWires) {
  for (const int system : {-1, 4, 99}) {
    arrange_for_system(system, screen.meter_rec, lefts);
    EXPECT_EQ(visible_values(window), (std::set<std::string>{"V1_value", "I1_value", "Phase1_value"}))
        << system;
  }
}

}  // namespace
}  // namespace halden
