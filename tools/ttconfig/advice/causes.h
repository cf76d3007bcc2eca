#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "ttconfig/findings/rules.h"

namespace ttconfig {

// What can be wrong with the characters of a piece of text, whatever the piece is for.
struct Cause {
    RuleId rule;
    std::string_view where;  // the characters, a part of the piece
    std::string what;        // in words, such as "a no-break space stands here"
};

// Whether full-width characters are as good as any others: in labels that people read they are.
enum class FullWidth { Wrong, Fine };

// The first thing that is wrong with the characters of a piece; nothing for most pieces.
std::optional<Cause> causeIn(std::string_view piece, FullWidth fullWidth = FullWidth::Wrong);

// The text with its full-width and other look-alike characters as the ASCII ones that belong there.
std::string inAscii(std::string_view text);

// Whether the text has only visible ASCII characters, so that there is no cause in any piece of it.
bool isPlain(std::string_view text);

}  // namespace ttconfig
