#include "formats/power_file.h"

#include <array>
#include <span>
#include <string_view>
#include <vector>

#include "formats/record_field.h"
#include "screen/panels.h"

namespace halden {

namespace {

using Panels = std::vector<std::string_view>;

// Columns that stand together. The names carry their own, partly uneven spacing, which belongs to the format.
struct ColumnGroup {
  std::string_view names;
  Panels panels;
};

const ColumnGroup date_and_time = {"      DATE,      TIME,", {}};

const Panels system_power = {"W_sys_value",  "VA_sys_value",  "VAR_sys_value",  "PF_sys_value",
                             "WH_sys_value", "VAH_sys_value", "VARH_sys_value", "PFH_sys_value"};

const ColumnGroup system_of_3p4w = {
    "     W_SYS,    VA_SYS,   VAR_SYS,    PF_SYS,    WH_SYS,   VAH_SYS,  VARH_SYS,   PFH_SYS,", system_power};
const ColumnGroup system_of_others = {
    "     W_SYS,    VA_SYS,   VAR_SYS,    PF_SYS,     WH_SYS,  VAH_SYS,  VARH_SYS,   PFH_SYS,", system_power};

const ColumnGroup demand = {"     W(AD),    VA(AD),     W(MD),    VA(MD)",
                            {"W_AD_value", "VA_AD_value", "W_MD_value", "VA_MD_value"}};

const std::vector<ColumnGroup> columns_of_1p2w = {date_and_time,
                                                  {"        V1,        I1,", {"V1_value", "I1_value"}},
                                                  {"    Phase1,", {"Phase1_value"}},
                                                  system_of_others,
                                                  demand};

const std::vector<ColumnGroup> columns_of_1p3w = {
    date_and_time,
    {"        V1,        V2,        I1,        I2,         P1,       P2, '",
     {"V1_value", "V2_value", "I1_value", "I2_value", "W1_value", "W2_value"}},
    {"        S1,        S2,        Q1,        Q2,", {"VA1_value", "VA2_value", "VAR1_value", "VAR2_value"}},
    {"       PF1,       PF2,    Phase1,    Phase2,",
     {"PF1_value", "PF2_value", "Phase1_value", "Phase2_value"}},
    system_of_others,
    demand};

const std::vector<ColumnGroup> columns_of_3p3w = {
    date_and_time,
    {"       V12,       V23,       V31,        I1,         I2,       I3,",
     {"V12_value", "V23_value", "V31_value", "I1_value", "I2_value", "I3_value"}},
    system_of_others,
    demand};

const std::vector<ColumnGroup> columns_of_3p4w = {
    date_and_time,
    {"       V12,       V23,       V31,        V1,        V2,        V3,",
     {"V12_value", "V23_value", "V31_value", "V1_value", "V2_value", "V3_value"}},
    {"        I1,        I2,        I3,        P1,        P2,        P3,",
     {"I1_value", "I2_value", "I3_value", "W1_value", "W2_value", "W3_value"}},
    {"        S1,        S2,        S3,        Q1,        Q2,        Q3,",
     {"VA1_value", "VA2_value", "VA3_value", "VAR1_value", "VAR2_value", "VAR3_value"}},
    {"       PF1,       PF2,       PF3,    Phase1,    Phase2,    Phase3,",
     {"PF1_value", "PF2_value", "PF3_value", "Phase1_value", "Phase2_value", "Phase3_value"}},
    system_of_3p4w,
    demand};

std::span<const ColumnGroup> columns_of(std::int16_t wiring_system) {
  const std::array<std::span<const ColumnGroup>, 4> all = {columns_of_1p2w, columns_of_1p3w, columns_of_3p3w,
                                                           columns_of_3p4w};
  if (wiring_system < 0 || wiring_system >= static_cast<int>(all.size())) return {};
  return all[static_cast<std::size_t>(wiring_system)];
}

}  // namespace

std::string power_column_line(std::int16_t wiring_system) {
  std::string line;
  for (const ColumnGroup& group : columns_of(wiring_system)) line += group.names;
  return line;
}

std::string power_record(std::int16_t wiring_system, const Date& date, const Window& meter_rec) {
  const std::span<const ColumnGroup> columns = columns_of(wiring_system);
  if (columns.empty()) return {};
  std::string record = record_field(record_date(date)) + record_field(meter_rec[sample_clock_label].text);
  for (const ColumnGroup& group : columns)
    for (const std::string_view panel : group.panels) record += record_field(meter_rec[panel].text);
  return record;
}

}  // namespace halden
