#pragma once

#include "ttconfig/invocation/commandline.h"
#include "ttconfig/invocation/output.h"

namespace ttconfig {

// Checks the settings files that the command line names, or explains a rule. Returns kExitInput when a settings file
// cannot be used, otherwise kExitFindings when a rule that is not turned off has findings, otherwise kExitDone. Throws
// Fault for an unknown rule and for any other file that cannot be used.
int runCheck(const CommandLine& commandLine, Output& output);

}  // namespace ttconfig
