#pragma once

#include "ttconfig/invocation/commandline.h"
#include "ttconfig/invocation/output.h"

namespace ttconfig {

// Asks every question of an expectation file and reports the answers that differ. Returns kExitDone when all match,
// otherwise kExitFindings. Throws Fault for a file that cannot be used and for malformed lines.
int runTest(const CommandLine& commandLine, Output& output);

}  // namespace ttconfig
