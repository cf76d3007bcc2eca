#pragma once

#include <string>
#include <string_view>

#include "ttconfig/text/answer.h"

namespace ttconfig {

// Values as messages show them: on one line, valid UTF-8, and cut where they are long.

// The text with every byte that is not UTF-8 replaced by U+FFFD.
std::string withReplacedBytes(const std::string& text);

// The text as it can stand in a line for people: with bytes replaced, and a "?" for every control character.
std::string onOneLine(std::string text);

// The text as it stands, for file names in lines for people: with bytes replaced, and control characters as escapes.
std::string visibleText(std::string_view text);

// The text in quotes.
std::string shownText(std::string_view text);

// A number, a text or a word for what cannot be shown in short.
std::string shownJson(const Argument& value);

// At most so many bytes of the text, cut in front of a character, with "..." where something is missing.
std::string cutText(std::string_view text, std::size_t mostBytes);

}  // namespace ttconfig
