#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace tests {

// The lines of a text with everything that stands in them but the LF; at least one.
inline std::vector<std::string> slowLines(const std::string& text) {
    std::vector<std::string> lines(1);
    for (const char character : text) {
        if (character == '\n') {
            lines.emplace_back();
        } else {
            lines.back() += character;
        }
    }
    return lines;
}

}  // namespace tests
