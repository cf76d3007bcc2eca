#pragma once

#include "ttconfig/invocation/commandline.h"
#include "ttconfig/invocation/output.h"

namespace ttconfig {

// The platform switches, a row each. In Markdown the whole reference page.
void runSwitches(const CommandLine& commandLine, Output& output);

// The other keys of the settings file, a row each, or what there is to know about one key, a switch's included, or the
// keys of one section. In Markdown without a name the whole reference page. Throws Fault for an unknown name.
void runKeys(const CommandLine& commandLine, Output& output);

}  // namespace ttconfig
