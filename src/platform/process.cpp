#include "platform/process.h"

#include <cerrno>
#include <cstdio>

namespace halden {

int print_and_end(std::string_view text) {
  errno = 0;
  const bool taken = std::fwrite(text.data(), 1, text.size(), stdout) == text.size();
  if ((std::fflush(stdout) == 0 && taken) || errno == EPIPE) return 0;
  std::fprintf(stderr, "%s\n", not_written);
  return 1;
}

}  // namespace halden
