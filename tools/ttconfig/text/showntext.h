#pragma once

#include <string>
#include <string_view>

#include "ttconfig/text/answer.h"

namespace ttconfig {

// Values as messages show them: on one line, valid UTF-8, and shortened when long.

// The text with every byte that is not UTF-8 replaced by U+FFFD.
std::string withReplacedBytes(const std::string& text);

// The text for a line of output: invalid bytes become U+FFFD, control characters become "?".
std::string onOneLine(std::string text);

// The text for file names in output: invalid bytes become U+FFFD, control characters become escapes.
std::string visibleText(std::string_view text);

// The text in quotes, shortened when long.
std::string shownText(std::string_view text);

// A number or a text as it is; "an array" or "an object" for anything larger.
std::string shownJson(const Argument& value);

// At most mostBytes bytes of the text, cut between characters, followed by "..." when something was cut.
std::string cutText(std::string_view text, std::size_t mostBytes);

}  // namespace ttconfig
