#pragma once

#include "ttconfig/invocation/commandline.h"
#include "ttconfig/invocation/output.h"

namespace ttconfig {

// Asks one question and writes the answer on one line. Returns kExitDone whatever the answer is; with --test the answer
// must be true or false, and decides the exit code. Throws Fault for an unknown call and for arguments that it does not
// take.
int runAsk(const CommandLine& commandLine, Output& output);

}  // namespace ttconfig
