#pragma once

#include <string>

#include "ttplatform/export.h"

namespace utils {

// The text with the letters a to z in upper case. All other bytes, and so all multi-byte characters, stay unchanged.
TTPLATFORM_API std::string toUpper(std::string text);

}  // namespace utils
