#pragma once

#include <string_view>

#include "ttplatform/export.h"

namespace standin {

// Both return false and leave number unchanged unless the whole text is a number. Neither depends on the locale.

// An optional sign and decimal digits whose value fits in 32 bits: "12", "+5", "-007".
TTPLATFORM_API bool readInt32(std::string_view text, int& number);

// An optional sign, decimal digits with an optional point before, among or after them, an optional exponent: "1", ".5",
// "-2.5e3". Also false for a number too large for a double; a number too small for one becomes 0 or the nearest double.
TTPLATFORM_API bool readDecimal(std::string_view text, double& number);

}  // namespace standin
