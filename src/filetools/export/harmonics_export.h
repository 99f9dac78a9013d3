// The rows of a harmonics file, live or downloaded: the values of the input, and the orders as percentages or
// as angles, under the numbers that the record's range gives them ("50 to 100": H50_percent to H100_percent).
#pragma once

#include <array>
#include <cstddef>
#include <string_view>
#include <vector>

#include "filetools/export/wave_columns.h"
#include "formats/wave_reader.h"

namespace halden {

class HarmonicsExport : public ExportedKind {
 public:
  LineMeaning take(std::string_view line) override;
  void note_columns() override;
  std::vector<ValueColumn> columns() override;
  std::string_view date_in(std::string_view) const override { return line_.date; }
  std::string_view time_in(std::string_view) const override { return line_.time; }
  void add_values(std::string_view line, ValueRow& row) override;

 private:
  // The orders that some record has; none when the end is 0.
  struct Orders {
    std::size_t begin = 0, end = 0;
  };

  InputUnit unit() const;
  std::size_t option() const { return settings_.option == 'D' ? 1 : 0; }
  std::size_t first_order() const { return static_cast<std::size_t>(line_.first_order.value_or(0)); }

  WaveSettings settings_;
  HarmonicsLine line_;  // the one taken last
  WaveColumns summary_;
  std::array<Orders, 2> orders_;  // as percentages, as angles
  std::vector<std::size_t> places_;
};

}  // namespace halden
