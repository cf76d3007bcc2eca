#include <gtest/gtest.h>

#include <map>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include <boost/lexical_cast/bad_lexical_cast.hpp>
#include <boost/thread/thread.hpp>

#include "tests/support/slowgrammars.h"
#include "tests/support/standarderror.h"
#include "traderbase/base/config/internal/keys/settingkeys.h"
#include "traderbase/base/config/internal/platforms/perplatformlist.h"
#include "traderbase/base/config/internal/platforms/platformlist.h"

using namespace ttservice::internal;

namespace {

// A value built from pieces, mostly valid but often enough broken, and from runs of separators.
std::string randomValue(std::mt19937& random, const std::vector<std::string>& pieces, const std::string& separators) {
    std::string text;
    const std::size_t count = random() % 7;
    for (std::size_t i = 0; i < count; ++i) {
        text += pieces[random() % pieces.size()];
        for (std::size_t j = random() % 3; j > 0; --j)
            text += separators[random() % separators.size()];
    }
    return text;
}

template <typename Value>
void comparePerPlatform(unsigned seed, Value builtIn, const std::vector<std::string>& pieces) {
    std::mt19937 random(seed);
    long complained = 0;
    for (int i = 0; i < 100000; ++i) {
        const std::string text = randomValue(random, pieces, ";;;:");
        const bool squeeze = i % 2 == 0;
        PerPlatformTable<Value> table{{{99, Value()}}, Value()};
        const auto expected = tests::slowPerPlatformList<Value>(text, builtIn, Value(), squeeze);
        const tests::StandardError caught;
        if (squeeze) {
            readPerPlatformList(text, builtIn, table);
        } else {
            readPerPlatformListKeepEmpty(text, builtIn, table);
        }
        ASSERT_EQ(table.byPlatform, expected.values) << text;
        ASSERT_EQ(table.byDefault, expected.fallback) << text;
        ASSERT_EQ(caught.lines(), expected.complaints) << text;
        complained += expected.complaints;
    }
    EXPECT_GT(complained, 10000);
}

}  // namespace

TEST(PlatformList, KeepsTheOrderAndRepeatedIds) {
    const tests::StandardError caught;
    EXPECT_EQ(readPlatformList("12,,15,"), (std::vector<int>{12, 15}));
    EXPECT_EQ(readPlatformList("15,12,15"), (std::vector<int>{15, 12, 15}));
    EXPECT_EQ(readPlatformList(""), std::vector<int>());
    EXPECT_EQ(readPlatformList(",,,"), std::vector<int>());
    EXPECT_EQ(readPlatformList("-5,+5,-2147483648"), (std::vector<int>{-5, 5, -2147483647 - 1}));
    EXPECT_EQ(caught.text(), "");
}

TEST(PlatformList, SkipsABadPieceWithOneLine) {
    const std::vector<std::pair<std::string, std::vector<int>>> rows = {
        {"12, 15", {12}}, {"12 ,15", {15}}, {"abc", {}}, {"12:1;15:0", {}}, {"2147483648,7", {7}}, {"1.5,3", {3}},
    };
    for (const auto& [text, ids] : rows) {
        const tests::StandardError caught;
        EXPECT_EQ(readPlatformList(text), ids) << text;
        EXPECT_EQ(caught.text(), tests::kBadValueLine) << text;
    }
}

TEST(PlatformList, AgreesWithTheOracle) {
    std::mt19937 random(11);
    long complained = 0;
    for (int i = 0; i < 100000; ++i) {
        const std::string text = randomValue(
            random, {"12", "0", "-5", "+7", " 3", "3 ", "x", "2147483647", "2147483648", "1:0", "", "00"}, ",,,;");
        const tests::SlowPlatformList expected = tests::slowPlatformList(text);
        const tests::StandardError caught;
        ASSERT_EQ(readPlatformList(text), expected.ids) << text;
        ASSERT_EQ(caught.lines(), expected.complaints) << text;
        complained += expected.complaints;
    }
    EXPECT_GT(complained, 10000);
}

