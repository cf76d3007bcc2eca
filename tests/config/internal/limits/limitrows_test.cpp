#include "traderbase/base/config/internal/limits/limitrows.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace ttservice::internal;

namespace {

std::vector<std::string> places(std::string_view key) {
    std::vector<std::string> found;
    forEachLimitItem(key, [&found](const LimitItem& item) {
        const MarketItem place = tableKey(item);
        found.push_back(place.first + "|" + place.second);
    });
    return found;
}

// "finding text@offset" for each remark; offsets count from the start of the text examined.
std::vector<std::string> shown(const std::vector<LimitRowRemark>& remarks, std::string_view text) {
    std::vector<std::string> all;
    for (const LimitRowRemark& remark : remarks) {
        const char* const names[] = {"fields", "dash", "number"};
        all.push_back(std::string(names[static_cast<int>(remark.finding)]) + " " + std::string(remark.where) + "@" +
                      std::to_string(remark.where.data() - text.data()));
    }
    return all;
}

}  // namespace

TEST(LimitRows, AnItemIsSplitAtItsFirstDash) {
    struct {
        const char* text;
        const char* market;
        const char* item;
        bool hasDash;
    } const rows[] = {
        {"SH-600000", "SH", "600000", true},
        {"SH-STOCK", "SH", "STOCK", true},
        {"SH-A-B", "SH", "A-B", true},
        {"SH--A", "SH", "-A", true},
        {"-600000", "", "600000", true},
        {"SH-", "SH", "", true},
        {"-", "", "", true},
        {"SH600000", "SH600000", "SH600000", false},
        {"", "", "", false},
        {" SH - 1 ", " SH ", " 1 ", true},
        {"sh-a", "sh", "a", true},
    };
    for (const auto& row : rows) {
        const LimitItem item = limitItem(row.text);
        EXPECT_EQ(item.text, row.text);
        EXPECT_EQ(item.market, row.market) << row.text;
        EXPECT_EQ(item.item, row.item) << row.text;
        EXPECT_EQ(item.hasDash, row.hasDash) << row.text;
    }
}

TEST(LimitRows, AnItemWithoutDashIsBothMarketAndItem) {
    EXPECT_EQ(places("abc"), (std::vector<std::string>{"ABC|ABC"}));
}

TEST(LimitRows, BothHalvesAreUpperCased) {
    EXPECT_EQ(places("sh-rb2510,Szo-Market"), (std::vector<std::string>{"SH|RB2510", "SZO|MARKET"}));
}

TEST(LimitRows, ItemsAreSeparatedByCommasAndNotTrimmed) {
    EXPECT_EQ(places("SH-1,SZ-2"), (std::vector<std::string>{"SH|1", "SZ|2"}));
    EXPECT_EQ(places("SH-1, SZ-2"), (std::vector<std::string>{"SH|1", " SZ|2"}));
    EXPECT_EQ(places("SH-1,,SZ-2,"), (std::vector<std::string>{"SH|1", "|", "SZ|2", "|"}));
}

TEST(LimitRows, FieldsAreCountedWithTheEmptyOnes) {
    struct {
        const char* value;
        std::size_t fields;
    } const rows[] = {{"", 1}, {"1", 1}, {"1,", 2}, {",", 2}, {"1,,2", 3}, {",,", 3}, {"1,2,3,4,5,6,7", 7}};
    for (const auto& row : rows)
        EXPECT_EQ(fieldCount(row.value), row.fields) << row.value;
}

TEST(LimitRows, ShapesHaveTheirFieldCounts) {
    EXPECT_EQ(kOrderLimitRow.size(), 2U);
    EXPECT_EQ(kBlockTradeLimitRow.size(), 3U);
    EXPECT_EQ(kStockRateRow.size(), 7U);
    EXPECT_EQ(kConnectRateRow.size(), 14U);
    EXPECT_EQ(kFixedIncomeRow.size(), 7U);
    for (const LimitField field : kConnectRateRow)
        EXPECT_EQ(field, LimitField::Decimal);
    EXPECT_EQ(kStockRateRow.back(), LimitField::Integer);
    EXPECT_EQ(kFixedIncomeRow.front(), LimitField::Decimal);
}

TEST(LimitRows, ItemsWithoutDashAreRemarkedOnWhereTheyStand) {
    const std::string_view key = "SH-1,600000,SZ-2,";
    EXPECT_EQ(shown(examineLimitKey(key), key), (std::vector<std::string>{"dash 600000@5", "dash @17"}));
    EXPECT_TRUE(examineLimitKey("SH-1,SZ-STOCK").empty());
}

TEST(LimitRows, AWrongFieldCountIsTheOnlyRemark) {
    for (const std::string_view value : {"x", "x,y,z", "", "100,a,b,c"}) {
        EXPECT_EQ(shown(examineLimitValue(value, kOrderLimitRow), value),
                  (std::vector<std::string>{"fields " + std::string(value) + "@0"}));
    }
}

TEST(LimitRows, LooseNumbersAreRemarkedOnWhereTheyStand) {
    struct {
        std::string_view value;
        std::vector<std::string> remarks;
    } const rows[] = {
        {"100,shares,5", {}},
        {"-1,,0", {}},
        {" 100,shares,5", {"number  100@0"}},
        {"1e3,shares,5.5", {"number 1e3@0", "number 5.5@11"}},
        {"x,shares,", {"number x@0", "number @9"}},
        {"3000000000,a,1", {"number 3000000000@0"}},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(shown(examineLimitValue(row.value, kBlockTradeLimitRow), row.value), row.remarks) << row.value;
    }
    const std::string_view rates = "0.1,.5,1e-3,x,5,6,7.5";
    EXPECT_EQ(shown(examineLimitValue(rates, kStockRateRow), rates),
              (std::vector<std::string>{"number x@12", "number 7.5@18"}));
}
