#pragma once

#include <cstdint>
#include <vector>

namespace ttconfig {

// The lines of a file that the page refers to.
class LinkedLines {
public:
    // Marks the line and returns it, so that callers can write it in the same expression. 0 means no line.
    std::uint32_t mark(std::uint32_t line) {
        if (line >= marked.size()) marked.resize(line + std::size_t{1});
        marked[line] = true;
        return line;
    }
    bool holds(std::uint32_t line) const { return line < marked.size() && marked[line]; }

private:
    std::vector<bool> marked;
};

}  // namespace ttconfig
