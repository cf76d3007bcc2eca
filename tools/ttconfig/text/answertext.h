#pragma once

#include <string>
#include <string_view>

#include "ttconfig/text/answer.h"

namespace ttconfig {

// An answer as text for people: true, 12, 0.5, a text without quotes, "none" for null. A "," separates the items of a
// list, as in a settings file, and the members of an object; a ":" follows a member's name. Lists and objects inside
// others stand in [] and {}. No blanks are added.
std::string answerText(const Answer& answer);

// A text as JSON, written as answerJson() writes it.
std::string textJson(std::string_view text);

// An answer as JSON on one line, with U+FFFD in place of bytes that are not UTF-8.
std::string answerJson(const Answer& answer);

}  // namespace ttconfig
