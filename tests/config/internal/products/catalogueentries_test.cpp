#include "traderbase/base/config/internal/products/catalogueentries.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <string_view>
#include <vector>

using namespace ttservice::internal;

namespace {

constexpr std::array kOutcomes = {
    EntryOutcome::Stored,          EntryOutcome::DefaultNoFields, EntryOutcome::DefaultFieldCount,
    EntryOutcome::MarketIsCodes,   EntryOutcome::SkippedEmpty,    EntryOutcome::SkippedColons,
    EntryOutcome::SkippedNoRecord, EntryOutcome::KeptFormer,
};

// Whether a piece is a view into the text it came from.
bool isPartOf(std::string_view piece, std::string_view text) {
    return piece.data() >= text.data() && piece.data() + piece.size() <= text.data() + text.size();
}

}  // namespace

TEST(EntryOutcomes, EachHasWordsOfItsOwn) {
    std::vector<std::string_view> told;
    for (const EntryOutcome outcome : kOutcomes) {
        const std::string_view words = describe(outcome);
        EXPECT_FALSE(words.empty());
        EXPECT_EQ(words.substr(0, 6) == "stored", isStored(outcome)) << words;
        for (const std::string_view other : told)
            EXPECT_NE(words, other);
        told.push_back(words);
    }
}

TEST(PairEntries, HaveExactlyOneColon) {
    struct Row {
        std::string text;
        EntryOutcome outcome;
        std::string first, second;
    };
    const std::vector<Row> rows = {
        {"S1:Name1", EntryOutcome::Stored, "S1", "Name1"},
        {"S1:", EntryOutcome::Stored, "S1", ""},
        {":Name1", EntryOutcome::Stored, "", "Name1"},
        {":", EntryOutcome::Stored, "", ""},
        {" S1 : Name1 ", EntryOutcome::Stored, " S1 ", " Name1 "},
        {"", EntryOutcome::SkippedEmpty, "", ""},
        {"bad", EntryOutcome::SkippedColons, "", ""},
        {"S2:Name2:extra", EntryOutcome::SkippedColons, "", ""},
        {"::", EntryOutcome::SkippedColons, "", ""},
    };
    for (const Row& row : rows) {
        const PairEntry entry = pairEntry(row.text);
        EXPECT_EQ(entry.text.data(), row.text.data()) << row.text;
        EXPECT_EQ(entry.text, row.text);
        EXPECT_EQ(entry.outcome, row.outcome) << row.text;
        EXPECT_EQ(entry.first, row.first) << row.text;
        EXPECT_EQ(entry.second, row.second) << row.text;
        if (isStored(entry.outcome)) {
            EXPECT_TRUE(isPartOf(entry.first, row.text) && isPartOf(entry.second, row.text)) << row.text;
        }
    }
}

TEST(ContractEntries, HaveAProductAndFiveFields) {
    struct Row {
        std::string text;
        EntryOutcome outcome;
        std::string productId;
    };
    const std::vector<Row> rows = {
        {"P1:x,1.5,7,3,1", EntryOutcome::Stored, "P1"},
        {"P1:,,,,", EntryOutcome::Stored, "P1"},
        {":x,1.5,7,3,1", EntryOutcome::Stored, ""},
        {"P1:", EntryOutcome::DefaultNoFields, "P1"},
        {"P1:x", EntryOutcome::DefaultFieldCount, "P1"},
        {"P1:x,1.5,7", EntryOutcome::DefaultFieldCount, "P1"},
        {"P1:x,1,2,,3,0", EntryOutcome::DefaultFieldCount, "P1"},
        {"P1:x,1,2,3,0,", EntryOutcome::DefaultFieldCount, "P1"},
        {"", EntryOutcome::SkippedEmpty, ""},
        {"P1", EntryOutcome::SkippedColons, ""},
        {"P1:a:b", EntryOutcome::SkippedColons, ""},
        {"P1::x,1,2,3,0", EntryOutcome::SkippedColons, ""},
    };
    for (const Row& row : rows) {
        const ContractEntry entry = contractEntry(row.text);
        EXPECT_EQ(entry.outcome, row.outcome) << row.text;
        EXPECT_EQ(entry.productId, row.productId) << row.text;
        EXPECT_EQ(entry.text, row.text);
        if (entry.outcome != EntryOutcome::Stored) {
            for (const std::string_view field : entry.fields)
                EXPECT_EQ(field, "") << row.text;
        }
    }
    const std::string text = "P1:x,1.5,7,3,1";
    const ContractEntry entry = contractEntry(text);
    EXPECT_EQ(entry.fields, (std::array<std::string_view, 5>{"x", "1.5", "7", "3", "1"}));
    for (const std::string_view field : entry.fields)
        EXPECT_TRUE(isPartOf(field, text));
}

