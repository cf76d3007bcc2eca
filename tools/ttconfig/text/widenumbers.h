#pragma once

#include <string>
#include <string_view>

namespace ttconfig {

// The text with null in place of every number that no double can hold, such as 1e400: like null, it is no value of any
// argument. A text that is no JSON stays none, and what is wrong with it stays in its column.
std::string withoutWideNumbers(std::string_view text);

}  // namespace ttconfig
