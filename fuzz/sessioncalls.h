#pragma once

#include <string>
#include <vector>

#include "ttconfig/calls/calltable.h"

namespace fuzz {

// The tool's call table, but for calls that would lead out of the target's own folder: a path out of it is refused, and
// so are the interpreter's own functions that read files or print, and a second script for an interpreter.
const ttconfig::CallTable& sessionCalls();

// The operations that no call has carried out so far, each overload by itself: "getPts(text)".
std::vector<std::string> neverCarriedOut();

// A new store without any settings in place of the process's one, and an empty algorithm catalogue.
void startAnew();

}  // namespace fuzz
