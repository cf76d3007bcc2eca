#pragma once

#include "ttconfig/invocation/commandline.h"
#include "ttconfig/invocation/output.h"

namespace ttconfig {

// Runs a script as the client would and prints what is wrong with it, a line each: "FILE:LINE: where: what". Answers
// the exit code: kExitDone for a clean script, else kExitFindings. Throws Fault for a file that cannot be read.
int runScriptCheck(const CommandLine& commandLine, Output& output);

}  // namespace ttconfig
