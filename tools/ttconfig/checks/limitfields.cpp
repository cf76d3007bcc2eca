// Limit fields: reports what is wrong with the fields of a row of the limit sections.
// Entry points: checkLimitFields().
// Covered by tests/tools/ttconfig/findings/checkrules_test.cpp.

#include "ttconfig/checks/limitfields.h"

#include <fmt/format.h>

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "traderbase/base/config/internal/text/strictnumbers.h"
#include "traderbase/base/config/internal/words/unitwords.h"
#include "ttconfig/advice/advice.h"
#include "ttconfig/advice/causes.h"
#include "ttconfig/checks/numberchecks.h"

namespace ttconfig {

namespace {

using namespace ttservice::internal;

static_assert(kShares.size() == kFundUnits.size() && kShares.size() == kBonds.size() && kShares.size() == kLots.size());

bool isUsualUnit(std::string_view unit) {
    return unit == kShares || unit == kFundUnits || unit == kBonds || unit == kLots;
}

bool isDigitsAlone(std::string_view text) {
    return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

// The number that the whole field spells; nothing if it is not a number.
std::optional<double> numberOf(std::string_view field, LimitField kind) {
    if (kind == LimitField::Decimal) return strictDouble(field);
    const auto number = strictInt(field);
    return number ? std::optional<double>(*number) : std::nullopt;
}

// Whether each field of the value is of the kind that the shape has there.
bool fitsShape(std::string_view value, const FieldShape& shape) {
    if (fieldCount(value) != shape.count) return false;
    const LimitField* kind = shape.fields;
    bool fits = true;
    splitKeepEmpty(value, ',', [&](std::string_view field) {
        fits = fits && (*kind == LimitField::Text ? isUsualUnit(field) : numberOf(field, *kind).has_value());
        ++kind;
    });
    return fits;
}

// 1,000,000,股 with the commas inside the number removed.
std::string withoutInnerCommas(std::string_view value) {
    std::string joined;
    std::string_view before;
    splitKeepEmpty(value, ',', [&](std::string_view piece) {
        const bool goesOn = piece.size() == 3 && isDigitsAlone(piece) && isDigitsAlone(before);
        joined += (before.empty() || goesOn ? "" : ",") + std::string(piece);
        before = piece;
    });
    return joined;
}

// The number and the unit separated by a comma: 100,股 for 100股. Also reads 1,000股 and 100万 股; empty for any
// other value.
std::string withUnitApart(std::string_view value) {
    const std::size_t size = kShares.size();
    if (value.size() <= size || !isUsualUnit(value.substr(value.size() - size))) return {};
    const std::string number = numberMeant(value.substr(0, value.size() - size), NumberKind::Integer);
    return number.empty() ? number : fmt::format("{},{}", number, value.substr(value.size() - size));
}

// The value with its unit word moved to the second field: 100,股,5 for 股,100,5 and for 100,5,股; empty without a unit
// word.
std::string withUnitSecond(std::string_view value) {
    std::vector<std::string_view> fields;
    splitKeepEmpty(value, ',', [&fields](std::string_view field) { fields.push_back(field); });
    const auto unit = std::find_if(fields.begin(), fields.end(), isUsualUnit);
    if (unit == fields.end() || fields.size() < 2) return {};
    const std::string_view word = *unit;
    fields.erase(unit);
    fields.insert(fields.begin() + 1, word);
    return fmt::format("{}", fmt::join(fields, ","));
}

// The value that was meant, if only its separators, the place of its unit or trailing commas are wrong; empty
// otherwise.
std::string rowMeant(std::string_view value, const FieldShape& shape) {
    const std::string ascii = inAscii(value);
    const std::string meant[] = {withSigns(ascii, ";|/:", ','), withUnitApart(ascii),
                                 withoutInnerCommas(ascii),     withSigns(ascii, " \t", ','),
                                 withUnitSecond(ascii),         ascii.substr(0, ascii.find_last_not_of(',') + 1)};
    for (const std::string& each : meant) {
        if (fitsShape(each, shape)) return each;
    }
    return {};
}

void sayWrongCount(EntryRemarks& remarks, const FieldShape& shape) {
    const std::string_view value = remarks.value();
    const std::size_t found = fieldCount(value);
    const std::string meant = rowMeant(value, shape);
    const bool isSeparator = !meant.empty() && found == 1 && value.find_first_of(";|/:") != std::string_view::npos;
    remarks.wrong(isSeparator ? RuleId::WrongSeparator : RuleId::WrongFieldCount, value, [&] {
        return fmt::format("has {} field{} and not {}, so that the row is passed over{}", found, found == 1 ? "" : "s",
                           shape.count, orWrite(meant, fmt::format("write {}", shape.inWords)));
    });
}

void checkUnit(EntryRemarks& remarks, std::string_view unit) {
    if (isUsualUnit(unit)) return;
    const std::string advice = fmt::format("write {}, {}, {} or {}", kShares, kFundUnits, kBonds, kLots);
    if (unit.empty()) {
        remarks.say(RuleId::UnusualUnit, unit, [&] { return fmt::format("there is no unit word; {}", advice); });
    } else {
        remarks.wrong(RuleId::UnusualUnit, unit, [&] { return fmt::format("is no unit word in use; {}", advice); });
    }
}

// Whether a misplaced unit word is all that is wrong with the value. Reports it.
bool isTurnedRound(EntryRemarks& remarks, const FieldShape& shape) {
    if (shape.count < 2 || shape.fields[1] != LimitField::Text) return false;
    const std::string_view value = remarks.value();
    const std::string_view first = value.substr(0, value.find(','));
    const std::string_view behind = value.substr(first.size() + 1);
    if (isUsualUnit(behind.substr(0, behind.find(',')))) return false;
    const std::string_view unit = isUsualUnit(first) ? first : value.substr(value.rfind(',') + 1);
    if (!isUsualUnit(unit)) return false;
    const std::string meant = withUnitSecond(value);
    if (!fitsShape(meant, shape)) return false;
    remarks.wrong(RuleId::NumberReadsAsZero, value, [&] {
        return "has its unit where a number belongs, which reads as 0" + orWrite(meant, "write the unit second");
    });
    return true;
}

}  // namespace

bool checkLimitFields(EntryRemarks& remarks, const FieldShape& shape, const ValueRange* range) {
    if (fieldCount(remarks.value()) != shape.count) {
        sayWrongCount(remarks, shape);
        return false;
    }
    if (isTurnedRound(remarks, shape)) return true;
    const LimitField* kind = shape.fields;
    splitKeepEmpty(remarks.value(), ',', [&](std::string_view field) {
        const LimitField here = *kind++;
        if (here == LimitField::Text) return checkUnit(remarks, field);
        if (const auto number = numberOf(field, here)) return checkValueRange(remarks, range, field, *number);
        checkLooseNumber(remarks, field, here == LimitField::Integer ? NumberKind::Integer : NumberKind::Decimal,
                         "the field");
    });
    return true;
}

}  // namespace ttconfig
