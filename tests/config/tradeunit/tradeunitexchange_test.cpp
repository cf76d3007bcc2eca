#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/config/tradeunit/tradeunitcases.h"

using tests::ask;
using tests::decides;
using tests::exchangeUnitOf;
using tests::make;
using tests::misses;
using R = ttservice::internal::TradeUnitRule;

namespace {

using Cases = std::vector<tests::RuleCase<R, int>>;

const Cases& cases() {
    static const Cases all = {
        {R::R2, decides, make("SH"), ask(), 100},
        {R::R2, decides, make("SZ").type(100003), ask(), 100},
        {R::R2, decides, make("BJ"), ask(), 100},
        {R::R2, decides, make("SSE"), ask(), 100},
        {R::R2, decides, make("SZSE"), ask(), 100},
        {R::R2, decides, make("XX").type(159), ask(), 100},
        {R::R2, decides, make("HGT").type(159).record({{2001, 500}}), ask(), 100},
        {R::R2, decides, make("SH").passingFirstTest().record({{2001, 500}}), ask(), 100},
        // Instruments counted in fund units are not the same as those that rule 2 leaves to later rules.
        {R::R2, decides, make("SH").type(100036), ask(), 100},
        {R::R2, decides, make("SH").asTechBoardCdr(), ask(), 100},
        {R::R2, decides, make("SH").base(100016).base(126).base(142), ask(), 100},
        {R::R2, misses, make("SH").type(100016), ask(), 1},
        {R::R2, misses, make("SH").type(126), ask(), 1},
        {R::R2, misses, make("SH").type(100017), ask(), 1},
        {R::R2, misses, make("SH").type(142), ask(), 1},
        {R::R2, misses, make("SH").type(100004), ask(), 1},
        {R::R2, misses, make("SH").type(100013), ask(), 1},
        {R::R2, misses, make("SH").type(100024), ask(), 1},
        {R::R2, misses, make("SHO").type(159), ask(), 1},
        {R::R2, misses, make("SZO").type(159), ask(), 1},
        {R::R2, misses, make("sh"), ask(), 1},
        {R::R2, misses, make("NEEQ"), ask(), 1},
        {R::R2, misses, make("XX").base(159), ask(), 1},
        {R::R2, misses, make("XX").type(158), ask(), 1},

        {R::R3a, decides, make("HGT").record({{2001, 500}}), ask(), 500},
        {R::R3a, decides, make("SSEHKEX").record({{2001, 200}}), ask(), 200},
        {R::R3a, decides, make("SGT").record({{2001, 1000}}), ask(), 1000},
        {R::R3a, decides, make("SZSEHKEX").record({{2001, 50}}), ask(), 50},
        {R::R3a, decides, make("XX").passingFirstTest().record({{2001, 7}}), ask(), 7},
        {R::R3a, decides, make("XX").passingSecondTest().record({{2001, 8}}), ask(), 8},
        {R::R3a, decides, make("SH").type(100016).passingSecondTest().record({{2001, 10}}), ask(), 10},
        {R::R3a, decides, make("SHO").type(159).passingFirstTest().record({{2001, 11}}), ask(), 11},
        {R::R3a, decides, make("HGT").record(), ask(), 0},
        {R::R3a, decides, make("HGT").record({{2001, -5}}), ask(), -5},
        {R::R3a, misses, make("HK").record({{2001, 500}}), ask(), 1},
        {R::R3a, misses, make("HGT"), ask(), 1},
        {R::R3a, misses, make("hgt").record({{2001, 500}}), ask(), 1},

        {R::R3b, decides, make("HGT"), ask(), 1},
        {R::R3b, decides, make("SZSEHKEX"), ask(), 1},
        {R::R3b, decides, make("XX").passingFirstTest(), ask(), 1},
        {R::R3b, decides, make("SZ").type(142).passingSecondTest(), ask(), 1},
        {R::R3b, misses, make("HGT").record({{2001, 500}}), ask(), 500},

        {R::R3c, decides, make("NASDAQ").record({{2001, 500}}), ask(), 1},
        {R::R3c, decides, make("XX"), ask(), 1},
        {R::R3c, decides, make("SH").type(126).record({{2001, 500}}), ask(), 1},
        {R::R3c, misses, make("SGT").record({{2001, 500}}), ask(), 500},
        {R::R3c, misses, make("NASDAQ").passingFirstTest().record({{2001, 500}}), ask(), 500},
    };
    return all;
}

}  // namespace

TEST(StockTradeUnit, EachRuleDecidesItsCasesAndNoNearMiss) {
    tests::expectCases(cases(), {}, [](const tests::Made& made, const tests::Asked&) {
        return tests::BothAnswers<ttservice::internal::TradeUnitAnswer, int>{
            ttservice::internal::stockTradeUnit(made.market, made.code), exchangeUnitOf(made)};
    });
}

TEST(StockTradeUnit, EveryRuleHasCases) {
    tests::expectCasesForEveryRule(cases(), ttservice::internal::kTradeUnitRules);
}

TEST(StockTradeUnit, UnknownInstrumentIs1OutsideTheStockExchanges) {
    EXPECT_EQ(ttservice::getStockTradeUnit("XX", "1"), 1);
    EXPECT_EQ(ttservice::getStockTradeUnit("", ""), 1);
    EXPECT_EQ(ttservice::getStockTradeUnit("SH", "1"), 100);
}

TEST(StockTradeUnit, PlainShareOfShanghaiIs100AndAConnectShareItsRecords) {
    standin::PlatformData data;
    data.addStockType(100003, "SH", "600001");
    data.addInstrument("HGT", "00001", {{2001, 2000}});
    standin::PlatformData::install(std::move(data));
    EXPECT_EQ(ttservice::getStockTradeUnit("SH", "600001"), 100);
    EXPECT_EQ(ttservice::getStockTradeUnit("HGT", "00001"), 2000);
}

TEST(StockTradeUnit, BondOfAStockExchangeGoesOnToItsRecord) {
    const auto bond = make("SH").type(100016).record({{2001, 10}});
    tests::installOnly(bond);
    EXPECT_EQ(exchangeUnitOf(bond), 1);
    const auto tested = make("SH").type(100016).record({{2001, 10}}).passingFirstTest();
    tests::installOnly(tested);
    EXPECT_EQ(exchangeUnitOf(tested), 10);
}
