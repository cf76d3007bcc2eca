// Colour: puts terminal colours around pieces of an answer.
// Entry points: Colours.
// Owns: which colour each kind of piece has.
// Covered by tests/tools/ttconfig/text/colour_test.cpp.

#include "ttconfig/text/colour.h"

namespace ttconfig {

namespace {

// Codes of the terminal's own palette, which suits its background, light or dark.
std::string_view codeOf(Tint tint) {
    switch (tint) {
        case Tint::Place:
        case Tint::Heading:
            return "1";
        case Tint::Error:
            return "1;31";
        case Tint::Warning:
            return "1;35";
        case Tint::Note:
            return "1;36";
        case Tint::Good:
            return "32";
        case Tint::Bad:
            return "31";
        case Tint::Dim:
            return "2";
    }
    return "0";
}

}  // namespace

std::string Colours::operator()(Tint tint, std::string_view piece) const {
    std::string text(piece);
    if (!on || text.empty()) return text;
    return "\x1b[" + std::string(codeOf(tint)) + 'm' + text + "\x1b[0m";
}

}  // namespace ttconfig
