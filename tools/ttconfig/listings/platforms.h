#pragma once

#include "ttconfig/invocation/commandline.h"
#include "ttconfig/invocation/output.h"

namespace ttconfig {

// Tells, for each platform named, in what it is unlike a platform that the settings name nowhere: its switches, its
// values, the lists it is on, each with its place. Answers kExitDone; throws Fault for a file that cannot be used.
int runPlatform(const CommandLine& commandLine, Output& output);

}  // namespace ttconfig
