#pragma once

#include <cstddef>
#include <cstdint>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "tests/tools/ttconfig/support/madesettings.h"
#include "ttconfig/calls/calltable.h"

namespace tests {

// How the line in which two settings texts differ has changed.
enum class MadeChange { AddedLine, RemovedLine, OtherValue, OtherKey, AddedPiece, RemovedPiece, OtherPiece };

std::string_view wordOf(MadeChange change);

// Two settings texts that differ in one line.
struct MadePair {
    std::string before;
    std::string after;
    MadeChange kind;
    std::uint32_t line;        // the changed line, in the text after the change
    std::size_t changedBytes;  // removed and inserted, without the common beginning and end

    // What is removed and what is inserted.
    std::string shown() const;
};

// Makes such pairs from generated settings texts; the changed line takes its material from a second generated text.
class MadePairs {
public:
    explicit MadePairs(unsigned seed);

    MadePair next();

private:
    struct Line {
        std::string section;
        std::string key;
        std::string value;
        bool isHeader = false;
    };

    static std::vector<Line> linesOf(const std::string& text);
    static std::string textOf(const std::vector<Line>& lines);

    std::size_t below(std::size_t count) { return random() % count; }
    // A line of the other text in the same section, with the same key if there is one; the line itself otherwise.
    Line otherLike(const Line& line);
    std::size_t anyPlace(const std::vector<Line>& lines);
    std::string changedPieces(const Line& line, MadeChange kind);
    bool change(std::vector<Line>& lines, MadeChange kind);

    std::mt19937 random;
    std::vector<Line> first;
    std::vector<Line> second;
};

// Arguments for a call, most of them named in a generated settings text.
ttconfig::Arguments madeArguments(MadeQuestions& made, const std::string& name, const ttconfig::Call& call);

}  // namespace tests
