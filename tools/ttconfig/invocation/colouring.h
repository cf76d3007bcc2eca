#pragma once

#include "ttconfig/invocation/commandline.h"
#include "ttconfig/invocation/output.h"
#include "ttconfig/text/colour.h"

namespace ttconfig {

// The colours for answers written to this output. --color decides; without it, answers on a terminal are coloured
// unless NO_COLOR is set and not empty, or TERM is "dumb". Use it for Format::Text only.
Colours coloursFor(const CommandLine& commandLine, const Output& output);

}  // namespace ttconfig
