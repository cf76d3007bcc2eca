#pragma once

#include <string>
#include <string_view>

#include "traderbase/base/config/internal/limits/limitrows.h"

namespace ttconfig {

// How a field is read: Integer, LongInteger and Decimal like atoi, atoll and atof; the strict kinds only if the whole
// field is a number; Text as written.
enum class FieldKind { Integer, LongInteger, Decimal, StrictInteger, StrictDecimal, Text };

FieldKind kindOf(ttservice::internal::LimitField field);

// Whether the field gives the wanted value, which is written as in an answer. "none" and "null" stand for a decimal
// that is not finite.
bool says(std::string_view field, FieldKind kind, const std::string& wanted);

// A text that gives the wanted value and differs little from the field; the field itself if it already gives the value.
// A null view, unlike an empty field, means that there is no field: the value is then written in its usual spelling.
std::string writtenLike(std::string_view field, FieldKind kind, const std::string& wanted);

// The number of bytes in both texts together, without their common start and common end.
std::size_t differingBytes(std::string_view one, std::string_view other);

}  // namespace ttconfig
