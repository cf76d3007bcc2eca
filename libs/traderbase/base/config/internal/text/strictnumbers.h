#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

// Converts numbers in settings in two ways: strictly, where the whole text must be a number, and loosely, like the C
// library's atoi family. No conversion depends on the process's locale.

namespace ttservice::internal {

// One optional sign and decimal digits, nothing else, within 32 bits: " 12", "12 ", "1.0" and "2147483648" are refused.
std::optional<int> strictInt(std::string_view text);

// Such a number at the front of a text, and how many bytes it takes; 0 if there is none.
struct LeadingInt {
    int value = 0;
    std::size_t used = 0;
};
LeadingInt leadingInt(std::string_view text);

// An optional "+" (or "-" before a zero), any number of zeros, and a final "0" or "1"; "true", "2" and "-1" are
// refused.
std::optional<bool> strictBool(std::string_view text);

// The whole text as a decimal number, such as 1, -0.5, .5 or 2.5e3. Blanks, "inf", "nan" and hexadecimal digits are
// refused.
std::optional<double> strictDouble(std::string_view text);

// strictInt, strictBool or strictDouble, chosen by the type.
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

// Like C's atoi, atoll and atof: leading blanks are skipped, the longest number counts, 0 if there is none. C leaves
// numbers that are too large undefined; here, on every system, they become the nearest 64-bit value, of which looseInt
// keeps the low 32 bits: "4294967297" is 1 and "3000000000" is negative.
int looseInt(std::string_view text);
long long looseLong(std::string_view text);
double looseDouble(std::string_view text);

}  // namespace ttservice::internal
