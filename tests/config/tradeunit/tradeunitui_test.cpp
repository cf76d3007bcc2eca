#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "tests/config/tradeunit/tradeunitcases.h"

using tests::ask;
using tests::decides;
using tests::formUnitOf;
using tests::kRegistered;
using tests::kShBonds;
using tests::kSzBonds;
using tests::make;
using tests::minUnitOf;
using tests::misses;
using R = ttservice::internal::UiUnitRule;

namespace {

using Cases = std::vector<tests::RuleCase<R, int>>;

tests::Asked flagged(int op = -1) {
    return ask(op).flagged();
}

// The new bond rules, and the rules before the markets "NEEQ" and "BJ".
const Cases& earlyCases() {
    static const Cases all = {
        {R::R2a, decides, make("SH").type(100021).underNewRules(), ask().with(kShBonds), 10},
        {R::R2a, decides, make("SZ").type(100021).underNewRules().bondRule(1, 7, 8), flagged().with(kSzBonds), 10},
        {R::R2a, misses, make("SH").type(100021).underNewRules(), flagged(31).with(kShBonds), 100},
        {R::R2a, misses, make("SH").type(100021).underNewRules(), flagged().with(kSzBonds), 100},

        {R::R2b, decides, make("SH").underNewRules().bondRule(1, 7, 8), flagged().with(kShBonds), 7},
        {R::R2b, decides, make("SH").underNewRules().bondRule(1, 7, 8), flagged(1).with(kShBonds), 7},
        {R::R2b, decides, make("SZ").underNewRules().bondRule(1, 7, 8).bondRule(4, 5, 6), flagged(58).with(kSzBonds),
         5},
        {R::R2b, misses, make("SH").underNewRules().bondRule(1, 7, 8), ask().with(kShBonds), 1},
        {R::R2b, misses, make("SH").bondRule(1, 7, 8), flagged().with(kShBonds), 100},
        {R::R2b, misses, make("SH").underNewRules().bondRule(2, 7, 8), flagged(30).with(kShBonds), 100},

        {R::R2c, decides, make("SH").underNewRules().bondRule(1, 7, 8), ask().with(kShBonds), 1},
        {R::R2c, decides, make("SZ").type(124).underNewRules().bondRule(1, 7, 8), ask(0).with(kSzBonds), 1},
        {R::R2c, misses, make("SZ").type(124).underNewRules().bondRule(1, 7, 8), ask(30).with(kSzBonds), 10000},

        {R::R2d, decides, make("SH").underNewRules(), flagged().with(kShBonds), 1000},
        {R::R2d, decides, make("SH").underNewRules().bondRule(1, 7, 8), flagged(57).with(kShBonds), 1000},
        {R::R2d, misses, make("SH").underNewRules(), flagged(), 100},

        {R::R2e, decides, make("SH").underNewRules(), ask().with(kShBonds), 1},
        {R::R2e, decides, make("SH").type(124).underNewRules().bondRule(1, 7, 8), ask(57).with(kShBonds), 1},
        {R::R2e, misses, make("SH").type(124).underNewRules(), ask().with(kSzBonds), 10000},
        {R::R2e, misses, make("SSE").type(124).underNewRules(), ask().with(kShBonds | kSzBonds), 10000},

        {R::R3, decides, make("SH").type(100104), flagged(), 10},
        {R::R3, decides, make("SH").type(100104).type(124), flagged(57), 10},
        {R::R3, decides, make("XX").type(100104), flagged(51), 10},
        {R::R3, misses, make("SH").type(100104).type(124), ask(), 10000},
        {R::R3, misses, make("SH").base(100104), flagged(), 100},

        {R::R4, decides, make("XX").type(124), ask(), 10000},
        {R::R4, decides, make("SH").type(124).type(126).type(10006).record({{2009, 5}}), flagged(), 10000},
        {R::R4, misses, make("XX").base(124), ask(), 1},

        {R::R5, decides, make("SH").type(126), ask(), 1000},
        {R::R5, decides, make("XX").typeOn("SH", 126), flagged(), 1000},
        {R::R5, decides, make("SZ").typeOn("SH", 126).type(100017), ask(), 1000},
        {R::R5, misses, make("SZ").type(126), flagged(), 100},

        {R::R6, decides, make("SZ").type(100017), ask(), 10},
        {R::R6, decides, make("HK").typeOn("SZ", 100017).type(100016), flagged(), 10},
        {R::R6, misses, make("SH").type(100017), ask(), 1},

        {R::R7, decides, make("SH").type(100016), flagged(), 10},
        {R::R7, decides, make("SZ").type(100016), flagged(30), 10},
        {R::R7, decides, make("SZ").type(100016).type(10019).asAdditionalIssue(), flagged(51), 10},
        {R::R7, misses, make("SH").type(100016), ask(), 1},
        {R::R7, misses, make("SH").type(100016).type(290), ask(), 500},
        {R::R7, misses, make("SH").base(100016), flagged(), 100},

        {R::R8a, decides, make("SZ").asAdditionalIssue(), ask(), 1},
        {R::R8a, decides, make("BJ").asAdditionalIssue().type(142), flagged().with(kRegistered), 1},
        {R::R8a, misses, make("SH").asAdditionalIssue(), flagged(), 1000},

        {R::R8b, decides, make("SH").asAdditionalIssue(), ask().with(kRegistered), 500},
        {R::R8b, misses, make("SH").asAdditionalIssue(), ask(), 1000},

        {R::R8c, decides, make("SH").asAdditionalIssue(), ask(), 1000},
        {R::R8c, decides, make("SH").asAdditionalIssue().type(142), flagged().with(kSzBonds), 1000},
        {R::R8c, misses, make("SH").asAdditionalIssue(), flagged().with(kRegistered), 500},

        {R::R9, decides, make("SH").type(142), ask(), 10},
        {R::R9, decides, make("XX").type(142).type(290), flagged(), 10},
        {R::R9, misses, make("SH").base(1117), ask(), 1},
        {R::R9, misses, make("SH").base(1117), flagged(), 100},
        {R::R9, misses, make("SH").base(1117).type(290), ask(), 500},

        {R::R10a, decides, make("XX").type(290), ask(), 500},
        {R::R10a, decides, make("XX").type(290).type(278), flagged(), 500},
        {R::R10a, misses, make("XX").base(290), flagged(), 1},

        {R::R10b, decides, make("SH").type(278).base(1062), ask(), 500},
        {R::R10b, misses, make("XX").type(277).type(279), ask(), 1},

        {R::R11a, decides, make("SH").base(1062), ask().with(kRegistered), 500},
        {R::R11a, misses, make("SH").base(1062), ask(), 1000},
        {R::R11b, decides, make("SH").base(1062).type(10006), flagged().with(kShBonds), 1000},
        {R::R11b, misses, make("SSE").base(1062), flagged(), 100},
        {R::R11b, misses, make("SH").type(1062), flagged(), 100},
        {R::R12, decides, make("SZ").base(1062), ask(), 500},
        {R::R12, decides, make("SZ").base(1062), flagged().with(kRegistered), 500},
        {R::R12, misses, make("SZSE").base(1062), flagged(), 100},
    };
    return all;
}

// From the markets "NEEQ" and "BJ" on.
const Cases& lateCases() {
    static const Cases all = {
        {R::R13a, decides, make("BJ"), flagged(1029), 1},
        {R::R13a, decides, make("NEEQ").base(1606), flagged(1030), 1},
        {R::R13a, misses, make("BJ"), flagged(1028), 1000},
        {R::R13a, misses, make("NEEQ"), flagged(1031), 1000},
        {R::R13a, misses, make("SH"), flagged(1030), 100},
        {R::R13a, misses, make("NEEQ").type(10006).record({{2013, 4}}), ask(1029), 4},

        {R::R13b, decides, make("NEEQ").type(20000), flagged(), 100},
        {R::R13b, decides, make("BJ").typeOn("NEEQ", 20000).base(1608), flagged(), 100},
        {R::R13b, decides, make("BJ").base(1606), flagged(), 100},
        {R::R13b, decides, make("NEEQ").base(1607).base(1610), flagged(), 100},
        {R::R13b, misses, make("BJ").type(20000), flagged(), 1000},
        {R::R13b, misses, make("BJ").base(1608), flagged(), 1},
        {R::R13b, misses, make("NEEQ").type(20000), ask(), 1},

        {R::R13c, decides, make("NEEQ").base(1608), flagged(), 1},
        {R::R13c, decides, make("BJ").base(1609), flagged(), 1},
        {R::R13c, decides, make("BJ").base(1610), flagged(1028), 1},
        {R::R13c, misses, make("BJ").base(1611), flagged(), 1000},
        {R::R13c, misses, make("BJ").base(1610).base(1606), flagged(), 100},

        {R::R13d, decides, make("NEEQ"), flagged(), 1000},
        {R::R13d, decides, make("BJ").type(10006).type(10040).base(1172), flagged(), 1000},
        {R::R13d, misses, make("NEEQ"), ask(), 1},
        {R::R13d, misses, make("BJ").type(290), flagged(), 500},

        {R::R14a, decides, make("XX").type(10006), ask(), 1},
        {R::R14a, decides, make("SH").type(10006).type(167), flagged(), 1},
        {R::R14a, misses, make("XX").type(10006).record(), flagged(), 100},

        {R::R14b, decides, make("XX").type(10006).record({{2009, 1000}, {2013, 10}}), flagged(), 1000},
        {R::R14b, decides, make("SH").type(10006).record({{2009, -3}}), flagged(), -3},
        {R::R14b, misses, make("XX").type(10006).record({{2009, 1000}, {2013, 10}}), ask(), 10},
        {R::R14b, misses, make("XX").type(10006).record({{2013, 10}}), flagged(), 100},
        {R::R14b, misses, make("NEEQ").type(10006).record({{2009, 1000}}), flagged(), 1000},

        {R::R14c, decides, make("XX").type(10006).record({{2001, 5}, {2013, 10}}), flagged(), 100},
        {R::R14c, misses, make("XX").type(10006).record({{2009, 1}}), flagged(), 1},

        {R::R14d, decides, make("XX").type(10006).record({{2009, 1000}, {2013, 10}}), ask(), 10},
        {R::R14d, decides, make("BJ").type(10006).record({{2013, -4}}), ask(1029), -4},
        {R::R14d, misses, make("XX").type(10006).record({{2009, 1000}}), ask(), 1},

        {R::R14e, decides, make("XX").type(10006).record({{2001, 5}, {2009, 1000}}), ask(), 1},
        {R::R14e, misses, make("XX").type(10006).record({{2013, 1}}), ask(), 1},

        {R::R15, decides, make("SH").type(10040), flagged(), 1},
        {R::R15, decides, make("SH").type(167), flagged(), 1},
        {R::R15, decides, make("SH").type(168), flagged(), 1},
        {R::R15, decides, make("SH").type(10075), flagged(), 1},
        {R::R15, decides, make("HGT").type(167).record({{2001, 500}}), ask(), 1},
        {R::R15, misses, make("SH").base(10040).base(167).base(168).base(10075), flagged(), 100},

        {R::R16, decides, make("SH").base(1172), flagged(), 1},
        {R::R16, decides, make("HGT").base(1172).record({{2001, 500}}), ask(), 1},
        {R::R16, misses, make("SH").type(1172), flagged(), 100},

        {R::R17, decides, make("BJ"), ask(), 1},
        {R::R17, decides, make("BJ").base(1606).record({{2001, 500}}).passingFirstTest(), ask(1029), 1},
        {R::R17, misses, make("BJ"), flagged(), 1000},
        {R::R17, misses, make("NEEQ").record({{2001, 500}}).passingFirstTest(), ask(), 500},

        {R::R18, decides, make("SH"), flagged(), 100},
        {R::R18, decides, make("SZ").type(100003), flagged(1), 100},
        {R::R18, decides, make("SSE").passingFirstTest().record({{2001, 500}}), flagged(), 100},
        {R::R18, decides, make("SZSE").base(157), flagged(), 100},
        {R::R18, misses, make("SH"), ask(), 1},
        {R::R18, misses, make("SH").type(157), flagged(), 1},
        {R::R18, misses, make("SHO"), flagged(), 1},

        {R::R19, misses, make("NEEQ"), flagged(), 1000},
        {R::R19, misses, make("NEEQ"), ask(), 1},

        {R::R20a, decides, make("HGT").record({{2001, 500}}), flagged(), 500},
        {R::R20a, decides, make("SSEHKEX").record({{2001, 100}}), ask(), 100},
        {R::R20a, decides, make("SGT").record({{2001, 2000}, {2009, 3}, {2013, 4}}), ask(), 2000},
        {R::R20a, decides, make("SZSEHKEX").record(), flagged(), 0},
        {R::R20a, decides, make("XX").passingFirstTest().record({{2001, 300}}), ask(), 300},
        {R::R20a, decides, make("HK").passingSecondTest().record({{2001, 300}}), flagged(), 300},
        {R::R20a, decides, make("SH").passingSecondTest().record({{2001, 300}}), ask(), 300},
        {R::R20a, misses, make("HK").record({{2001, 300}}), flagged(), 1},
        {R::R20a, misses, make("SH").passingSecondTest().record({{2001, 300}}), flagged(), 100},

        {R::R20b, decides, make("HGT"), flagged(), 1},
        {R::R20b, decides, make("XX").passingFirstTest(), ask(), 1},
        {R::R20b, decides, make("XX").passingSecondTest(), flagged(), 1},
        {R::R20b, misses, make("HGT").record({{2001, 1}}), ask(), 1},

        {R::R21a, decides, make("NASDAQ").record({{2001, 300}}), flagged(), 1},
        {R::R21a, decides, make("NYSE"), ask(), 1},
        {R::R21a, misses, make("NYSE").passingFirstTest().record({{2001, 300}}), ask(), 300},
        {R::R21a, misses, make("AMEX"), ask(), 1},

        {R::R21b, decides, make("XX").record({{2001, 300}}), flagged(), 1},
        {R::R21b, decides, make("SH"), ask(), 1},
        {R::R21b, decides, make("HK").record({{2001, 300}}), ask(), 1},
        {R::R21b, decides, make("SHFE"), flagged(), 1},
        {R::R21b, misses, make("NASDAQ"), flagged(), 1},
    };
    return all;
}

Cases allCases() {
    Cases all = earlyCases();
    all.insert(all.end(), lateCases().begin(), lateCases().end());
    return all;
}

}  // namespace

