// `haldenctl status`: prints the meter's status.
#pragma once

#include "cli/command.h"
#include "link/meter_status.h"

namespace halden {

// The values of the status reply under their names, in the order of the reply.
Record status_record(const MeterStatus& status);

}  // namespace halden
