#pragma once

#include <istream>
#include <string>
#include <string_view>

#include "ttconfig/calls/calltable.h"
#include "ttconfig/invocation/output.h"

namespace ttconfig {

// The answer to one line, without a line end: {"ok": VALUE} or {"error": TEXT}, with the request's "id" where it could
// be read. Never throws for whatever the line or the operation does. A line that opens more than kDeepestNesting arrays
// and objects within each other is refused as a whole.
std::string answerLine(const CallTable& table, CallState& state, std::string_view line);

// Answers every line of the input, the last one also without a line end, until its end or until nobody reads.
void runSession(std::istream& input, Output& output);

}  // namespace ttconfig
