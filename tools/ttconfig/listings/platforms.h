#pragma once

#include "ttconfig/invocation/commandline.h"
#include "ttconfig/invocation/output.h"

namespace ttconfig {

// Shows, for each platform named on the command line, how it differs from a platform that the settings never name: its
// switches, its values and the lists it is on, each with its place. Returns kExitDone; throws Fault for a file that
// cannot be used.
int runPlatform(const CommandLine& commandLine, Output& output);

}  // namespace ttconfig
