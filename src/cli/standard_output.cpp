#include "cli/standard_output.h"

#include <cerrno>
#include <csignal>
#include <cstdio>

namespace halden {

namespace {

#ifdef SIGPIPE
void ignore_lost_readers() { std::signal(SIGPIPE, SIG_IGN); }
#else
void ignore_lost_readers() {}  // writing just fails
#endif

}  // namespace

void expect_readers_to_leave() { ignore_lost_readers(); }

Written write_results(std::string_view results) {
  errno = 0;
  const bool taken = std::fwrite(results.data(), 1, results.size(), stdout) == results.size();
  if (taken && std::fflush(stdout) == 0) return Written::all;
  return errno == EPIPE ? Written::reader_gone : Written::failed;
}

}  // namespace halden
