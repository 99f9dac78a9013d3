// Systems without SIGTERM end their programs by closing the windows.
#if !defined(__unix__) && !defined(__APPLE__)

#include <utility>

#include "app/ui/signal_watch.h"

namespace halden {

SignalWatch::SignalWatch(std::function<void()> ended) : ended_(std::move(ended)) {}

SignalWatch::~SignalWatch() = default;

}  // namespace halden

#endif
