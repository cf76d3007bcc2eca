#pragma once

#include <string>
#include <string_view>

#include "traderbase/base/config/internal/limits/limitrows.h"

namespace ttconfig {

// How a field is read: numbers as atoi, atoll and atof do, numbers that are such as a whole or none, or the text as it
// stands.
enum class FieldKind { Integer, LongInteger, Decimal, StrictInteger, StrictDecimal, Text };

FieldKind kindOf(ttservice::internal::LimitField field);

// Whether the field says what is wanted, which is written as answers are. "none" and "null" are a number that is none.
bool says(std::string_view field, FieldKind kind, const std::string& wanted);

// A text that says it and differs little from what stands there: that itself where it says so. Without a field, which
// is not an empty one, the value as people write it.
std::string writtenLike(std::string_view field, FieldKind kind, const std::string& wanted);

// How many bytes one has that the other has not, what both have in common at either end left out.
std::size_t differingBytes(std::string_view one, std::string_view other);

}  // namespace ttconfig
