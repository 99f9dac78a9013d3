// How the program ends in the middle of a wait: Clock::pause throws ProgramEnded, the stack of the running
// handler unwinds (nothing more is sent or written), and the dispatch() that called the handler catches it.
// When handlers are nested, the wait of each outer one throws in turn. No other exception leaves a handler.
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
