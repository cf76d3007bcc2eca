#pragma once

#include "ttconfig/invocation/commandline.h"
#include "ttconfig/invocation/output.h"

namespace ttconfig {

// Loads what the command line names and shows, as text or as JSON, what was loaded and what follows from it: one table
// per topic. Throws Fault for what cannot be loaded.
void runSummary(const CommandLine& commandLine, Output& output);

}  // namespace ttconfig
