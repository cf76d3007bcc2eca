#pragma once

#include "ttconfig/invocation/commandline.h"
#include "ttconfig/invocation/output.h"

namespace ttconfig {

// Lists the platform switches, one row each. In Markdown, writes the whole reference page.
void runSwitches(const CommandLine& commandLine, Output& output);

// Lists the other keys of the settings file, one row each, or shows everything about one key (or switch) or the keys of
// one section. In Markdown without a name, writes the whole reference page. Throws Fault for an unknown name.
void runKeys(const CommandLine& commandLine, Output& output);

}  // namespace ttconfig
