#pragma once

#include "ttconfig/invocation/commandline.h"
#include "ttconfig/invocation/output.h"

namespace ttconfig {

// Asks one question and writes the answer on one line. Answers the exit code: whatever the answer is, kExitDone; with
// --test, by the answer, which has to be a yes or no. Throws Fault for a call that there is not and for arguments that
// it does not take.
int runAsk(const CommandLine& commandLine, Output& output);

}  // namespace ttconfig
