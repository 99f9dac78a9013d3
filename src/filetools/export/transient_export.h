// The rows of an event file, one an event.
//
//   TODAY: 03-02-2009
//   START RECORDING:2009-02-28 23:50:10
//   REF=220.0V ,SD%=10%
//          NO.,EVENT TIME,      DATE,      TIME,    CYCLES, CONDITIONS
//            1,  00:00:15,2009-03-01,     00:05,     00120,      2(LO)
//
// The event time counts from the start of recording in days, hours and minutes; a row has it in seconds.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "filetools/export/exported_kind.h"

namespace halden {

inline constexpr std::string_view transient_file_start = "TODAY:";

class TransientExport : public ExportedKind {
 public:
  std::size_t header_lines() const override { return 4; }
  LineMeaning take(std::string_view line) override;
  void note_columns() override {}
  std::vector<ValueColumn> columns() override;
  std::string_view date_in(std::string_view line) const override;
  std::string_view time_in(std::string_view line) const override;
  void add_values(std::string_view line, ValueRow& row) override;

 private:
  std::string reference_, deviation_;  // of the header: "220.0V", "10%"
};

}  // namespace halden