TEST(MarketCodesEntries, AreSplitAtTheFirstColonAndServeAsBothWithoutOne) {
    struct Row {
        std::string text;
        EntryOutcome outcome;
        std::string market, codes;
    };
    const std::vector<Row> rows = {
        {"SZSE:159001,159002", EntryOutcome::Stored, "SZSE", "159001,159002"},
        {"SZSE:1:2", EntryOutcome::Stored, "SZSE", "1:2"},
        {"SZSE:", EntryOutcome::Stored, "SZSE", ""},
        {":159001", EntryOutcome::Stored, "", "159001"},
        {"SZSE", EntryOutcome::MarketIsCodes, "SZSE", "SZSE"},
        {"A,B", EntryOutcome::MarketIsCodes, "A,B", "A,B"},
        {"", EntryOutcome::MarketIsCodes, "", ""},
    };
    for (const Row& row : rows) {
        const MarketCodesEntry entry = marketCodesEntry(row.text);
        EXPECT_EQ(entry.outcome, row.outcome) << row.text;
        EXPECT_EQ(entry.market, row.market) << row.text;
        EXPECT_EQ(entry.codes, row.codes) << row.text;
        EXPECT_TRUE(isPartOf(entry.market, row.text) && isPartOf(entry.codes, row.text)) << row.text;
    }
}

TEST(TagEntries, NeedAColonAndIgnoreWhatFollowsASecondOne) {
    struct Row {
        std::string text;
        EntryOutcome outcome;
        std::string tag, times;
    };
    const std::vector<Row> rows = {
        {"T1:1000,1400", EntryOutcome::Stored, "T1", "1000,1400"},
        {"T1:", EntryOutcome::Stored, "T1", ""},
        {":1000", EntryOutcome::Stored, "", "1000"},
        {"T1:1000:1400:", EntryOutcome::Stored, "T1", "1000"},
        {"T1", EntryOutcome::KeptFormer, "", ""},
        {"", EntryOutcome::KeptFormer, "", ""},
    };
    for (const Row& row : rows) {
        const TagEntry entry = tagEntry(row.text);
        EXPECT_EQ(entry.outcome, row.outcome) << row.text;
        EXPECT_EQ(entry.tag, row.tag) << row.text;
        EXPECT_EQ(entry.times, row.times) << row.text;
    }
}

TEST(Entries, StandBetweenSemicolonsEmptyOnesIncluded) {
    struct Row {
        std::string value;
        std::vector<std::string_view> entries;
    };
    const std::vector<Row> rows = {
        {"a:b;;c", {"a:b", "", "c"}},
        {";", {"", ""}},
        {"", {""}},
        {"a:b", {"a:b"}},
    };
    for (const Row& row : rows) {
        std::vector<std::string_view> texts;
        forEachEntry(kT0Strategies, row.value, [&](const PairEntry& entry) {
            EXPECT_TRUE(isPartOf(entry.text, row.value));
            texts.push_back(entry.text);
        });
        EXPECT_EQ(texts, row.entries) << row.value;
    }
}
