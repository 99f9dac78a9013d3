#include "simulator/power_frame.h"

#include "simulator/padded.h"

namespace halden::simulator {

namespace {

std::string phase_group(int phase, const RawPhase& raw) {
  struct Field {
    char letter;
    int RawPhase::*value;
  };
  constexpr std::array<Field, 5> fields = {{{'V', &RawPhase::v},
                                            {'I', &RawPhase::i},
                                            {'W', &RawPhase::w},
                                            {'P', &RawPhase::p},
                                            {'Q', &RawPhase::q}}};
  std::string group;
  for (const Field& field : fields) {
    if (!group.empty()) group += "  ";
    group += field.letter + std::to_string(phase) + "=" + blank_padded(raw.*field.value, 6);
  }
  return group;
}

}  // namespace

std::string power_frame(const Load& load, const MeterSettings& settings, double uptime_s) {
  std::string frame;
  for (int phase = 1; phase <= phases_in_use(settings.wiring); ++phase)
    frame += phase_group(phase, load.raw(phase, settings, uptime_s));
  return frame;
}

}  // namespace halden::simulator
