#pragma once

#include "ttconfig/commandline.h"
#include "ttconfig/output.h"

namespace ttconfig {

// Asks one question and writes the answer on one line. Throws Fault for a call that there is not and for arguments that
// it does not take.
void runAsk(const CommandLine& commandLine, Output& output);

}  // namespace ttconfig
