// The values that several rooms write to.
#pragma once

#include "screen/meter_rec/columns.h"
#include "screen/meter_rec/main_window.h"
#include "screen/windows.h"

namespace halden {

struct Shared {
  Shared() {
    windows.add(meter_rec);
    windows.add(notice);
  }
  Shared(const Shared&) = delete;
  Shared& operator=(const Shared&) = delete;

  Window meter_rec = make_main_window();
  Window notice = make_notice_window();
  Windows windows;  // these two, and those that the rooms add
  const LabelColumns label_column_left = read_label_columns(meter_rec);
};

}  // namespace halden
