// Value ranges: tells which numbers are plausible for a key.
// Entry points: rangeOf(), checkValueRange().
// Owns: the table of the ranges.
// Covered by tests/tools/ttconfig/findings/valueranges_test.cpp.

#include "ttconfig/checks/valueranges.h"

#include <fmt/format.h>

#include <array>
#include <iterator>

#include "traderbase/base/config/internal/text/strictnumbers.h"
#include "ttconfig/advice/names.h"
#include "ttconfig/text/showntext.h"

namespace ttconfig {

namespace {

using namespace ttservice::internal;

constexpr double kNoEnd = std::numeric_limits<double>::infinity();

constexpr ValueRange from(double least, std::string_view below) {
    return {least, kNoEnd, below, {}, false};
}

constexpr ValueRange within(double least, std::string_view below, double most, std::string_view above, bool isRatio) {
    return {least, most, below, above, isRatio};
}

constexpr ValueRange kAny{};

// Shared by several keys.
constexpr ValueRange kQuantity = from(1, "lets no order pass; write 1 or more");
constexpr ValueRange kNotNegative = from(0, "is negative, but counts; write 0 or more");
constexpr ValueRange kRate = from(0, "is no rate, but counts; write 0 or more");

// One row per key with numbers in its value; all fields of a value share the range. A key has no row when only the
// recipient of a number knows what it means, as with a counter's renewal modes or a vendor's parameters.
constexpr struct {
    const SettingKey* key;
    ValueRange range;
} kRanges[] = {
    // The limit of a hundred years catches a date in place of a number of days.
    {&keys::flowHistoryDays, within(-1, "is no number of days, but counts; write -1 or more", 36500,
                                    "is more than a hundred years, but counts; write a number of days", false)},
    {&keys::refLimit, from(0, "is no limit of references, but counts; write 0 or more")},

    {&keys::counterMaxCompacts, from(1, "is no number of answers, but counts; write 1 or more")},
    {&keys::counterIpwanPos, from(0, "counts as yes, as every number but 0 does; write 0 or 1")},
    {&keys::specialEnableVolRate, kRate},
    {&keys::setAvailable, kNotNegative},

    {&keys::orderLimits, kQuantity},
    {&keys::connectShanghaiOrderLimits, kQuantity},
    {&keys::connectShenzhenOrderLimits, kQuantity},
    {&keys::blockTradeLimits, kQuantity},
    // Some of these numbers are fractions of a price and some are counts. Only the records know which, so there is no
    // common maximum.
    {&keys::stockRates, kRate},
    {&keys::connectShanghaiRates, kRate},
    {&keys::connectShenzhenRates, kRate},
    {&keys::shFixIncome, kNotNegative},
    {&keys::shLoanClickDeal, kNotNegative},
    {&keys::shLoanEnquiryDeal, kNotNegative},
    {&keys::shLoanBidDeal, kNotNegative},

    // 1.0, the value of a bond without a row, means the whole bond.
    {&keys::standardBondUse, within(0, "is no ratio, but counts; write a number from 0 to 1", 1,
                                    "is more than the whole, but counts; write a number from 0 to 1", true)},
    // A ratio of debt and collateral can exceed 1; the highest in use are a few hundred percent.
    {&keys::concentrationRatio,
     within(0, "is no ratio, but counts; write 0 or more", 5,
            "is a ratio of more than 500 percent, but counts; write it as a fraction", true)},
    {&keys::subscriptionFees, kNotNegative},
};

// Whether the grammar's values are numbers, any of which is plausible if the key has no row.
constexpr bool isPlainNumber(ValueGrammar grammar) {
    return grammar == ValueGrammar::Integer || grammar == ValueGrammar::PerPlatformInteger ||
           grammar == ValueGrammar::PerPlatformDecimalKeepEmpty || grammar == ValueGrammar::Contracts;
}

using ByNumber = std::array<const ValueRange*, std::size(kSettingKeys)>;

ByNumber byNumber() {
    ByNumber table{};
    for (const SettingKey& key : kSettingKeys) {
        if (isPlainNumber(key.grammar) && !key.feeds.empty()) table[key.number] = &kAny;
    }
    for (const auto& row : kRanges)
        table[row.key->number] = &row.range;
    return table;
}

}  // namespace

const ValueRange* rangeOf(const SettingKey& row) {
    static const ByNumber kTable = byNumber();
    return kTable[row.number];
}

void checkValueRange(EntryRemarks& remarks, const ValueRange* range, std::string_view field) {
    if (range == nullptr || range->isAny()) return;
    if (const auto number = strictDouble(field)) checkValueRange(remarks, range, field, *number);
}

void checkValueRange(EntryRemarks& remarks, const ValueRange* range, std::string_view field, double number) {
    if (range == nullptr || (number >= range->least && number <= range->most)) return;
    const std::string_view consequence = number < range->least ? range->below : range->above;
    remarks.wrong(RuleId::ValueOutOfRange, field, [&] {
        if (!range->isRatio || number <= range->most || number > 100) return std::string(consequence);
        return fmt::format("{}, such as {:.12g} for {} percent", consequence, number / 100, field);
    });
}

}  // namespace ttconfig
