#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

// Numbers in settings, converted the two ways that settings know: strictly, where a text either is a number as a whole
// or is none, and loosely, as the C library's atoi family reads them. No conversion depends on the process's locale.

namespace ttservice::internal {

// One optional sign and decimal digits, nothing else, within 32 bits: " 12", "12 ", "1.0" and "2147483648" are none.
std::optional<int> strictInt(std::string_view text);

// Such a number at the front of a text, and how many bytes of the text it takes; 0 where there is none.
struct LeadingInt {
    int value = 0;
    std::size_t used = 0;
};
LeadingInt leadingInt(std::string_view text);

// An optional "+" (or "-" before a zero), any number of zeros, and a final "0" or "1"; "true", "2" and "-1" are none.
std::optional<bool> strictBool(std::string_view text);

// A decimal number as a whole, such as 1, -0.5, .5 or 2.5e3; no blanks, and no "inf", "nan" or hexadecimal digits.
std::optional<double> strictDouble(std::string_view text);

// What strictInt, strictBool or strictDouble says, chosen by the type.
template <typename Value>
std::optional<Value> strictValue(std::string_view text);
template <>
inline std::optional<int> strictValue<int>(std::string_view text) {
    return strictInt(text);
}
template <>
inline std::optional<bool> strictValue<bool>(std::string_view text) {
    return strictBool(text);
}
template <>
inline std::optional<double> strictValue<double>(std::string_view text) {
    return strictDouble(text);
}

// As C atoi, atoll and atof read a text: leading blanks skipped, the longest number taken, 0 where there is none. Those
// leave open what a number that is too large comes to; here it is the nearest of 64 bits on every system, and of that
// looseInt keeps the low 32, so that "4294967297" is 1 and "3000000000" is negative.
int looseInt(std::string_view text);
long long looseLong(std::string_view text);
double looseDouble(std::string_view text);

}  // namespace ttservice::internal
