// Ctrl-C and the request to terminate, turned into something a command can end cleanly on.
#pragma once

namespace halden {

// From now on they are noted instead of ending the program. Those that whoever started the program has it
// ignore stay ignored.
void note_interruptions();

bool interrupted();

}  // namespace halden
