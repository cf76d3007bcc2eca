// Value ranges: every number of the catalogue has one, and both ends of each are as documented.

#include <gtest/gtest.h>

#include <cmath>
#include <set>
#include <string>

#include "ttconfig/checks/valueranges.h"

namespace {

using namespace ttconfig;
using ttservice::internal::kSettingKeys;
using ttservice::internal::SettingKey;
using ttservice::internal::ValueGrammar;

// Whether values of the grammar contain numbers other than platform IDs and flags.
bool holdsNumbers(ValueGrammar grammar) {
    const std::set<ValueGrammar> numbers = {ValueGrammar::Integer,
                                            ValueGrammar::Decimal,
                                            ValueGrammar::PerPlatformInteger,
                                            ValueGrammar::OrderLimitRow,
                                            ValueGrammar::StockRateRow,
                                            ValueGrammar::PerPlatformDecimalKeepEmpty,
                                            ValueGrammar::ConnectRateRow,
                                            ValueGrammar::Contracts,
                                            ValueGrammar::BlockTradeLimitRow,
                                            ValueGrammar::PlatformRatioPairs,
                                            ValueGrammar::FixedIncomeNumbers};
    return numbers.count(grammar) > 0;
}

TEST(ValueRanges, EveryKeyWithNumbersThatHasAnEffectHasOne) {
    for (const SettingKey& row : kSettingKeys) {
        const bool isWanted = holdsNumbers(row.grammar) && !row.feeds.empty();
        EXPECT_EQ(rangeOf(row) != nullptr, isWanted) << row.section << ' ' << row.key;
    }
}

TEST(ValueRanges, SayWhatIsWrongBeyondEachEnd) {
    for (const SettingKey& row : kSettingKeys) {
        const ValueRange* range = rangeOf(row);
        if (range == nullptr) continue;
        EXPECT_EQ(std::isfinite(range->least), !range->below.empty()) << row.key;
        EXPECT_EQ(std::isfinite(range->most), !range->above.empty()) << row.key;
        EXPECT_LT(range->least, range->most) << row.key;
        EXPECT_EQ(range->isAny(), range->below.empty() && range->above.empty()) << row.key;
    }
}

// The built-in defaults must cause no warning.
TEST(ValueRanges, HoldTheDefaults) {
    for (const SettingKey& row : kSettingKeys) {
        const ValueRange* range = rangeOf(row);
        if (range == nullptr || row.whenMissing.empty()) continue;
        const double value = std::stod(std::string(row.whenMissing));
        EXPECT_TRUE(range->least <= value && value <= range->most) << row.key;
    }
}

}  // namespace
