// Bad values: tells the world that a piece of a settings value was passed over.
// Doors: reportBadValue(), reportBadValues().
// Owns: nothing.
// Covered by tests/config/internal/platformlist_test.cpp and perplatformlist_test.cpp.

#include "traderbase/base/config/internal/badvalue.h"

#include <iostream>
#include <string>
#include <string_view>

#include <boost/lexical_cast/bad_lexical_cast.hpp>

namespace ttservice::internal {

namespace {

// The stream is not buffered, so that lines are handed to it a block at a time.
constexpr std::size_t kLinesOfBlock = 64;

struct Lines {
    // Hosts look for the text of Boost's conversion error; the conversions themselves neither throw nor use Boost,
    // since every scalar key of the main section is one bad piece of a platform list and a load must not throw a
    // hundred times.
    const std::string line = std::string("get bson value error, ") + boost::bad_lexical_cast().what() + '\n';
    const std::string block = [this] {
        std::string lines;
        lines.reserve(line.size() * kLinesOfBlock);
        for (std::size_t i = 0; i < kLinesOfBlock; ++i)
            lines += line;
        return lines;
    }();
};

}  // namespace

void reportBadValues(std::size_t count) {
    if (count == 0) return;
    static const Lines lines;
    for (; count >= kLinesOfBlock; count -= kLinesOfBlock)
        std::cerr << lines.block;
    const std::size_t rest = count * lines.line.size();
    std::cerr << std::string_view(lines.block).substr(0, rest) << std::flush;
}

void reportBadValue() {
    reportBadValues(1);
}

}  // namespace ttservice::internal
