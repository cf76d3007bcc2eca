#pragma once

#include "ttconfig/invocation/commandline.h"
#include "ttconfig/invocation/output.h"

namespace ttconfig {

// Runs a script as the client would and prints what is wrong with it, one problem per line: "FILE:LINE: where: what".
// Returns kExitDone for a clean script, otherwise kExitFindings. Throws Fault for a file that cannot be read.
int runScriptCheck(const CommandLine& commandLine, Output& output);

}  // namespace ttconfig