TEST(UiMinUnit, EachRuleDecidesItsCasesAndNoNearMiss) {
    tests::expectCases(allCases(), {}, [](const tests::Made& made, const tests::Asked& asked) {
        return tests::BothAnswers<ttservice::internal::UiUnitAnswer, int>{
            ttservice::internal::uiMinUnit(made.market, made.code, asked.flag, asked.op, tests::kStoreSwitches),
            formUnitOf(made, asked.flag, asked.op)};
    });
}

TEST(UiMinUnit, EveryRuleHasCases) {
    tests::expectCasesForEveryRule(allCases(), ttservice::internal::kUiUnitRules);
}

TEST(UiMinUnit, WithoutAnOperationItIsThatOfMinus1) {
    standin::PlatformData data = tests::emptyPlatform();
    const Cases rows = allCases();
    for (const auto& row : rows)
        row.made.addTo(data);
    standin::PlatformData::install(std::move(data));
    tests::LoadedStore store;
    for (unsigned switches = 0; switches <= tests::kAllSwitches; ++switches) {
        store.load(tests::settingsWith(switches));
        for (const auto& row : rows) {
            for (const bool flag : {false, true}) {
                EXPECT_EQ(ttservice::getUiMinUnit(row.made.market, row.made.code, flag), formUnitOf(row.made, flag, -1))
                    << row.made.text();
            }
        }
    }
}

