#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <limits>
#include <random>
#include <set>

#include "tests/config/tradeunit/tradeunitbuylist.h"
#include "traderbase/base/config/internal/words/buyoperations.h"
#include "traderbase/base/config/tradeunit.h"

using tests::kBuyList;
using ttservice::isBuyOpt;

namespace {

bool buys(std::int64_t op) {
    return isBuyOpt(static_cast<EOperationType>(op));
}

}  // namespace

TEST(BuyOperations, ThereAre84OfThem) {
    EXPECT_EQ(kBuyList.size(), 84U);
    int found = 0;
    for (int op = -5000; op <= 5000; ++op)
        found += buys(op) ? 1 : 0;
    EXPECT_EQ(found, 84);
}

TEST(BuyOperations, AreExactlyThoseOfThePlainListFromMinus2To2000) {
    for (int op = -2; op <= 2000; ++op)
        EXPECT_EQ(buys(op), kBuyList.count(op) != 0) << op;
}

TEST(BuyOperations, NoParticularOperationDoesNotBuy) {
    EXPECT_FALSE(isBuyOpt(OPT_INVALID));
}

TEST(BuyOperations, TheTwoThatStandAloneBuyAndTheirNeighboursDoNot) {
    EXPECT_TRUE(buys(0));
    EXPECT_FALSE(buys(1));
    EXPECT_TRUE(buys(1152));
    EXPECT_FALSE(buys(1151));
    EXPECT_FALSE(buys(1153));
}

TEST(BuyOperations, TheEndsOfTheFourRangesBuyAndWhatLiesBeyondDoesNot) {
    const int ranges[][2] = {{4, 67}, {200, 208}, {1004, 1063}, {1087, 1150}};
    for (const auto& range : ranges) {
        EXPECT_TRUE(buys(range[0])) << range[0];
        EXPECT_FALSE(buys(range[0] - 1)) << range[0] - 1;
        EXPECT_TRUE(buys(range[1])) << range[1];
        EXPECT_FALSE(buys(range[1] + 1)) << range[1] + 1;
    }
}

TEST(BuyOperations, NothingElseAmong32BitNumbersBuys) {
    std::mt19937 random(20260117);
    std::uniform_int_distribution<int> anywhere(std::numeric_limits<int>::min(), std::numeric_limits<int>::max());
    for (int round = 0; round < 2000000; ++round) {
        const int op = anywhere(random);
        ASSERT_EQ(buys(op), kBuyList.count(op) != 0) << op;
    }
    EXPECT_FALSE(buys(std::numeric_limits<int>::min()));
    EXPECT_FALSE(buys(std::numeric_limits<int>::max()));
}

TEST(BuyOperations, NumbersThatAgreeInTheirLowBitsWithABuyingOneDoNotBuy) {
    for (const int op : kBuyList) {
        for (int bit = 11; bit < 32; ++bit) {
            const auto other = static_cast<std::int32_t>(static_cast<std::uint32_t>(op) ^ (std::uint32_t{1} << bit));
            EXPECT_FALSE(buys(other)) << other;
        }
    }
}

TEST(BuyOperations, AreKnownWhileCompiling) {
    static_assert(ttservice::internal::isBuyOperation(67));
    static_assert(!ttservice::internal::isBuyOperation(66));
    static_assert(!ttservice::internal::isBuyOperation(-1));
    SUCCEED();
}
