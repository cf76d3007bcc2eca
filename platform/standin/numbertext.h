#pragma once

#include <string_view>

#include "ttplatform/export.h"

namespace standin {

// Both leave number alone and answer false unless the whole text is a number; neither looks at the process's locale.

// An optional sign and decimal digits that fit 32 bits: "12", "+5", "-007".
TTPLATFORM_API bool readInt32(std::string_view text, int& number);

// An optional sign, decimal digits with an optional point among or around them, an optional exponent: "1", ".5",
// "-2.5e3". False as well for what a double cannot hold; what is too small for one is the nearest it can hold.
TTPLATFORM_API bool readDecimal(std::string_view text, double& number);

}  // namespace standin
