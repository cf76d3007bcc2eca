#pragma once

#include <cstdint>
#include <vector>

namespace ttconfig {

// The lines of a file that the page refers to.
class LinkedLines {
public:
    // Answers the line, for writing it down in the same breath. 0 stands for no line.
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
