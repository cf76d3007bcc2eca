// Number checks: reports what is wrong with the numbers in pieces of a value.
// Covered by tests/tools/ttconfig/findings/checkrules_test.cpp.

#include "ttconfig/checks/numberchecks.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <system_error>

#include "traderbase/base/config/internal/text/digits.h"
#include "traderbase/base/config/internal/text/strictnumbers.h"
#include "ttconfig/advice/advice.h"

namespace ttconfig {

namespace {

using namespace ttservice::internal;

std::string_view withoutSign(std::string_view text) {
    if (!text.empty() && (text.front() == '+' || text.front() == '-')) text.remove_prefix(1);
    return text;
}

bool isStrict(std::string_view field, NumberKind kind) {
    if (kind == NumberKind::Decimal) return strictDouble(field).has_value();
    if (strictInt(field)) return true;
    if (kind != NumberKind::Long || !isWholeNumber(field)) return false;
    long long number = 0;
    if (field.front() == '+') field.remove_prefix(1);
    return std::from_chars(field.data(), field.data() + field.size(), number).ec == std::errc();
}

// Whether the field has only the characters of a decimal number, however large.
bool isDecimalText(std::string_view field) {
    field = withoutSign(field);
    return !field.empty() && (isDigit(field.front()) || field.front() == '.') &&
           field.find_first_not_of("0123456789.eE+-") == std::string_view::npos;
}

// The number that the field is read as, in words.
std::string readAs(std::string_view field, NumberKind kind) {
    if (kind == NumberKind::Integer) return fmt::to_string(looseInt(field));
    if (kind == NumberKind::Long) return fmt::to_string(looseLong(field));
    const double number = looseDouble(field);
    if (std::isnan(number)) return "no number at all, which no comparison fits";
    if (std::isinf(number)) return number < 0 ? "minus infinity" : "infinity";
    return fmt::format("{:g}", number);
}

bool beginsNumber(std::string_view field) {
    const std::size_t start = field.find_first_not_of(" \t");
    if (start == std::string_view::npos) return false;
    field = withoutSign(field.substr(start));
    if (!field.empty() && field.front() == '.') field.remove_prefix(1);
    return !field.empty() && isDigit(field.front());
}

}  // namespace

bool isWholeNumber(std::string_view text) {
    text = withoutSign(text);
    return !text.empty() && std::all_of(text.begin(), text.end(), isDigit);
}

bool isNumberList(std::string_view text, std::string_view separators) {
    std::size_t count = 0;
    for (std::size_t from = 0; from <= text.size();) {
        const std::size_t end = std::min(text.find_first_of(separators, from), text.size());
        const std::string_view piece = text.substr(from, end - from);
        if (!piece.empty() && !isWholeNumber(piece)) return false;
        if (!piece.empty()) ++count;
        from = end + 1;
    }
    return count >= 2;
}

std::string writeNumber(std::string_view text, NumberKind kind, std::string_view otherwise) {
    const std::string meant = numberMeant(text, kind);
    return meant.empty() ? std::string(otherwise) : "write " + meant;
}

bool checkLooseNumber(EntryRemarks& remarks, std::string_view field, NumberKind kind, std::string_view role) {
    if (isStrict(field, kind)) return true;
    if (field.empty()) {
        remarks.say(RuleId::NumberReadsAsZero, field,
                    [&] { return fmt::format("there is no number: {} reads as 0; write one", role); });
        return false;
    }
    const std::string read = readAs(field, kind);
    if (kind == NumberKind::Decimal && isDecimalText(field) && std::isinf(looseDouble(field))) {
        remarks.wrong(RuleId::NumberOutOfRange, field, [&] {
            return fmt::format("is larger than any number: {} reads as {}; write a smaller one", role, read);
        });
    } else if (kind != NumberKind::Decimal && isWholeNumber(field)) {
        remarks.wrong(RuleId::NumberOutOfRange, field, [&] {
            return fmt::format("does not fit the {} bits of {}, which reads as {}; write a smaller number",
                               kind == NumberKind::Long ? 64 : 32, role, read);
        });
    } else if (beginsNumber(field) || read != "0") {
        const bool isWhole = kind != NumberKind::Decimal;
        const std::string_view otherwise = isWhole               ? "write a whole number"
                                           : beginsNumber(field) ? "write the number alone"
                                                                 : "write a number";
        remarks.wrong(RuleId::NumberPartlyRead, field, [&] {
            return fmt::format("is no plain {}number: {} reads as {}; {}", isWhole ? "whole " : "", role, read,
                               writeNumber(field, kind, otherwise));
        });
    } else {
        remarks.wrong(RuleId::NumberReadsAsZero, field, [&] {
            return fmt::format("is no number: {} reads as 0; {}", role, writeNumber(field, kind, "write a number"));
        });
    }
    return false;
}

bool checkPlatformId(EntryRemarks& remarks, std::string_view piece, std::string_view becomes, std::string_view advice) {
    if (strictInt(piece)) return true;
    if (isWholeNumber(piece)) {
        remarks.wrong(RuleId::PlatformIdOutOfRange, piece,
                      [&] { return fmt::format("does not fit 32 bits, and {}; {}", becomes, advice); });
    } else {
        remarks.wrong(RuleId::BadPlatformId, piece, [&] {
            const std::string meant = wholeNumberIn(piece);
            return fmt::format("is no platform ID, and {}; {}", becomes, meant.empty() ? advice : "write " + meant);
        });
    }
    return false;
}

void checkLooseFlag(EntryRemarks& remarks, std::string_view field, std::string_view role) {
    const auto number = strictInt(field);
    if (number && (*number == 0 || *number == 1)) return;
    if (number) {
        return remarks.wrong(RuleId::FlagNotZeroOrOne, field,
                             [&] { return fmt::format("counts as no for {}; write 0 or 1", role); });
    }
    if (beginsNumber(field) || field.empty()) {
        checkLooseNumber(remarks, field, NumberKind::Integer, role);
        return;
    }
    remarks.wrong(RuleId::NumberReadsAsZero, field, [&] {
        const std::string_view meant = flagMeant(field);
        return fmt::format("is no number: {} reads as 0; write {}", role, meant.empty() ? "0 or 1" : meant);
    });
}

}  // namespace ttconfig
