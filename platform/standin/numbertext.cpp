// Converts setting values to numbers.
// Entry points: readInt32(), readDecimal().
// Test: tests/platform/numbertext_test.cpp
#include "standin/numbertext.h"

#include <charconv>
#include <cstdint>
#include <limits>
#include <system_error>

namespace standin {

namespace {

static_assert(std::numeric_limits<int>::digits == 31, "settings hold 32-bit integers");

bool isDigit(char character) {
    return character >= '0' && character <= '9';
}

bool isSign(char character) {
    return character == '+' || character == '-';
}

std::size_t digitsAt(std::string_view text, std::size_t start) {
    std::size_t end = start;
    while (end < text.size() && isDigit(text[end]))
        ++end;
    return end - start;
}

struct DecimalShape {
    bool valid = false;
    // Power of ten of the first non-zero digit, including the exponent; capped far beyond a double's range.
    std::int64_t magnitude = 0;
};

constexpr std::int64_t kCappedExponent = std::int64_t{1} << 40;

// The value of an exponent's digits, capped.
std::int64_t cappedNumber(std::string_view digits) {
    std::int64_t number = 0;
    for (const char digit : digits) {
        if (number < kCappedExponent) number = number * 10 + (digit - '0');
    }
    return number;
}

// Checks the text after the sign. The conversion alone would also accept "inf", and would stop at the first stray byte.
DecimalShape shapeOf(std::string_view text) {
    DecimalShape shape;
    const std::size_t whole = digitsAt(text, 0);
    std::size_t fraction = 0;
    std::size_t at = whole;
    if (at < text.size() && text[at] == '.') {
        fraction = digitsAt(text, at + 1);
        at += 1 + fraction;
    }
    if (whole + fraction == 0) return shape;
    const std::size_t first = text.substr(0, at).find_first_of("123456789");
    if (first != std::string_view::npos) {
        shape.magnitude = first < whole ? static_cast<std::int64_t>(whole - first) - 1
                                        : static_cast<std::int64_t>(whole) - static_cast<std::int64_t>(first);
    }
    if (at < text.size() && (text[at] == 'e' || text[at] == 'E')) {
        ++at;
        const bool negative = at < text.size() && text[at] == '-';
        if (at < text.size() && isSign(text[at])) ++at;
        const std::size_t digits = digitsAt(text, at);
        if (digits == 0) return shape;
        const std::int64_t exponent = cappedNumber(text.substr(at, digits));
        shape.magnitude += negative ? -exponent : exponent;
        at += digits;
    }
    shape.valid = at == text.size();
    return shape;
}

}  // namespace

bool readInt32(std::string_view text, int& number) {
    // from_chars accepts a minus sign but no plus sign.
    if (!text.empty() && text.front() == '+') {
        text.remove_prefix(1);
        if (text.empty() || !isDigit(text.front())) return false;
    }
    int value = 0;
    const char* const end = text.data() + text.size();
    const std::from_chars_result result = std::from_chars(text.data(), end, value);
    if (result.ec != std::errc() || result.ptr != end) return false;
    number = value;
    return true;
}

bool readDecimal(std::string_view text, double& number) {
    const bool negative = !text.empty() && text.front() == '-';
    if (!text.empty() && isSign(text.front())) text.remove_prefix(1);
    const DecimalShape shape = shapeOf(text);
    if (!shape.valid) return false;
    double value = 0.0;
    const std::from_chars_result result = std::from_chars(text.data(), text.data() + text.size(), value);
    // from_chars reports overflow and underflow alike; the power of ten tells them apart.
    if (result.ec == std::errc::result_out_of_range) {
        if (shape.magnitude > 0) return false;
        value = 0.0;
    } else if (result.ec != std::errc()) {
        return false;
    }
    number = negative ? -value : value;
    return true;
}

}  // namespace standin