TEST(PlatformList, PiecesPointIntoTheValue) {
    const std::string_view text = "12,,x";
    std::vector<std::size_t> offsets;
    forEachPlatformPiece(text, [&](std::string_view piece, std::optional<int>) {
        offsets.push_back(static_cast<std::size_t>(piece.data() - text.data()));
    });
    EXPECT_EQ(offsets, (std::vector<std::size_t>{0, 4}));
}

TEST(PlatformList, WritesALineForEachBadPiece) {
    EXPECT_EQ(tests::kBadValueLine, std::string("get bson value error, ") + boost::bad_lexical_cast().what() + '\n');
    for (const int bad : {1, 63, 64, 65, 1000}) {
        std::string text = "12";
        for (int i = 0; i < bad; ++i)
            text += ",x";
        const tests::StandardError caught;
        EXPECT_EQ(readPlatformList(text), std::vector<int>{12});
        EXPECT_EQ(caught.lines(), bad);
        EXPECT_EQ(caught.text().size(), static_cast<std::size_t>(bad) * std::string(tests::kBadValueLine).size());
    }
}

TEST(PlatformList, KeysAreSortedByTheirBytesAndTheFirstPlaceOfEachCounts) {
    std::mt19937 random(13);
    for (const auto& [count, front] : {std::pair(0, 6), {1, 6}, {2, 6}, {500, 6}, {5000, 6}, {500, 260}, {5000, 260}}) {
        std::vector<std::string> keys;
        std::map<std::string, std::size_t> expected;
        for (int i = 0; i < count; ++i) {
            std::string key(static_cast<std::size_t>(i % 2 == 0 ? front : 0), 's');
            for (auto left = random() % 4; left > 0; --left)
                key += "a\xFF\0Z"[random() % 4];
            expected.emplace(key, keys.size());
            keys.push_back(key);
        }
        std::map<std::string, std::size_t> found;
        std::string before;
        for (const auto& [key, index] : sortedKeys(keys)) {
            EXPECT_TRUE(found.empty() || before < key);
            before = key;
            found.emplace(key, index);
        }
        EXPECT_EQ(found, expected);
    }
}

// Clients ask from threads with small stacks.
TEST(PlatformList, KeysWithMuchInCommonNeedNoDeepStack) {
    constexpr std::size_t kKeys = 8000;
    constexpr std::size_t kStack = std::size_t{512} * 1024;
    std::vector<std::string> keys;
    for (std::size_t length = kKeys; length > 0; --length)
        keys.emplace_back(length, 'a');
    boost::thread::attributes attributes;
    attributes.set_stack_size(kStack);
    std::vector<ttservice::internal::PlacedKey> sorted;
    boost::thread(attributes, [&] { sorted = sortedKeys(keys); }).join();
    ASSERT_EQ(sorted.size(), kKeys);
    for (std::size_t i = 0; i < kKeys; ++i)
        ASSERT_EQ(sorted[i].index, kKeys - 1 - i);
}

TEST(PerPlatformList, EntriesAndDefault) {
    PerPlatformTable<bool> table;
    const tests::StandardError caught;
    readPerPlatformList("12:1;15:0;1", true, table);
    EXPECT_TRUE(table.at(12));
    EXPECT_FALSE(table.at(15));
    EXPECT_TRUE(table.at(16));
    readPerPlatformList("12:1;0", true, table);
    EXPECT_TRUE(table.at(12));
    EXPECT_FALSE(table.at(15));
    EXPECT_FALSE(table.lists(15));
    EXPECT_EQ(caught.text(), "");
}

TEST(PerPlatformList, PlatformsAloneKeepTheDefaultOfTheLoadBefore) {
    PerPlatformTable<int> table;
    readPerPlatformList("7", 500, table);
    readPerPlatformList("12:1", 500, table);
    EXPECT_EQ(table.at(12), 1);
    EXPECT_EQ(table.at(13), 7);
}

