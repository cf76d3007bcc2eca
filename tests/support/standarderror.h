#pragma once

#include <algorithm>
#include <iostream>
#include <sstream>
#include <string>

namespace tests {

// The line that the library writes for a bad piece of a settings value.
inline const std::string kBadValueLine =
    "get bson value error, bad lexical cast: source type value could not be interpreted as target\n";

// Captures what the library writes to standard error while it lives.
class StandardError {
public:
    StandardError() : before(std::cerr.rdbuf(caught.rdbuf())) {}
    StandardError(const StandardError&) = delete;
    StandardError& operator=(const StandardError&) = delete;
    ~StandardError() { std::cerr.rdbuf(before); }

    std::string text() const { return caught.str(); }
    long lines() const {
        const std::string all = text();
        return std::count(all.begin(), all.end(), '\n');
    }
    void clear() { caught.str(std::string()); }

private:
    std::ostringstream caught;
    std::streambuf* before;
};

}  // namespace tests