TEST(UiMinUnit, UnknownInstrumentIs1ExceptWithTheFlagOnTheStockExchangesAndTheirNeighbours) {
    for (const char* market : {"XX", "", "SH", "SZ", "SSE", "SZSE", "BJ", "NEEQ", "HK", "NYSE"})
        EXPECT_EQ(ttservice::getUiMinUnit(market, "1", false), 1) << market;
    for (const char* market : {"XX", "", "HK", "NYSE", "HGT"})
        EXPECT_EQ(ttservice::getUiMinUnit(market, "1", true), 1) << market;
    for (const char* market : {"SH", "SZ", "SSE", "SZSE"})
        EXPECT_EQ(ttservice::getUiMinUnit(market, "1", true), 100) << market;
    for (const char* market : {"BJ", "NEEQ"})
        EXPECT_EQ(ttservice::getUiMinUnit(market, "1", true), 1000) << market;
}

TEST(UiMinUnit, PlainShanghaiShareIs100WithTheFlagAnd1Without) {
    const auto share = make("SH").type(100003);
    tests::installOnly(share);
    EXPECT_EQ(formUnitOf(share, true), 100);
    EXPECT_EQ(formUnitOf(share, false), 1);
}

TEST(UiMinUnit, TechnologyBoardTakes1InTheFormAnd200InOperations) {
    const auto share = make("SH").type(100003).base(1172);
    tests::installOnly(share);
    EXPECT_EQ(minUnitOf(share), 200);
    EXPECT_EQ(formUnitOf(share, true), 1);
    EXPECT_EQ(formUnitOf(share, false), 1);
}

