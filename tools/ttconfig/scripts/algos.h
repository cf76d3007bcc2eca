#pragma once

#include "ttconfig/invocation/commandline.h"
#include "ttconfig/invocation/output.h"

namespace ttconfig {

// Has the algorithm catalogue read a script with the rights of the platform data and those that the command line names,
// and shows what each vendor's block came to. Throws Fault for a script that cannot be read.
void runAlgos(const CommandLine& commandLine, Output& output);

}  // namespace ttconfig
