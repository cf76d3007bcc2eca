// Advice: guesses what the author of an ineffective piece of a value meant.
// Owns: the words, units and signs that people write for numbers.
// Covered by tests/tools/ttconfig/findings/advice_test.cpp.

#include "ttconfig/advice/advice.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>

#include "traderbase/base/config/internal/text/digits.h"
#include "traderbase/base/config/internal/text/strictnumbers.h"
#include "ttconfig/advice/causes.h"
#include "ttconfig/advice/marketnames.h"
#include "ttconfig/text/showntext.h"
#include "ttconfig/text/uppercase.h"

namespace ttconfig {

namespace {

using namespace ttservice::internal;

// Longer than any number or item written by hand.
constexpr std::size_t kLongestPiece = 40;
constexpr std::size_t kLongestShown = 56;

bool isLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool endsWith(std::string_view text, std::string_view end) {
    return text.size() >= end.size() && text.substr(text.size() - end.size()) == end;
}

// Strips the unit from the end of a number and returns its factor; 0 for a percentage where a whole number is required.
double takeUnit(std::string_view& text, NumberKind kind) {
    constexpr struct {
        std::string_view unit;
        double factor;
    } kUnits[] = {{"万", 1e4}, {"亿", 1e8}, {"%", 0.01}, {"股", 1},    {"份", 1},   {"张", 1},   {"手", 1},
                  {"元", 1},   {"天", 1},   {"日", 1},   {" days", 1}, {" day", 1}, {"days", 1}, {"d", 1}};
    double factor = 1;
    for (const auto& [unit, by] : kUnits) {
        if (text.size() <= unit.size() || !endsWith(text, unit)) continue;
        text = withoutBlanks(text.substr(0, text.size() - unit.size()));
        factor = unit == "%" && kind != NumberKind::Decimal ? 0 : by;
        // Two units, as in 100万股.
        if (by == 1.0) return takeUnit(text, kind);
        break;
    }
    return factor;
}

// 1000000 for 1,000,000 and 1 000 000; the text unchanged when its digits are not grouped in threes.
std::string withoutGrouping(std::string_view text) {
    const std::size_t mark = text.find_first_of(",_' ");
    if (mark == 0 || mark > 3 || mark == std::string_view::npos) return std::string(text);
    std::string digits(text.substr(0, mark));
    for (std::size_t at = mark; at < text.size(); at += 4) {
        const std::string_view group = text.substr(at, 4);
        const bool isGroup =
            group.size() == 4 && group[0] == text[mark] && std::all_of(group.begin() + 1, group.end(), isDigit);
        if (!isGroup) return std::string(text);
        digits += group.substr(1);
    }
    return std::all_of(digits.begin(), digits.end(), isDigit) ? digits : std::string(text);
}

// The number in the text, in any notation that people use.
std::optional<double> anyNumber(std::string_view text, NumberKind kind) {
    if (text.size() > 2 && text[0] == '0' && (text[1] == 'x' || text[1] == 'X')) {
        const bool isHex = text.find_first_not_of("0123456789abcdefABCDEF", 2) == std::string_view::npos;
        return isHex ? std::optional<double>(looseDouble(text)) : std::nullopt;
    }
    const bool isDecimal = kind == NumberKind::Decimal;
    const bool hasGroup = text.find_first_of(",_' ") != std::string_view::npos;
    // With fractions allowed, 1,000 is ambiguous: a thousand, or one with a decimal comma.
    const bool isUnclear = isDecimal && text.find(',') != std::string_view::npos && text.size() - text.find(',') == 4;
    if (isUnclear) return std::nullopt;
    std::string digits = hasGroup ? withoutGrouping(text) : std::string(text);
    if (isDecimal && std::count(digits.begin(), digits.end(), ',') == 1 && digits.find('.') == std::string::npos) {
        std::replace(digits.begin(), digits.end(), ',', '.');
    }
    const auto number = strictDouble(digits);
    // Whoever wrote a number too small for a double did not mean 0.
    const bool isTiny = number && *number == 0 && digits.find_first_of("123456789") < digits.find_first_of("eE");
    return isTiny ? std::nullopt : number;
}

bool fits(double number, NumberKind kind) {
    if (kind == NumberKind::Decimal) return std::isfinite(number);
    // Beyond 9e15, doubles do not hold every whole number exactly.
    const double most = kind == NumberKind::Integer ? std::numeric_limits<std::int32_t>::max() : 9e15;
    return std::abs(number) <= most && std::trunc(number) == number;
}

}  // namespace

std::string_view withoutBlanks(std::string_view text) {
    const std::size_t first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

std::string numberMeant(std::string_view text, NumberKind kind) {
    if (text.size() > kLongestPiece) return {};
    const std::string ascii = inAscii(text);
    std::string_view rest = withoutBlanks(ascii);
    const double factor = takeUnit(rest, kind);
    const bool minus = !rest.empty() && rest.front() == '-';
    if (minus || (!rest.empty() && rest.front() == '+')) rest.remove_prefix(1);
    if (factor == 0 || rest.empty() || rest.front() == '-' || rest.front() == '+') return {};
    const auto number = anyNumber(rest, kind);
    if (!number) return {};
    // Fractions are rarely exact in binary; 12 digits print the number as a person would write it.
    const double meant = (minus ? -1 : 1) * (factor < 1 ? *number / 100 : *number * factor);
    if (!fits(meant, kind)) return {};
    return kind == NumberKind::Decimal ? fmt::format("{:.12g}", meant) : fmt::format("{:.0f}", meant);
}

std::string_view flagMeant(std::string_view text) {
    constexpr std::string_view kYes[] = {"true", "yes", "on", "y", "t", "enabled", "是", "开", "启用"};
    constexpr std::string_view kNo[] = {"false", "no", "off", "n", "f", "disabled", "否", "关", "禁用", "停用"};
    const auto isText = [text](std::string_view word) { return isSameUpper(word, text); };
    if (std::any_of(std::begin(kYes), std::end(kYes), isText)) return "1";
    if (std::any_of(std::begin(kNo), std::end(kNo), isText)) return "0";
    return {};
}

std::string wholeNumberIn(std::string_view text) {
    constexpr std::string_view kAround = "[](){}<>\"'`;:.=|/ \t";
    const std::size_t first = text.find_first_not_of(kAround);
    if (first == std::string_view::npos) return {};
    return numberMeant(text.substr(first, text.find_last_not_of(kAround) - first + 1), NumberKind::Integer);
}

std::string limitItemMeant(std::string_view text) {
    if (text.size() > kLongestPiece || text.find_first_of(",;") != std::string_view::npos) return {};
    constexpr std::string_view kSigns = "._:/| \\";
    const std::size_t sign = text.find_first_of(kSigns);
    if (sign != std::string_view::npos) {
        const std::string_view front = text.substr(0, sign);
        const std::string_view back = text.substr(sign + 1);
        if (front.empty() || back.empty()) return {};
        if (isNamedMarket(front)) return fmt::format("{}-{}", front, back);
        return isNamedMarket(back) ? fmt::format("{}-{}", back, front) : std::string();
    }
    // SH600000 and 600000SH: letters on one side, digits on the other.
    const auto split = std::find_if(text.begin(), text.end(), isDigit) - text.begin();
    const std::string_view letters = text.substr(0, static_cast<std::size_t>(split));
    if (letters.size() == text.size()) return {};
    if (isNamedMarket(letters)) return fmt::format("{}-{}", letters, text.substr(letters.size()));
    const auto end = std::find_if(text.begin(), text.end(), isLetter) - text.begin();
    const std::string_view digits = text.substr(0, static_cast<std::size_t>(end));
    if (digits.empty() || !isNamedMarket(text.substr(digits.size()))) return {};
    return fmt::format("{}-{}", text.substr(digits.size()), digits);
}

std::string_view codeBehindMarket(std::string_view text) {
    const std::size_t sign = text.find_first_of("-:");
    if (sign == std::string_view::npos || !isNamedMarket(text.substr(0, sign))) return {};
    return text.substr(sign + 1);
}

std::string withSigns(std::string_view text, std::string_view signs, char sign) {
    std::string written(text);
    for (char& c : written) {
        if (signs.find(c) != std::string_view::npos) c = sign;
    }
    return written;
}

std::string orWrite(std::string_view text, std::string_view otherwise) {
    if (text.empty() || text.size() > kLongestShown) return fmt::format("; {}", otherwise);
    return fmt::format("; write {}", shownText(text));
}

}  // namespace ttconfig
