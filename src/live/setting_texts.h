// The settings as the boxes of the main window show them, for the header lines of data files.
#pragma once

#include <string_view>

#include "formats/file_headers.h"
#include "screen/meter_rec/settings.h"
#include "screen/window.h"

namespace halden {

// Valid as long as the boxes do not change.
inline SettingTexts setting_texts(const Window& meter_rec) {
  const auto shown = [&](Setting setting) -> std::string_view {
    return meter_rec[names_of(setting).box].text;
  };
  return {shown(Setting::hz), shown(Setting::md), shown(Setting::sec), shown(Setting::ct),
          shown(Setting::pt)};
}

}  // namespace halden
