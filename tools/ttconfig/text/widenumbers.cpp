// Wide numbers: makes a JSON text readable that holds numbers beyond every double.
// Doors: withoutWideNumbers().
// Owns: nothing.
// Covered by tests/tools/ttconfig/text_test.cpp.

#include "ttconfig/text/widenumbers.h"

#include "traderbase/base/config/internal/strictnumbers.h"

namespace ttconfig {

namespace {

constexpr std::string_view kNumberCharacters = "+-.0123456789eE";

// The text in quotes that starts here, its closing quote included.
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

}  // namespace

std::string withoutWideNumbers(std::string_view text) {
    std::string result;
    while (!text.empty()) {
        std::string_view token = text.substr(0, 1);
        const bool mayBeNumber = token[0] == '-' || (token[0] >= '0' && token[0] <= '9');
        if (token[0] == '"') token = quotedFrom(text);
        if (mayBeNumber) token = text.substr(0, text.find_first_not_of(kNumberCharacters));
        const bool isWide = mayBeNumber && !ttservice::internal::strictDouble(token);
        result.append(isWide ? "null" : token);
        text.remove_prefix(token.size());
    }
    return result;
}

}  // namespace ttconfig
