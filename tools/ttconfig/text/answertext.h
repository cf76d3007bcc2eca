#pragma once

#include <string>
#include <string_view>

#include "ttconfig/text/answer.h"

namespace ttconfig {

// An answer as one text for people: true, 12, 0.5, a text as it stands, "none" for null. The items of a list are
// separated by "," as in a settings file, the members of an object by "," and their names by ":"; lists and objects
// inside others stand in [] and {}. No blanks are put in.
std::string answerText(const Answer& answer);

// A text as JSON, as answerJson() has it.
std::string textJson(std::string_view text);

// An answer as JSON on one line, bytes that are not UTF-8 replaced by U+FFFD.
std::string answerJson(const Answer& answer);

}  // namespace ttconfig
