#pragma once

#include "ttconfig/calls/calltable.h"

namespace fuzz {

// The tool's call table, but for calls that would lead out of the target's own folder: a path with a "/" in it is
// refused, and so are the interpreter's own functions that read files or print, and a second script for an interpreter.
const ttconfig::CallTable& sessionCalls();

// A new store without any settings in place of the process's one, and an empty algorithm catalogue.
void startAnew();

}  // namespace fuzz
