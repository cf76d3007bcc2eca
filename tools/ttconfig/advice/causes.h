#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "ttconfig/findings/rules.h"

namespace ttconfig {

// Something wrong with the characters of a piece of text, whatever its purpose.
struct Cause {
    RuleId rule;
    std::string_view where;  // the characters, as a view into the piece
    std::string what;        // in words, such as "a no-break space stands here"
};

// Whether full-width characters are acceptable, as in labels for people.
enum class FullWidth { Wrong, Fine };

// The first thing wrong with the characters of a piece; nothing for most pieces.
std::optional<Cause> causeIn(std::string_view piece, FullWidth fullWidth = FullWidth::Wrong);

// The text with full-width and other look-alike characters replaced by the ASCII characters that belong there.
std::string inAscii(std::string_view text);

// Whether the text has only visible ASCII characters, so that causeIn() finds nothing in any piece of it.
bool isPlain(std::string_view text);

}  // namespace ttconfig
