// Numbers of the target "grammars": the strict and loose numbers of the library, and those of the settings file reader.

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>

#include "fuzz/grammars/grammarchecks.h"
#include "fuzz/support/samenumber.h"
#include "fuzz/support/target.h"
#include "standin/numbertext.h"
#include "tests/support/slowgrammars.h"
#include "traderbase/base/config/internal/text/strictnumbers.h"

namespace fuzz {

using namespace ttservice::internal;

namespace {

void requireLeadingInt(const std::string& text) {
    const LeadingInt taken = leadingInt(text);
    require(taken.used <= text.size(), "the number at the front is of the text", text);
    if (taken.used == 0) {
        // Digits at the front, with or without a sign, are allowed only if their number does not fit in 32 bits.
        const bool hasSign = !text.empty() && (text[0] == '+' || text[0] == '-');
        const std::size_t end = std::min(text.find_first_not_of("0123456789", hasSign ? 1 : 0), text.size());
        require(!tests::slowStrictNumber<int>(text.substr(0, end)), "there is no number at the front", text);
        return;
    }
    const std::string front = text.substr(0, taken.used);
    require(tests::slowStrictNumber<int>(front) == taken.value, "the number at the front agrees", text);
    const bool goesOn = taken.used < text.size() && text[taken.used] >= '0' && text[taken.used] <= '9';
    require(!goesOn, "the number at the front is the longest", text);
}

}  // namespace

void checkNumbers(const std::string& text) {
    require(strictInt(text) == tests::slowStrictNumber<int>(text), "strict integers agree", text);
    requireLeadingInt(text);
    require(strictBool(text) == tests::slowStrictNumber<bool>(text), "strict flags agree", text);
    const auto strict = strictDouble(text);
    const auto slow = tests::slowStrictNumber<double>(text);
    require(strict.has_value() == slow.has_value(), "strict numbers agree on what is one", text);
    if (strict) require(isSame(*strict, *slow), "strict numbers agree", text);
    require(looseInt(text) == tests::slowLooseInt(text), "loose integers agree", text);
    require(looseLong(text) == tests::slowLooseLong(text), "loose wide integers agree", text);
    require(isSame(looseDouble(text), tests::slowLooseDouble(text)), "loose numbers agree", text);
}

void checkInteger(const std::string& text) {
    constexpr int kBefore = 77;
    const std::optional<int> slow = tests::slowStrictNumber<int>(text);
    int number = kBefore;
    require(standin::readInt32(text, number) == slow.has_value(), "integers of settings agree on what is one", text);
    require(number == slow.value_or(kBefore), "integers of settings agree", text);
}

void checkDecimal(const std::string& text) {
    constexpr double kBefore = 77.5;
    const std::optional<double> slow = tests::slowStrictNumber<double>(text);
    double number = kBefore;
    require(standin::readDecimal(text, number) == slow.has_value(), "decimals of settings agree on what is one", text);
    require(isSame(number, slow.value_or(kBefore)), "decimals of settings agree", text);
}

}  // namespace fuzz