TEST(UiMinUnit, BaseTypes1608To1610Take1InTheFormAnd100InOperations) {
    for (const char* market : {"BJ", "NEEQ"}) {
        for (const int type : {1608, 1609, 1610}) {
            const auto share = make(market).base(type);
            tests::installOnly(share);
            EXPECT_EQ(minUnitOf(share), 100) << type;
            EXPECT_EQ(formUnitOf(share, true), 1) << type;
        }
        for (const int type : {1606, 1607}) {
            const auto share = make(market).base(type);
            tests::installOnly(share);
            EXPECT_EQ(minUnitOf(share), 100) << type;
            EXPECT_EQ(formUnitOf(share, true), 100) << type;
        }
    }
}

TEST(UiMinUnit, BaseType1117CountsForOperationsOnly) {
    const auto instrument = make("XX").base(1117);
    tests::installOnly(instrument);
    EXPECT_EQ(minUnitOf(instrument), 10);
    EXPECT_EQ(formUnitOf(instrument, true), 1);
    EXPECT_EQ(formUnitOf(instrument, false), 1);
}

TEST(UiMinUnit, Type10006ComesFirstForOperationsAndLateInTheForm) {
    const auto instrument = make("XX").type(10006).type(124).record({{2009, 3}, {2013, 4}});
    tests::installOnly(instrument);
    EXPECT_EQ(minUnitOf(instrument), 3);
    EXPECT_EQ(formUnitOf(instrument, true), 10000);
    EXPECT_EQ(formUnitOf(instrument, false), 10000);
    const auto board = make("NEEQ").type(10006).record({{2009, 3}, {2013, 4}});
    tests::installOnly(board);
    EXPECT_EQ(minUnitOf(board), 3);
    EXPECT_EQ(formUnitOf(board, true), 1000);
    EXPECT_EQ(formUnitOf(board, false), 4);
}