TEST(PerPlatformList, AnEmptyItemSetsTheBuiltInDefault) {
    const std::vector<std::pair<std::string, int>> rows = {
        {"", 500}, {"12:1;0;", 500}, {";0", 0}, {";", 500}, {";;0;;", 500}, {"0;;12:1", 0}, {"12:100;200", 200},
    };
    for (const auto& [text, byDefault] : rows) {
        PerPlatformTable<int> table;
        readPerPlatformList(text, 500, table);
        EXPECT_EQ(table.at(99), byDefault) << text;
    }
}

TEST(PerPlatformList, AnEmptyItemInTheMiddleCountsWhenEmptyItemsAreKept) {
    PerPlatformTable<double> table;
    readPerPlatformListKeepEmpty("0.7;;1:0.5", 0.6, table);
    EXPECT_EQ(table.at(1), 0.5);
    EXPECT_EQ(table.at(2), 0.6);
    readPerPlatformListKeepEmpty("1:0.5;0.7", 0.6, table);
    EXPECT_EQ(table.at(1), 0.5);
    EXPECT_EQ(table.at(2), 0.7);
}

TEST(PerPlatformList, ALaterItemReplacesAnEarlierOne) {
    PerPlatformTable<int> table;
    readPerPlatformList("7:1;7:2;3;4", 0, table);
    EXPECT_EQ(table.at(7), 2);
    EXPECT_EQ(table.at(8), 4);
}

TEST(PerPlatformList, ABadItemIsDroppedWithOneLineAndTheOthersCount) {
    for (const char* text : {"abc:1;1", ":1;1", "12:x;1", "12:1:1;1", "x;1", "1;12:2", "a:b;1", " ;1"}) {
        PerPlatformTable<bool> table;
        const tests::StandardError caught;
        readPerPlatformList(text, false, table);
        EXPECT_TRUE(table.at(99)) << text;
        EXPECT_TRUE(table.byPlatform.empty()) << text;
        EXPECT_EQ(caught.text(), tests::kBadValueLine) << text;
    }
}

TEST(PerPlatformList, OfFlagsAgreesWithTheOracle) {
    comparePerPlatform<bool>(21, true,
                             {"12:1", "15:0", "1", "0", "01", "2", "true", "x:1", ":1", "7:", "-0", "", "-1"});
}

TEST(PerPlatformList, OfIntegersAgreesWithTheOracle) {
    comparePerPlatform<int>(22, 500,
                            {"12:100", "-5:7", "200", "+3", "x", "1.5", "9:2147483648", "2147483648:1", "", "3:"});
}

TEST(PerPlatformList, OfNumbersAgreesWithTheOracle) {
    comparePerPlatform<double>(23, 0.6,
                               {"1:0.5", "2:1e3", "0.7", ".5", "5.", "1e", "1e+", "x", "1:x", "", " 1", "-2:-0.25"});
}

TEST(SettingKeys, DefaultsAreValidInTheirOwnGrammar) {
    for (const SettingKey& row : kSettingKeys) {
        EXPECT_NE(describe(row.grammar), "") << row.key;
        switch (row.grammar) {
            case ValueGrammar::Flag:
            case ValueGrammar::Integer:
            case ValueGrammar::PerPlatformInteger:
                EXPECT_TRUE(strictInt(row.whenMissing)) << row.key;
                break;
            case ValueGrammar::PerPlatformFlag:
                EXPECT_TRUE(strictBool(row.whenMissing)) << row.key;
                break;
            default:
                break;
        }
    }
    EXPECT_EQ(valueWhenMissing<int>(keys::counterMaxCompacts), 500);
    EXPECT_EQ(valueWhenMissing<bool>(keys::t0ForReturnStock), true);
}
