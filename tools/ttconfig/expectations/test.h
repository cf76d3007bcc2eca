#pragma once

#include "ttconfig/invocation/commandline.h"
#include "ttconfig/invocation/output.h"

namespace ttconfig {

// Asks every question of an expectation file and tells which answers are not the expected ones. Answers the exit code:
// kExitDone when all are, kExitFindings when some are not. Throws Fault for a file that cannot be used and for lines
// that are no expectations.
int runTest(const CommandLine& commandLine, Output& output);

}  // namespace ttconfig
