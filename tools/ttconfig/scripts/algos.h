#pragma once

#include "ttconfig/invocation/commandline.h"
#include "ttconfig/invocation/output.h"

namespace ttconfig {

// Lets the algorithm catalogue read a script with the rights of the platform data and of the command line, and shows
// the result of each vendor's block. Throws Fault for a script that cannot be read.
void runAlgos(const CommandLine& commandLine, Output& output);

}  // namespace ttconfig
