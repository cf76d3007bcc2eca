#pragma once

#include <string>
#include <string_view>

namespace ttconfig {

// The text with null in place of every number that is too large for a double, such as 1e400: like null, such a number
// suits no argument. A text that is not JSON stays invalid, and its error stays in the same column.
std::string withoutWideNumbers(std::string_view text);

}  // namespace ttconfig