TEST(UiMinUnit, HkUsesItsRecordForOperationsAndFurtherMarketTestsInTheForm) {
    const auto share = make("HK").record({{2001, 400}});
    tests::installOnly(share);
    EXPECT_EQ(minUnitOf(share), 400);
    EXPECT_EQ(formUnitOf(share, true), 1);
    const auto tested = make("SGX").record({{2001, 400}}).passingFirstTest();
    tests::installOnly(tested);
    EXPECT_EQ(minUnitOf(tested), 1);
    EXPECT_EQ(formUnitOf(tested, true), 400);
}

TEST(UiMinUnit, BondsAndDirectionalBondsHaveTheirStepWithTheFlagOnly) {
    for (const int type : {100016, 100104}) {
        const auto bond = make("SH").type(type);
        tests::installOnly(bond);
        EXPECT_EQ(formUnitOf(bond, true), 10) << type;
        EXPECT_EQ(formUnitOf(bond, false), 1) << type;
    }
}

TEST(UiMinUnit, OperationMattersForNothingButBondRulesAndOperations1029And1030OfNeeqAndBj) {
    standin::PlatformData data = tests::emptyPlatform();
    std::vector<tests::Made> plain = {make("SH").type(100104), make("SH").type(100103), make("SZ").type(100016),
                                      make("SZ").type(100016).type(10019), make("SH")};
    const auto board = make("BJ");
    for (const auto& instrument : plain)
        instrument.addTo(data);
    standin::PlatformData::install(std::move(data));
    for (int op = -2; op <= 1200; ++op) {
        for (const auto& instrument : plain) {
            for (const bool flag : {false, true})
                EXPECT_EQ(formUnitOf(instrument, flag, op), formUnitOf(instrument, flag)) << op;
        }
        EXPECT_EQ(formUnitOf(board, true, op), op == 1029 || op == 1030 ? 1 : 1000) << op;
        EXPECT_EQ(formUnitOf(board, false, op), 1) << op;
    }
}

