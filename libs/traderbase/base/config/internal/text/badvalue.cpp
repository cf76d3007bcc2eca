// Bad values: reports that a piece of a settings value was skipped.
// Entry points: reportBadValue(), reportBadValues().
// Covered by tests/config/internal/keys/grammars_test.cpp.

#include "traderbase/base/config/internal/text/badvalue.h"

#include <array>
#include <iostream>
#include <string_view>

namespace ttservice::internal {

namespace {

// The text of Boost's conversion error, which hosts look for. The conversions themselves neither use Boost nor throw:
// scalar values of the main section are read as platform lists too, and a load must not throw for each of them.
constexpr char kLine[] =
    "get bson value error, bad lexical cast: source type value could not be interpreted as target\n";
constexpr std::size_t kLineSize = sizeof(kLine) - 1;

// The stream is unbuffered, so lines are written in blocks.
constexpr std::size_t kLinesOfBlock = 64;

constexpr std::array<char, kLinesOfBlock * kLineSize> blockOfLines() {
    std::array<char, kLinesOfBlock * kLineSize> block{};
    for (std::size_t i = 0; i < block.size(); ++i)
        block[i] = kLine[i % kLineSize];
    return block;
}

// Constant-initialised and never destroyed, because a load may run while the process ends.
constexpr std::array<char, kLinesOfBlock* kLineSize> kBlock = blockOfLines();

}  // namespace

void reportBadValues(std::size_t count) {
    if (count == 0) return;
    constexpr std::string_view block(kBlock.data(), kBlock.size());
    for (; count >= kLinesOfBlock; count -= kLinesOfBlock)
        std::cerr << block;
    std::cerr << block.substr(0, count * kLineSize) << std::flush;
}

void reportBadValue() {
    reportBadValues(1);
}

}  // namespace ttservice::internal
