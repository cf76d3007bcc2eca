#pragma once

#include "ttconfig/invocation/commandline.h"
#include "ttconfig/invocation/output.h"

namespace ttconfig {

// Loads what the command line names and shows, as text or as JSON, the algorithm products, the futures and ETF product
// lists and the money-market funds: one table per topic. Throws Fault for what cannot be loaded.
void runProducts(const CommandLine& commandLine, Output& output);

}  // namespace ttconfig
