#include "traderbase/base/config/internal/limits/limittables.h"

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "traderbase/base/config/internal/limits/volumelimit.h"

using namespace ttservice::internal;

namespace {

struct WrittenRow {
    std::string_view key;
    std::string_view value;
    bool repeated = false;
};

// Sections as a source of rows.
struct WrittenRows {
    std::map<std::string_view, std::vector<WrittenRow>> sections;

    template <typename Sink>
    void forEach(const SettingKey& row, Sink&& sink) const {
        const auto found = sections.find(row.section);
        if (found == sections.end()) return;
        for (const WrittenRow& each : found->second)
            sink(each);
    }
};

std::string shownState(LimitRowState state) {
    switch (state) {
        case LimitRowState::Counts:
            return "counts";
        case LimitRowState::Repeated:
            return "repeated";
        case LimitRowState::WrongFieldCount:
            break;
    }
    return "wrong field count";
}

std::vector<std::string> walked(const LimitTableSpec& table, const WrittenRows& rows) {
    std::vector<std::string> all;
    forEachLimitRow(table, rows, [&all](const auto& row) {
        all.push_back(std::string(row.section.section) + " " + std::string(row.row.key) + " " +
                      std::to_string(row.foundFields) + " " + shownState(row.state));
    });
    return all;
}

}  // namespace

TEST(LimitTables, RowsComeInTheOrderOfALoad) {
    const WrittenRows rows{{{"SgtExchangeOrderLimit", {{"SGT-1", "1,a"}}},
                            {"HGTExchangeOrderLimit", {{"HGT-2", "1,a"}, {"HGT-1", "1,a"}}},
                            {"StkExchangeOrderLimit", {{"SH-1", "1,a"}}},
                            {"StkExchangeRateLimit", {{"SH-1", "1,a"}}}}};
    EXPECT_EQ(
        walked(kOrderLimitTable, rows),
        (std::vector<std::string>{"StkExchangeOrderLimit SH-1 2 counts", "HGTExchangeOrderLimit HGT-2 2 counts",
                                  "HGTExchangeOrderLimit HGT-1 2 counts", "SgtExchangeOrderLimit SGT-1 2 counts"}));
}

TEST(LimitTables, ARepeatedKeyAndAWrongFieldCountAreToldApart) {
    const WrittenRows rows{{{"StkExchangeDazongOrderLimit",
                             {{"SH-STOCK", "1,a,2"},
                              {"SH-STOCK", "2,a,2", true},
                              {"SH-STOCK", "2,a", true},
                              {"SH-FUND", ""},
                              {"SH-FUND", "1,a,2,3"}}}}};
    const std::string section = "StkExchangeDazongOrderLimit ";
    EXPECT_EQ(walked(kBlockTradeTable, rows),
              (std::vector<std::string>{section + "SH-STOCK 3 counts", section + "SH-STOCK 3 repeated",
                                        section + "SH-STOCK 2 repeated", section + "SH-FUND 1 wrong field count",
                                        section + "SH-FUND 4 wrong field count"}));
}

TEST(LimitTables, MoreFieldsThanAnyTableHasAreCounted) {
    LimitFieldTexts fields;
    EXPECT_EQ(splitLimitFields("0,1,2,3,4,5,6,7,8,9,10,11,12,13,14,15", fields), 16U);
    EXPECT_EQ(fields.back(), "13");
    EXPECT_EQ(splitLimitFields("", fields), 1U);
    EXPECT_EQ(fields.front(), "");
}

TEST(LimitTables, EverySectionOfRowsHasItsTable) {
    for (const SettingKey& row : kSettingKeys) {
        const LimitTableSpec* table = limitTableOf(row.section);
        const std::map<ValueGrammar, std::size_t> fields = {{ValueGrammar::OrderLimitRow, 2},
                                                            {ValueGrammar::BlockTradeLimitRow, 3},
                                                            {ValueGrammar::StockRateRow, 7},
                                                            {ValueGrammar::ConnectRateRow, 14}};
        const auto expected = fields.find(row.grammar);
        EXPECT_EQ(table == nullptr ? 0 : table->fieldCount, expected == fields.end() ? 0 : expected->second)
            << row.section;
    }
}

TEST(LimitTables, AQuestionsFieldsAreFieldsOfItsTable) {
    for (const LimitQuestionSpec* question : kLimitQuestions) {
        EXPECT_LE(question->firstField + question->fieldCount, question->table->fieldCount) << question->operation;
        LimitFieldTexts fields;
        EXPECT_EQ(splitLimitFields(question->withoutRow, fields), question->fieldCount) << question->operation;
        for (const SettingKey* section : question->table->sections)
            EXPECT_NE(section->feeds.find(question->operation), std::string_view::npos) << question->operation;
    }
}

TEST(LimitTables, WithoutARowTheDefaultHolds) {
    const VolumeLimit limit = volumeLimitWithoutRow();
    const std::string volume = std::to_string(limit.first) + "," + limit.second;
    EXPECT_EQ(kOrderLimitQuestion.withoutRow, volume);
    EXPECT_EQ(kBlockTradeQuantityQuestion.withoutRow, volume);
    EXPECT_EQ(kBlockTradeAmountQuestion.withoutRow, std::to_string(kLimitWithoutRow));
}

TEST(LimitTables, TheConnectsAnswerForHongKong) {
    EXPECT_EQ(marketLookedFor(kShanghaiConnectRateQuestion, "HK"), "HGT");
    EXPECT_EQ(marketLookedFor(kShenzhenConnectRateQuestion, "HK"), "SGT");
    EXPECT_EQ(marketLookedFor(kShenzhenConnectRateQuestion, "HGT"), "HGT");
    EXPECT_EQ(marketLookedFor(kStockRateQuestion, "HK"), "HK");
    EXPECT_EQ(marketLookedFor(kOrderLimitQuestion, "HK"), "HK");
}

TEST(LimitTables, AFieldIsReadAsItsShapeSays) {
    std::string shown;
    const auto add = [&shown](auto value) {
        if constexpr (std::is_same_v<decltype(value), std::string_view>) {
            shown += "[" + std::string(value) + "]";
        } else {
            shown += "[" + std::to_string(value) + "]";
        }
    };
    withFieldValue(LimitField::Integer, "12x", add);
    withFieldValue(LimitField::Decimal, "0.5x", add);
    withFieldValue(LimitField::Text, " x", add);
    EXPECT_EQ(shown, "[12][0.500000][ x]");

    VolumeLimit limit;
    int amount = 0;
    LimitFieldTexts fields;
    splitLimitFields("12x,lots,7", fields);
    readLimitFields<kBlockTradeLimitRow>(fields, limit.first, limit.second, amount);
    EXPECT_EQ(limit, VolumeLimit(12, "lots"));
    EXPECT_EQ(amount, 7);
}
