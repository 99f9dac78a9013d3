#include "formats/power_file.h"

#include <array>
#include <span>
#include <vector>

#include "formats/record_field.h"

namespace halden {

namespace {

using enum PowerQuantity;
using Quantities = std::vector<PowerQuantity>;

// Adjacent columns. The uneven spacing of the names is part of the format.
struct ColumnGroup {
  std::string_view names;
  Quantities quantities;
};

const ColumnGroup date_and_time = {"      DATE,      TIME,", {}};

const Quantities system_power = {W_SYS, VA_SYS, VAR_SYS, PF_SYS, WH_SYS, VAH_SYS, VARH_SYS, PFH_SYS};

const ColumnGroup system_of_3p4w = {
    "     W_SYS,    VA_SYS,   VAR_SYS,    PF_SYS,    WH_SYS,   VAH_SYS,  VARH_SYS,   PFH_SYS,", system_power};
const ColumnGroup system_of_others = {
    "     W_SYS,    VA_SYS,   VAR_SYS,    PF_SYS,     WH_SYS,  VAH_SYS,  VARH_SYS,   PFH_SYS,", system_power};

const ColumnGroup demand = {"     W(AD),    VA(AD),     W(MD),    VA(MD)", {W_AD, VA_AD, W_MD, VA_MD}};

// In the order of the wiring systems.
const std::array<std::vector<ColumnGroup>, 4> all_columns = {
    {{date_and_time,
      {"        V1,        I1,", {V1, I1}},
      {"    Phase1,", {Phase1}},
      system_of_others,
      demand},
     {date_and_time,
      {"        V1,        V2,        I1,        I2,         P1,       P2, '", {V1, V2, I1, I2, P1, P2}},
      {"        S1,        S2,        Q1,        Q2,", {S1, S2, Q1, Q2}},
      {"       PF1,       PF2,    Phase1,    Phase2,", {PF1, PF2, Phase1, Phase2}},
      system_of_others,
      demand},
     {date_and_time,
      {"       V12,       V23,       V31,        I1,         I2,       I3,", {V12, V23, V31, I1, I2, I3}},
      system_of_others,
      demand},
     {date_and_time,
      {"       V12,       V23,       V31,        V1,        V2,        V3,", {V12, V23, V31, V1, V2, V3}},
      {"        I1,        I2,        I3,        P1,        P2,        P3,", {I1, I2, I3, P1, P2, P3}},
      {"        S1,        S2,        S3,        Q1,        Q2,        Q3,", {S1, S2, S3, Q1, Q2, Q3}},
      {"       PF1,       PF2,       PF3,    Phase1,    Phase2,    Phase3,",
       {PF1, PF2, PF3, Phase1, Phase2, Phase3}},
      system_of_3p4w,
      demand}}};

std::span<const ColumnGroup> columns_of(Wiring wiring_system) {
  if (!is_known(wiring_system)) return {};
  return all_columns[table_index(wiring_system)];
}

}  // namespace

std::optional<std::size_t> power_column(Wiring wiring_system, PowerQuantity quantity) {
  std::size_t column = 0;
  for (const ColumnGroup& group : columns_of(wiring_system))
    for (const PowerQuantity stored : group.quantities) {
      if (stored == quantity) return column;
      ++column;
    }
  return std::nullopt;
}

std::string power_column_line(Wiring wiring_system) {
  std::string line;
  for (const ColumnGroup& group : columns_of(wiring_system)) line += group.names;
  return line;
}

RecordLine power_record(Wiring wiring_system, std::string_view date, std::string_view time,
                        const PowerTexts& texts) {
  const std::span<const ColumnGroup> columns = columns_of(wiring_system);
  if (columns.empty()) return {};
  RecordLine record = {record_field(date) + record_field(time)};
  record.text.reserve((power_quantity_count + 2) * (field_text_length + 1));
  for (const ColumnGroup& group : columns)
    for (const PowerQuantity quantity : group.quantities) {
      const std::string_view text = texts[static_cast<std::size_t>(quantity)];
      record.text += record_field(text);
      record.sign_cut = record.sign_cut || loses_sign(text);
    }
  return record;
}

}  // namespace halden
