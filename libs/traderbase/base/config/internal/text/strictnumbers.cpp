// Numbers: converts settings texts to numbers, strictly or like the C library.
// Entry points: leadingInt(), strictInt(), strictBool(), strictDouble(), looseInt(), looseLong(), looseDouble().
// Covered by tests/config/internal/text/strictnumbers_test.cpp.

#include "traderbase/base/config/internal/text/strictnumbers.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <limits>
#include <system_error>

#include "traderbase/base/config/internal/text/digits.h"

namespace ttservice::internal {

namespace {

bool isHexDigit(char c) {
    return isDigit(c) || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

// The text without the leading characters that the C library treats as blanks.
std::string_view withoutBlanks(std::string_view text) {
    return text.substr(std::min(text.find_first_not_of(" \t\n\v\f\r"), text.size()));
}

// from_chars accepts "-5" but not "+5"; and after "+" it must not see the "-5" of "+-5".
std::string_view withoutPlus(std::string_view text) {
    if (text.size() >= 2 && text[0] == '+' && isDigit(text[1])) text.remove_prefix(1);
    return text;
}

// Removes a sign from the front of the text; true if it was a minus.
bool takeSign(std::string_view& text) {
    const bool minus = !text.empty() && text.front() == '-';
    if (minus || (!text.empty() && text.front() == '+')) text.remove_prefix(1);
    return minus;
}

// The exponent written after one of the marks: 3 for "e3", 0 if there is none; clamped far outside any range.
std::int64_t writtenExponent(std::string_view text, std::string_view marks) {
    const std::size_t at = text.find_first_of(marks);
    if (at == std::string_view::npos) return 0;
    text.remove_prefix(at + 1);
    const bool minus = takeSign(text);
    std::int64_t exponent = 0;
    for (const char c : text)
        exponent = exponent < 1000000000 ? exponent * 10 + (c - '0') : exponent;
    return minus ? -exponent : exponent;
}

// Whether a number outside the range of double is too large rather than too small. Such numbers are hundreds of digits
// away from 1, so the place of the first non-zero digit, shifted by the exponent, decides.
bool isTooLarge(std::string_view number, bool isHex) {
    const std::int64_t perDigit = isHex ? 4 : 1;
    const std::string_view marks = isHex ? "pP" : "eE";  // an "e" is a hexadecimal digit
    std::int64_t order = writtenExponent(number, marks);
    const std::string_view digits = number.substr(0, number.find_first_of(marks));
    const std::size_t point = std::min(digits.find('.'), digits.size());
    const std::size_t first = digits.find_first_not_of("0.");
    if (first == std::string_view::npos) return false;
    order += perDigit * (static_cast<std::int64_t>(point) - static_cast<std::int64_t>(first));
    return order > 0;
}

struct Unsigned {
    double value = 0;
    std::size_t used = 0;  // 0: the text does not begin with a number
    bool tooLarge = false;
};

// Cuts off an exponent with two signs, as in the hexadecimal "1p+-5", because some from_chars accept it.
std::string_view withoutTwoSigns(std::string_view text) {
    const std::size_t mark = text.find_first_of("pP");
    if (mark == std::string_view::npos || text.substr(mark + 1, 2) != "+-") return text;
    return text.substr(0, mark);
}

// The longest unsigned number at the front of the text.
Unsigned takeUnsigned(std::string_view text, bool isHex) {
    Unsigned taken;
    if (isHex) text = withoutTwoSigns(text);
    const auto format = isHex ? std::chars_format::hex : std::chars_format::general;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), taken.value, format);
    if (result.ec == std::errc::invalid_argument) return taken;
    taken.used = static_cast<std::size_t>(result.ptr - text.data());
    if (result.ec == std::errc::result_out_of_range) {
        taken.tooLarge = isTooLarge(text.substr(0, taken.used), isHex);
        taken.value = taken.tooLarge ? std::numeric_limits<double>::infinity() : 0.0;
    }
    return taken;
}

bool beginsHex(std::string_view text) {
    if (text.size() < 3 || text[0] != '0' || (text[1] != 'x' && text[1] != 'X')) return false;
    return isHexDigit(text[2]) || (text[2] == '.' && text.size() > 3 && isHexDigit(text[3]));
}

}  // namespace

LeadingInt leadingInt(std::string_view text) {
    const std::string_view digits = withoutPlus(text);
    LeadingInt taken;
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), taken.value);
    if (result.ec == std::errc()) taken.used = static_cast<std::size_t>(result.ptr - text.data());
    return taken;
}

std::optional<int> strictInt(std::string_view text) {
    const LeadingInt taken = leadingInt(text);
    if (taken.used == 0 || taken.used != text.size()) return std::nullopt;
    return taken.value;
}

std::optional<bool> strictBool(std::string_view text) {
    const bool minus = takeSign(text);
    if (text.empty() || text.find_first_not_of('0') < text.size() - 1) return std::nullopt;
    if (text.back() == '0') return false;
    if (text.back() == '1' && !minus) return true;
    return std::nullopt;
}

std::optional<double> strictDouble(std::string_view text) {
    const bool minus = takeSign(text);
    if (text.empty() || !(isDigit(text.front()) || text.front() == '.')) return std::nullopt;
    const Unsigned taken = takeUnsigned(text, false);
    if (taken.used != text.size() || taken.tooLarge) return std::nullopt;
    return minus ? -taken.value : taken.value;
}

// strtoll would ask the locale which characters are blanks.
long long looseLong(std::string_view text) {
    text = withoutPlus(withoutBlanks(text));
    long long value = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    if (result.ec != std::errc::result_out_of_range) return value;
    return text.front() == '-' ? std::numeric_limits<long long>::min() : std::numeric_limits<long long>::max();
}

int looseInt(std::string_view text) {
    return static_cast<int>(looseLong(text));
}

// atof would take the decimal sign from the locale, so this follows its grammar: blanks, a sign, and then a decimal or
// hexadecimal number, "inf" or "nan".
double looseDouble(std::string_view text) {
    text = withoutBlanks(text);
    const bool minus = takeSign(text);
    const bool isHex = beginsHex(text);
    if (isHex) text.remove_prefix(2);
    if (!text.empty() && (text.front() == '-' || text.front() == '+')) return 0.0;
    const Unsigned taken = takeUnsigned(text, isHex);
    if (taken.used == 0) return 0.0;  // not -0.0 for a lone minus sign
    return minus ? -taken.value : taken.value;
}

}  // namespace ttservice::internal
