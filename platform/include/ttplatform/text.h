#pragma once

#include <string>

#include "ttplatform/export.h"

namespace utils {

// The text with the letters a to z in upper case; every other byte, and so every multi-byte character, is kept.
TTPLATFORM_API std::string toUpper(std::string text);

}  // namespace utils
