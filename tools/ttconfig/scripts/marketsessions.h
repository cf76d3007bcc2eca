#pragma once

#include "ttconfig/invocation/commandline.h"
#include "ttconfig/invocation/output.h"

namespace ttconfig {

// Shows the trading sessions of the markets that are named, or of all that the market-time script lists, as the store
// answers them; with a time of the day also whether a market trades then (a session's start belongs to it, its end does
// not). Throws Fault for a script that cannot be read and for a market that it does not list.
void runSessions(const CommandLine& commandLine, Output& output);

}  // namespace ttconfig
