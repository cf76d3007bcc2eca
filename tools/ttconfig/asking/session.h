#pragma once

#include <istream>
#include <string>
#include <string_view>

#include "ttconfig/calls/calltable.h"
#include "ttconfig/invocation/output.h"

namespace ttconfig {

// The answer to one line, without a line end: {"ok": VALUE} or {"error": TEXT}, plus the request's "id" if it could be
// read. Never throws, whatever the line or the operation does. A line nested more deeply than kDeepestNesting is
// refused as a whole.
std::string answerLine(const CallTable& table, CallState& state, std::string_view line);

// Answers every line of the input, including a last one without a line end, until the input ends or the reader of the
// output has gone.
void runSession(std::istream& input, Output& output);

}  // namespace ttconfig
