#pragma once

#include "ttconfig/invocation/commandline.h"
#include "ttconfig/invocation/output.h"

namespace ttconfig {

// Shows the trading sessions of the named markets, or of all that the market-time script lists, as the store answers
// them. With a time of day, also shows whether each market trades then; a session includes its start but not its end.
// Throws Fault for a script that cannot be read and for a market that it does not list.
void runSessions(const CommandLine& commandLine, Output& output);

}  // namespace ttconfig
