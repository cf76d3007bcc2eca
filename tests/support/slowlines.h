#pragma once

#include <string>
#include <vector>

#include "tests/support/slowgrammars.h"

namespace tests {

// The lines of a text with everything that stands in them but the LF; at least one.
inline std::vector<std::string> slowLines(const std::string& text) {
    return slowPieces(text, '\n');
}

}  // namespace tests
