// What a program does about its process before anything else.
#pragma once

namespace halden {

// Opens the null device behind standard input, output and error where these are closed: a file or port opened
// later would otherwise take their place and receive error texts. Ignores the signals for a reader that has
// gone and for a file that has reached its size limit: the write fails instead, and what waits is kept.
void prepare_process();

}  // namespace halden
