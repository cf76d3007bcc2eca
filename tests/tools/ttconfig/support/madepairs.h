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

// What became of the line in which two settings texts differ.
enum class MadeChange { AddedLine, RemovedLine, OtherValue, OtherKey, AddedPiece, RemovedPiece, OtherPiece };

std::string_view wordOf(MadeChange change);

// Two settings texts that differ in one line.
struct MadePair {
    std::string before;
    std::string after;
    MadeChange kind;
    std::uint32_t line;        // of the text after the change, the one that changed
    std::size_t changedBytes;  // taken out and put in, what both have in common at either end left out

    // What is taken out and what is put in.
    std::string shown() const;
};

// Makes such pairs out of made settings texts: the line that changes takes what it needs from a second made text.
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
    // A line of the other text with that section, and with that key where it has one; the line itself without any.
    Line otherLike(const Line& line);
    std::size_t anyPlace(const std::vector<Line>& lines);
    std::string changedPieces(const Line& line, MadeChange kind);
    bool change(std::vector<Line>& lines, MadeChange kind);

    std::mt19937 random;
    std::vector<Line> first;
    std::vector<Line> second;
};

// Arguments for a call, most of them such as a made settings text names.
ttconfig::Arguments madeArguments(MadeQuestions& made, const std::string& name, const ttconfig::Call& call);

}  // namespace tests
