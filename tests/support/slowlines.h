#pragma once

#include <string>
#include <vector>

#include "tests/support/slowgrammars.h"

namespace tests {

// The lines of a text, without the LF but with every other byte; at least one.
inline std::vector<std::string> slowLines(const std::string& text) {
    return slowPieces(text, '\n');
}

}  // namespace tests
