#pragma once

#include <string>
#include <vector>

#include "ttconfig/calls/calltable.h"

namespace fuzz {

// The tool's call table, restricted to the target's own folder. It refuses paths out of the folder, the interpreter's
// built-in functions that read files or print, and a second script for an interpreter.
const ttconfig::CallTable& sessionCalls();

// The operations that no call has executed so far, one entry per overload: "getPts(text)".
std::vector<std::string> neverCarriedOut();

// Replaces the process's store by a new one without settings, and empties the algorithm catalogue.
void startAnew();

}  // namespace fuzz