TEST(UiMinUnit, UnderNewBondRulesTheLeastPurchaseCountsInEveryOperationButThe30And31ThatSkipThem) {
    const auto bond = make("SZ").type(124).underNewRules().bondRule(1, 7, 8).bondRule(2, 17, 18);
    standin::PlatformData data;
    bond.addTo(data);
    standin::PlatformData::install(std::move(data));
    const tests::LoadedStore store(tests::settingsWith(kSzBonds));
    for (int op = -2; op <= 1200; ++op) {
        const bool skipped = op == 30 || op == 31;
        EXPECT_EQ(formUnitOf(bond, true, op), skipped ? 10000 : 7) << op;
        EXPECT_EQ(formUnitOf(bond, false, op), skipped ? 10000 : 1) << op;
    }
}

TEST(UiMinUnit, UnderNewBondRulesAMissingRuleRecordIs1000WithTheFlagAnd1Without) {
    const auto bond = make("SH").type(100016).underNewRules();
    tests::installOnly(bond);
    const tests::LoadedStore store(tests::settingsWith(kShBonds));
    EXPECT_EQ(formUnitOf(bond, true), 1000);
    EXPECT_EQ(formUnitOf(bond, false), 1);
    EXPECT_EQ(minUnitOf(bond), 1000);
}

TEST(UiMinUnit, BjTakes1WithoutTheFlagAndNeeqGoesOn) {
    const auto beijing = make("BJ").passingFirstTest().record({{2001, 300}});
    tests::installOnly(beijing);
    EXPECT_EQ(formUnitOf(beijing, false), 1);
    const auto neeq = make("NEEQ").passingFirstTest().record({{2001, 300}});
    tests::installOnly(neeq);
    EXPECT_EQ(formUnitOf(neeq, false), 300);
    EXPECT_EQ(formUnitOf(neeq, true), 1000);
}

TEST(UiMinUnit, UsSharesTake1WhateverTheirRecord) {
    for (const char* market : {"NASDAQ", "NYSE"}) {
        const auto share = make(market).type(100003).record({{2001, 100}, {2009, 100}, {2013, 100}});
        tests::installOnly(share);
        EXPECT_EQ(formUnitOf(share, true), 1) << market;
        EXPECT_EQ(formUnitOf(share, false), 1) << market;
    }
}
