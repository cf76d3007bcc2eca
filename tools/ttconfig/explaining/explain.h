#pragma once

#include "ttconfig/invocation/commandline.h"
#include "ttconfig/invocation/output.h"

namespace ttconfig {

// Explains one answer and, when it is asked why the answer is not another one, shows the edit of the settings file that
// would make it that. Answers the exit code. Throws Fault for what cannot be asked or read.
int runExplain(const CommandLine& commandLine, Output& output);

}  // namespace ttconfig
