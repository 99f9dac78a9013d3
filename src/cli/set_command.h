// `haldenctl set`: sends settings to the meter in the same way as the buttons of the main window, and reads
// them back.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "app/program.h"
#include "cli/command.h"
#include "cli/session.h"

namespace halden {

struct TypedSetting {
  std::string name;   // ct, pt, md, sec or hz
  std::string value;  // as it is sent
};

// "ct=40"; nothing for another name or without "=".
std::optional<TypedSetting> parse_setting(std::string_view text);

// The texts of the settings boxes, under the names of the command.
Record settings_record(const Window& meter_rec);

// Sends the settings one after the other; afterwards prints what the meter holds. Fails when a setting was
// refused, when the meter did not answer, and when it holds another value than the one sent. `last_message`
// gives the text of the last message shown, empty when there was none.
void send_settings(Program& program, const std::vector<TypedSetting>& settings, Format format,
                   const std::function<std::string()>& last_message, Terminal& terminal);

}  // namespace halden
