#ifdef _WIN32

#include "platform/process.h"

namespace halden {

void prepare_process() {}  // streams stay valid, and there are no such signals

}  // namespace halden

#endif
