#pragma once

#include <string_view>

namespace ttconfig {

// How deep arrays and objects of a request, or of a word of the command line, may be nested. Whoever parses JSON,
// copies it or writes it goes down once a level, so the depth is looked at first.
inline constexpr int kDeepestNesting = 100;

// Whether a JSON text opens more arrays and objects within each other than that. A text that is no JSON gets some
// answer.
bool isNestedTooDeep(std::string_view text);

}  // namespace ttconfig
