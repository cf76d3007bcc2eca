#pragma once

#include "ttconfig/invocation/commandline.h"
#include "ttconfig/invocation/output.h"

namespace ttconfig {

// Writes the manual page from the help texts: every subcommand, every option.
int runManual(const CommandLine& commandLine, Output& output);

}  // namespace ttconfig
