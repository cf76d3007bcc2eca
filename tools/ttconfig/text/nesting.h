#pragma once

#include <string_view>

namespace ttconfig {

// How deeply the arrays and objects of a request or of a command-line word may be nested. Parsing, copying and writing
// JSON recurse once per level, so the depth is checked first.
inline constexpr int kDeepestNesting = 100;

// Whether a JSON text is nested more deeply than that. The result is meaningless for a text that is not JSON.
bool isNestedTooDeep(std::string_view text);

}  // namespace ttconfig
