#pragma once

#include <string>
#include <string_view>

namespace ttconfig {

// The JSON text with null in place of every number that no double can hold, such as 1e400: like null, it is no value of
// any argument.
std::string withoutWideNumbers(std::string_view text);

}  // namespace ttconfig
