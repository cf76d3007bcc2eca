#pragma once

#include "ttconfig/invocation/commandline.h"
#include "ttconfig/invocation/output.h"

namespace ttconfig {

// Tells which answers of the second settings file are not those of the first. Answers the exit code: kExitDone when all
// are the same, kExitFindings when some are not. Throws Fault for files that cannot be used.
int runDiff(const CommandLine& commandLine, Output& output);

}  // namespace ttconfig
