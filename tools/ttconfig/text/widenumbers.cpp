// Wide numbers: lets JSON be parsed even if it holds numbers too large for a double.
// Entry points: withoutWideNumbers().
// Covered by tests/tools/ttconfig/asking/session_test.cpp.

#include "ttconfig/text/widenumbers.h"

#include <algorithm>

#include "traderbase/base/config/internal/text/strictnumbers.h"

namespace ttconfig {

namespace {

constexpr std::string_view kNull = "null";
constexpr std::string_view kDigits = "0123456789";

// The quoted text that starts here, including its closing quote.
std::string_view quotedFrom(std::string_view text) {
    for (std::size_t i = 1; i < text.size(); ++i) {
        if (text[i] == '\\') {
            ++i;
        } else if (text[i] == '"') {
            return text.substr(0, i + 1);
        }
    }
    return text;
}

// The digits that start there.
std::string_view digitsFrom(std::string_view text, std::size_t start) {
    const std::string_view rest = text.substr(std::min(start, text.size()));
    return rest.substr(0, rest.find_first_not_of(kDigits));
}

// The number that starts here, as far as JSON's grammar allows; a "-" without digits stands alone.
std::string_view numberFrom(std::string_view text) {
    std::size_t end = text[0] == '-' ? 1 : 0;
    const std::string_view whole = digitsFrom(text, end);
    if (whole.empty()) return text.substr(0, 1);
    end += whole[0] == '0' ? 1 : whole.size();
    if (text.substr(end, 1) == ".") {
        const std::string_view fraction = digitsFrom(text, end + 1);
        if (fraction.empty()) return text.substr(0, end);
        end += 1 + fraction.size();
    }
    if (text.substr(end, 1) == "e" || text.substr(end, 1) == "E") {
        const std::string_view sign = text.substr(end + 1, 1);
        const std::size_t start = end + (sign == "+" || sign == "-" ? 2 : 1);
        const std::string_view exponent = digitsFrom(text, start);
        if (!exponent.empty()) end = start + exponent.size();
    }
    return text.substr(0, end);
}

}  // namespace

std::string withoutWideNumbers(std::string_view text) {
    std::string result;
    while (!text.empty()) {
        std::string_view token = text.substr(0, 1);
        const bool mayBeNumber = token[0] == '-' || (token[0] >= '0' && token[0] <= '9');
        if (token[0] == '"') token = quotedFrom(text);
        if (mayBeNumber) token = numberFrom(text);
        const bool isWide = mayBeNumber && token != "-" && !ttservice::internal::strictDouble(token);
        result.append(isWide ? kNull : token);
        // A number this large is longer than "null": pad with blanks so that the rest of the line keeps its columns.
        if (isWide) result.append(std::max(token.size(), kNull.size()) - kNull.size(), ' ');
        text.remove_prefix(token.size());
    }
    return result;
}

}  // namespace ttconfig
