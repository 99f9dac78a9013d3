// Standard output, whose reader may have gone away (`haldenctl live ... | head`).
#pragma once

#include <string_view>

namespace halden {

enum class Written { all, reader_gone, failed };

// From now on writing to a reader that has gone is a result, not the end of the program.
void expect_readers_to_leave();

// Writes and flushes.
Written write_results(std::string_view results);

}  // namespace halden
