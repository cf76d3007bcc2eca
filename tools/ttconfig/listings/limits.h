#pragma once

#include "ttconfig/invocation/commandline.h"
#include "ttconfig/invocation/output.h"

namespace ttconfig {

// Shows everything that an order-entry screen asks about one instrument, each answer with what decided it.
void runLimits(const CommandLine& commandLine, Output& output);

}  // namespace ttconfig
