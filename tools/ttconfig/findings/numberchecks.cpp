// Number checks: answers what is wrong with the numbers in pieces of a value.
// Doors: those of the header.
// Owns: nothing.
// Covered by tests/tools/ttconfig/findings/checkrules_test.cpp.

#include "ttconfig/findings/numberchecks.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <system_error>

#include "traderbase/base/config/internal/strictnumbers.h"

namespace ttconfig {

namespace {

using namespace ttservice::internal;

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

std::string_view withoutSign(std::string_view text) {
    if (!text.empty() && (text.front() == '+' || text.front() == '-')) text.remove_prefix(1);
    return text;
}

bool isStrict(std::string_view field, LooseKind kind) {
    if (kind == LooseKind::Decimal) return strictDouble(field).has_value();
    if (strictInt(field)) return true;
    if (kind != LooseKind::Long || !isWholeNumber(field)) return false;
    long long number = 0;
    if (field.front() == '+') field.remove_prefix(1);
    return std::from_chars(field.data(), field.data() + field.size(), number).ec == std::errc();
}

std::string readAs(std::string_view field, LooseKind kind) {
    if (kind == LooseKind::Integer) return fmt::to_string(looseInt(field));
    if (kind == LooseKind::Long) return fmt::to_string(looseLong(field));
    return fmt::format("{:g}", looseDouble(field));
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

bool checkLooseNumber(EntryRemarks& remarks, std::string_view field, LooseKind kind, std::string_view role) {
    if (isStrict(field, kind)) return true;
    const std::string read = readAs(field, kind);
    if (kind != LooseKind::Decimal && isWholeNumber(field)) {
        remarks.wrong(RuleId::NumberOutOfRange, field, [&] {
            return fmt::format("does not fit the {} bits of {}, which reads as {}; write a smaller number",
                               kind == LooseKind::Long ? 64 : 32, role, read);
        });
    } else if (beginsNumber(field) || read != "0") {
        remarks.wrong(RuleId::NumberPartlyRead, field, [&] {
            return fmt::format("is no number as a whole: {} reads as {}; write the number alone", role, read);
        });
    } else {
        remarks.wrong(RuleId::NumberReadsAsZero, field,
                      [&] { return fmt::format("is no number: {} reads as 0; write a number", role); });
    }
    return false;
}

bool checkPlatformId(EntryRemarks& remarks, std::string_view piece, std::string_view consequence) {
    if (strictInt(piece)) return true;
    if (isWholeNumber(piece)) {
        remarks.wrong(RuleId::PlatformIdOutOfRange, piece,
                      [&] { return fmt::format("does not fit 32 bits, and {}", consequence); });
    } else {
        remarks.wrong(RuleId::BadPlatformId, piece,
                      [&] { return fmt::format("is no platform ID, and {}", consequence); });
    }
    return false;
}

void checkLooseFlag(EntryRemarks& remarks, std::string_view field, std::string_view role) {
    const auto number = strictInt(field);
    if (!number) {
        checkLooseNumber(remarks, field, LooseKind::Integer, role);
    } else if (*number != 0 && *number != 1) {
        remarks.wrong(RuleId::FlagNotZeroOrOne, field,
                      [&] { return fmt::format("counts as no for {}; write 0 or 1", role); });
    }
}

void checkLeast(EntryRemarks& remarks, std::string_view field, double least, std::string_view consequence) {
    const auto number = strictDouble(field);
    if (number && *number < least) remarks.wrong(RuleId::ValueOutOfRange, field, consequence);
}

}  // namespace ttconfig
