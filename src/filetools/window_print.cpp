#include "filetools/window_print.h"

#include <array>

#include "platform/printer.h"
#include "platform/timer.h"
#include "screen/failure_texts.h"

namespace halden {

std::string print_in_landscape(const Platform& platform, const Window& window, Language language) {
  const std::array timers = {&platform.timer1, &platform.timer2};
  std::array<bool, timers.size()> ran{};
  for (std::size_t i = 0; i < timers.size(); ++i) {
    ran[i] = timers[i]->enabled();
    timers[i]->set_enabled(false);
  }
  platform.printer.set_orientation(Orientation::landscape);
  platform.printer.print_window(window.name());
  const PrintFailure failure = platform.printer.finish();
  for (std::size_t i = 0; i < timers.size(); ++i)
    if (ran[i]) timers[i]->set_enabled(true);
  return print_sentence(failure, platform.printer.destination(), language);
}

}  // namespace halden
