// Date and time of a record in the one form that every program reads the same, ISO 8601:
// "2024-03-15T12:30:44".
#pragma once

#include <string>
#include <string_view>

#include "filetools/export/export_options.h"

namespace halden {

class IsoTime {
 public:
  // `order` is that of dates with the year at their end ("03-15-2024"). A year at the beginning settles it.
  explicit IsoTime(DateOrder order) : order_(order) {}

  // Empty when the order is not known, or date or time do not exist. A time may lack its seconds. Valid until
  // the next call.
  std::string_view of(std::string_view date, std::string_view time);

 private:
  DateOrder order_;
  std::string date_;      // the last one, as given
  std::string iso_date_;  // the same in ISO form
  std::string text_;
};

}  // namespace halden
