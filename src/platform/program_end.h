// How the program ends in the middle of a wait: Clock::pause throws ProgramEnded, the stacks of all running
// handlers unwind (nothing more is sent or written), and the dispatcher that called the outermost handler
// swallows it. It is the only exception that crosses a handler.
#pragma once

#include <utility>

namespace halden {

struct ProgramEnded {};

// Runs one handler (a click, a tick, the start-up). Every call from an event source into logic goes through
// here. Returns false when the handler was cut short because the program ends.
template <typename Handler>
bool dispatch(Handler&& handler) {
  try {
    std::forward<Handler>(handler)();
    return true;
  } catch (const ProgramEnded&) {
    return false;
  }
}

}  // namespace halden
