#pragma once

#include "ttconfig/invocation/commandline.h"
#include "ttconfig/invocation/output.h"

namespace ttconfig {

// Explains one answer and, with --why-not, shows the edit of the settings file that would change it to the expected
// one. Returns the exit code. Throws Fault if the question is invalid or the file cannot be read.
int runExplain(const CommandLine& commandLine, Output& output);

}  // namespace ttconfig
