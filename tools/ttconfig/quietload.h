#pragma once

#include <iostream>
#include <sstream>
#include <streambuf>
#include <string>

namespace ttconfig {

// While it lives, lines that the store writes to the standard error stream about pieces of values are kept back: every
// value of a key that is no switch costs one, and what is wrong in earnest is told elsewhere. Other lines are passed on
// at the end.
class QuietLoad {
public:
    QuietLoad() : screen(std::cerr.rdbuf(lines.rdbuf())) {}
    QuietLoad(const QuietLoad&) = delete;
    QuietLoad& operator=(const QuietLoad&) = delete;
    ~QuietLoad() {
        std::cerr.rdbuf(screen);
        for (std::string line; std::getline(lines, line);) {
            if (line.rfind("get bson value error, ", 0) != 0) std::cerr << line << '\n';
        }
    }

private:
    std::stringstream lines;
    std::streambuf* screen;
};

}  // namespace ttconfig
