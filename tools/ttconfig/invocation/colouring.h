#pragma once

#include "ttconfig/invocation/commandline.h"
#include "ttconfig/invocation/output.h"
#include "ttconfig/text/colour.h"

namespace ttconfig {

// The colours of what goes to this output. --color decides; without it there is colour on a terminal, unless the
// environment has a NO_COLOR that is not empty or a TERM that is "dumb". Only Format::Text is ever to be coloured.
Colours coloursFor(const CommandLine& commandLine, const Output& output);

}  // namespace ttconfig
