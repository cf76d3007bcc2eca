#pragma once

#include "ttconfig/invocation/commandline.h"
#include "ttconfig/invocation/output.h"

namespace ttconfig {

// Checks the settings files that the command line names, or explains a rule. Answers the exit code: kExitFindings when
// a finding is left that no option turned off. Throws Fault for a file that cannot be used and for an unknown rule.
int runCheck(const CommandLine& commandLine, Output& output);

}  // namespace ttconfig
