#include "standin/platformdata.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace standin {
namespace {

TEST(CodePatterns, PatternIsAnExactCodeOrAPrefixAndAFinalStar) {
    struct Row {
        const char* pattern;
        const char* code;
        bool matches;
    };
    const Row rows[] = {
        {"600000", "600000", true},
        {"600000", "6000000", false},
        {"600000", "60000", false},
        {"601*", "601", true},
        {"601*", "601398", true},
        {"601*", "60", false},
        {"601*", "602", false},
        {"601*", "1601", false},
        {"*", "", true},
        {"*", "anything", true},
        {"", "", true},
        {"", "x", false},
        {"6*1", "6*1", true},
        {"6*1", "601", false},
        {"6**", "6*", true},
        {"6**", "60", false},
        {"v*", "V1", false},
        {"股*", "股份", true},
        {"*0*", "*01", true},
        {"*0*", "10", false},
    };
    for (const Row& row : rows) {
        CodePatterns patterns;
        patterns.add(row.pattern);
        EXPECT_EQ(patterns.matches(row.code), row.matches) << row.pattern << " " << row.code;
    }
    EXPECT_FALSE(CodePatterns().matches(""));
}

TEST(CodePatterns, AgreeWithTryingEveryPatternInTurn) {
    std::mt19937 random(5);
    const auto upTo = [&random](int most) { return std::uniform_int_distribution<int>(0, most)(random); };
    const auto text = [&](int longest) {
        std::string made;
        for (int length = upTo(longest); length > 0; --length)
            made += static_cast<char>('a' + upTo(2));
        return made;
    };
    int hits = 0;
    for (int round = 0; round < 5000; ++round) {
        CodePatterns patterns;
        std::vector<std::string> all;
        for (int count = upTo(8); count >= 0; --count) {
            all.push_back(text(5) + (upTo(1) == 0 ? "*" : ""));
            // With the pattern "*" alone the round would check nothing.
            if (all.back() == "*") all.back() = "a*";
            patterns.add(all.back());
        }
        for (int question = 0; question < 10; ++question) {
            const std::string code = text(6);
            bool expected = false;
            for (const std::string& pattern : all) {
                const bool isPrefix = !pattern.empty() && pattern.back() == '*';
                expected = expected ||
                           (isPrefix ? code.rfind(pattern.substr(0, pattern.size() - 1), 0) == 0 : code == pattern);
            }
            ASSERT_EQ(patterns.matches(code), expected) << code;
            hits += expected ? 1 : 0;
        }
    }
    EXPECT_GT(hits, 5000);
    EXPECT_LT(hits, 45000);
}

TEST(PlatformData, EntriesForOneTypeAndMarketAddUpAndMarketsMatchExactly) {
    PlatformData data;
    data.addStockType(1, "SH", "600000");
    data.addStockType(1, "SH", "601*");
    data.addStockType(1, "SZ", "000001");
    data.addStockType(2, "SH", "*");
    EXPECT_TRUE(data.isStockType(1, "SH", "600000"));
    EXPECT_TRUE(data.isStockType(1, "SH", "601398"));
    EXPECT_TRUE(data.isStockType(1, "SZ", "000001"));
    EXPECT_FALSE(data.isStockType(1, "SZ", "600000"));
    EXPECT_FALSE(data.isStockType(1, "sh", "600000"));
    EXPECT_FALSE(data.isStockType(1, "SHO", "600000"));
    EXPECT_TRUE(data.isStockType(2, "SH", "x"));
    EXPECT_FALSE(data.isStockType(3, "SH", "600000"));
}

TEST(PlatformData, InstrumentFieldsAddUpTheLaterValueCounts) {
    PlatformData data;
    EXPECT_FALSE(data.instrument("HGT", "00700"));
    data.addInstrument("HGT", "00700", {{2001, 100}, {2009, 5}});
    const auto before = data.instrument("HGT", "00700");
    data.addInstrument("HGT", "00700", {{2009, 6}, {-1, -7}});
    const auto after = data.instrument("HGT", "00700");
    ASSERT_TRUE(before && after);
    EXPECT_EQ(after->getInt(2001), 100);
    EXPECT_EQ(after->getInt(2009), 6);
    EXPECT_EQ(after->getInt(-1), -7);
    EXPECT_EQ(after->getInt(2013), 0);
    // A record already handed out does not change.
    EXPECT_EQ(before->getInt(2009), 5);
    EXPECT_FALSE(data.instrument("HGT", "00701"));
    EXPECT_FALSE(data.instrument("SGT", "00700"));
}

TEST(PlatformData, BondRuleIsOfOneTradeTypeOnly) {
    PlatformData data;
    data.setBondRule("SZ", "123001", 1, {10, 1});
    data.setBondRule("SZ", "123001", 4, {20, 2});
    data.setBondRule("SZ", "123001", 4, {30, 3});
    ASSERT_TRUE(data.bondRule("SZ", "123001", 1));
    EXPECT_EQ(data.bondRule("SZ", "123001", 1)->buyMinUnit, 10);
    EXPECT_EQ(data.bondRule("SZ", "123001", 1)->sellMinUnit, 1);
    EXPECT_EQ(data.bondRule("SZ", "123001", 4)->buyMinUnit, 30);
    EXPECT_FALSE(data.bondRule("SZ", "123001", 2));
    EXPECT_FALSE(data.bondRule("SZ", "123002", 1));
    EXPECT_FALSE(data.bondRule("SH", "123001", 1));
}

TEST(PlatformData, NamesTheMarketsOfAllItsTablesOnce) {
    PlatformData data;
    EXPECT_TRUE(data.marketNames().empty());
    data.setMarketNumber("B", 1);
    data.addStockType(1, "A", "*");
    data.addBaseType(1, "A", "1");
    data.addInstrument("C", "1", {});
    data.setBondRule("D", "1", 1, {});
    data.addSecondMarketTest("E", "*");
    data.addRight("group", "product");
    EXPECT_EQ(data.marketNames(), (std::set<std::string>{"A", "B", "C", "D", "E"}));
}

TEST(PlatformData, CurrentIsEmptyUntilDataIsInstalledAndNeverNull) {
    ASSERT_NE(PlatformData::current(), nullptr);
    EXPECT_EQ(PlatformData::current()->marketNumber("SH"), -1);
    PlatformData data;
    data.setMarketNumber("SH", 1);
    PlatformData::install(data);
    EXPECT_EQ(PlatformData::current()->marketNumber("SH"), 1);
    // Later changes to the data are not installed.
    data.setMarketNumber("SH", 2);
    EXPECT_EQ(PlatformData::current()->marketNumber("SH"), 1);
    const auto held = PlatformData::current();
    PlatformData::install(std::shared_ptr<const PlatformData>());
    EXPECT_EQ(PlatformData::current()->marketNumber("SH"), -1);
    EXPECT_EQ(held->marketNumber("SH"), 1);
}

}  // namespace
}  // namespace standin
