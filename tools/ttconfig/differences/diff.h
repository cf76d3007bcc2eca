#pragma once

#include "ttconfig/invocation/commandline.h"
#include "ttconfig/invocation/output.h"

namespace ttconfig {

// Shows which answers of the second settings file differ from those of the first. Returns kExitDone when none differ,
// kExitFindings when some do. Throws Fault for files that cannot be used.
int runDiff(const CommandLine& commandLine, Output& output);

}  // namespace ttconfig
