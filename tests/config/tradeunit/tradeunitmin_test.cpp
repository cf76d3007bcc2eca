#include <gtest/gtest.h>

#include <set>
#include <string>
#include <utility>
#include <vector>

#include "tests/config/tradeunit/tradeunitbuylist.h"
#include "tests/config/tradeunit/tradeunitcases.h"

using tests::ask;
using tests::decides;
using tests::kRegistered;
using tests::kShBonds;
using tests::kSzBonds;
using tests::make;
using tests::minUnitOf;
using tests::misses;
using R = ttservice::internal::MinUnitRule;

namespace {

using Cases = std::vector<tests::RuleCase<R, int>>;

// The new bond rules and the rules that depend on the operation.
const Cases& earlyCases() {
    static const Cases all = {
        {R::R0a, decides, make("SH").type(100021).underNewRules(), ask().with(kShBonds), 10},
        {R::R0a, decides, make("SZ").type(100021).underNewRules().bondRule(1, 7, 8), ask(1).with(kSzBonds), 10},
        {R::R0a, decides, make("SH").type(100021).type(10006).underNewRules(), ask().with(kShBonds), 10},
        {R::R0a, misses, make("SH").type(100021).underNewRules(), ask().with(kSzBonds), 100},
        {R::R0a, misses, make("SH").type(100021), ask().with(kShBonds), 100},
        {R::R0a, misses, make("SH").base(100021).underNewRules(), ask().with(kShBonds), 1000},
        {R::R0a, misses, make("SH").type(100021).underNewRules(), ask(30).with(kShBonds), 100},

        {R::R0b, decides, make("SH").underNewRules(), ask().with(kShBonds), 1000},
        {R::R0b, decides, make("SZ").underNewRules().bondRule(2, 7, 8), ask().with(kSzBonds), 1000},
        {R::R0b, decides, make("SZ").underNewRules().bondRule(1, 7, 8), ask(57).with(kSzBonds), 1000},
        {R::R0b, misses, make("SH").underNewRules(), ask(), 100},
        {R::R0b, misses, make("SSE").underNewRules(), ask().with(kShBonds | kSzBonds), 100},
        {R::R0b, misses, make("sh").underNewRules(), ask().with(kShBonds | kSzBonds), 1},

        {R::R0c, decides, make("SH").underNewRules().bondRule(1, 7, 8), ask().with(kShBonds), 7},
        {R::R0c, decides, make("SZ").underNewRules().bondRule(1, 7, 8), ask(0).with(kSzBonds), 7},
        {R::R0c, decides, make("SZ").underNewRules().bondRule(1, 7, 8).bondRule(4, 5, 6), ask(57).with(kSzBonds), 5},
        {R::R0c, decides, make("SZ").underNewRules().bondRule(3, 3, 4), ask(1037).with(kSzBonds), 3},
        {R::R0c, decides, make("SZ").type(124).underNewRules().bondRule(1, 7, 8), ask().with(kSzBonds), 7},
        {R::R0c, misses, make("SZ").underNewRules().bondRule(1, 7, 8), ask(1).with(kSzBonds), 8},
        {R::R0c, misses, make("SZ").underNewRules().bondRule(1, 7, 8), ask(31).with(kSzBonds), 100},

        {R::R0d, decides, make("SH").underNewRules().bondRule(1, 7, 8), ask(1).with(kShBonds), 8},
        {R::R0d, decides, make("SZ").underNewRules().bondRule(1, 7, 8), ask(-2).with(kSzBonds), 8},
        {R::R0d, decides, make("SZ").underNewRules().bondRule(1, 7, 8).bondRule(4, 5, 6), ask(58).with(kSzBonds), 6},
        {R::R0d, misses, make("SZ").underNewRules().bondRule(1, 7, 8), ask(4).with(kSzBonds), 7},
        {R::R0d, misses, make("SZ").underNewRules().bondRule(1, 7, 8).bondRule(2, 5, 6), ask(30).with(kSzBonds), 100},

        {R::R1a, decides, make("XX").type(10006), ask(), 1},
        {R::R1a, decides, make("SH").type(10006).type(124), ask(), 1},
        {R::R1a, misses, make("XX").type(10006).record(), ask(), 100},
        {R::R1a, misses, make("SH").base(10006), ask(), 100},

        {R::R1b, decides, make("XX").type(10006).record({{2009, 0}}), ask(), 100},
        {R::R1b, decides, make("XX").type(10006).record({{2001, 5}, {2013, 5}}), ask(), 100},
        {R::R1b, misses, make("XX").type(10006).record({{2009, 1}}), ask(), 1},
        {R::R1b, misses, make("XX").type(10006).record({{2009, -1}}), ask(), -1},

        {R::R1c, decides, make("XX").type(10006).record({{2009, 1000}, {2001, 5}, {2013, 6}}), ask(), 1000},
        {R::R1c, decides, make("XX").type(10006).record({{2009, -300}}), ask(), -300},
        {R::R1c, decides, make("SH").type(10006).type(124).type(126).record({{2009, 3}}), ask(), 3},
        {R::R1c, misses, make("XX").type(10006).record({{2009, 0}, {2013, 5}}), ask(), 100},
        {R::R1c, misses, make("XX").type(10005).type(10007).record({{2009, 5}}), ask(), 1},

        {R::R2, decides, make("XX").type(124), ask(), 10000},
        {R::R2, decides, make("SH").type(124).type(126), ask(), 10000},
        {R::R2, misses, make("SH").typeOn("SZ", 124), ask(), 100},
        {R::R2, misses, make("SH").base(124), ask(), 100},

        {R::R3, decides, make("SH").type(126), ask(), 1000},
        {R::R3, decides, make("XX").typeOn("SH", 126), ask(), 1000},
        {R::R3, decides, make("SZ").typeOn("SH", 126).type(100017), ask(), 1000},
        {R::R3, misses, make("SZ").type(126), ask(), 100},
        {R::R3, misses, make("XX").type(126), ask(), 1},

        {R::R4, decides, make("SZ").type(100017), ask(), 10},
        {R::R4, decides, make("SH").typeOn("SZ", 100017).type(100104), ask(57), 10},
        {R::R4, misses, make("SH").type(100017), ask(), 100},
        {R::R4, misses, make("SZ").base(100017), ask(), 100},

        {R::R5a, decides, make("SH").type(100104), ask(57), 500},
        {R::R5a, decides, make("SH").type(100104).type(100103), ask(1037), 500},
        {R::R5a, misses, make("SH").type(100104), ask(56), 10},
        {R::R5a, misses, make("SH").type(100104), ask(65), 10},
        {R::R5a, misses, make("SH").type(100104), ask(1032), 10},
        {R::R5a, misses, make("SH").type(100104), ask(1052), 10},

        {R::R5b, decides, make("SH").type(100104), ask(51), 1},
        {R::R5b, decides, make("SH").type(100104), ask(52), 1},
        {R::R5b, misses, make("SH").type(100104), ask(50), 10},
        {R::R5b, misses, make("SH").type(100104), ask(53), 10},

        {R::R5c, decides, make("SH").type(100104), ask(), 10},
        {R::R5c, decides, make("XX").type(100104).asAdditionalIssue(), ask(0), 10},
        {R::R5c, misses, make("SH").type(100104), ask(64), 500},
        {R::R5c, misses, make("SH").base(100104), ask(), 100},

        {R::R6a, decides, make("SH").type(100103), ask(57), 1000},
        {R::R6a, decides, make("XX").type(100103).type(100016), ask(1032), 1000},
        {R::R6a, decides, make("SH").type(100103), ask(1052), 1000},
        {R::R6a, misses, make("SH").type(100103), ask(51), 100},
        {R::R6a, misses, make("SH").type(100103), ask(1031), 100},
        {R::R6a, misses, make("SH").type(100103), ask(1054), 100},

        {R::R6b, decides, make("XX").type(100103), ask(), 100},
        {R::R6b, decides, make("XX").type(100103), ask(52), 100},
        {R::R6b, misses, make("XX").type(100103), ask(1053), 1000},
        {R::R6b, misses, make("XX").base(100103), ask(), 1},
    };
    return all;
}

// The rules that depend on the market, the types and the record.
const Cases& lateCases() {
    static const Cases all = {
        {R::R7a, decides, make("SZ").asAdditionalIssue(), ask(), 1},
        {R::R7a, decides, make("SSE").asAdditionalIssue(), ask().with(kRegistered), 1},
        {R::R7a, decides, make("BJ").asAdditionalIssue().type(100016), ask(), 1},
        {R::R7a, misses, make("SH").asAdditionalIssue(), ask(), 1000},

        {R::R7b, decides, make("SH").asAdditionalIssue(), ask().with(kRegistered), 500},
        {R::R7b, misses, make("SH").asAdditionalIssue(), ask(), 1000},
        {R::R7b, misses, make("SH"), ask().with(kRegistered), 100},

        {R::R7c, decides, make("SH").asAdditionalIssue(), ask(), 1000},
        {R::R7c, decides, make("SH").asAdditionalIssue().type(142), ask().with(kShBonds), 1000},
        {R::R7c, misses, make("SH").asAdditionalIssue(), ask().with(kRegistered), 500},

        {R::R8a, decides, make("SZ").type(100016), ask(30), 1},
        {R::R8a, decides, make("SZ").type(100016), ask(31), 1},
        {R::R8a, decides, make("SZ").type(100016).underNewRules().bondRule(2, 7, 8), ask(31).with(kSzBonds), 1},
        {R::R8a, misses, make("SH").type(100016), ask(30), 10},
        {R::R8a, misses, make("SZSE").type(100016), ask(30), 10},
        {R::R8a, misses, make("SZ").type(100016), ask(29), 10},
        {R::R8a, misses, make("SZ").type(100016), ask(32), 10},

        {R::R8b, decides, make("SH").type(100016).type(10019), ask(51), 1},
        {R::R8b, decides, make("XX").type(100016).type(10019), ask(52), 1},
        {R::R8b, misses, make("SH").type(100016), ask(51), 10},
        {R::R8b, misses, make("SH").type(100016).type(10019), ask(50), 10},
        {R::R8b, misses, make("SH").type(100016).type(10019), ask(53), 10},

        {R::R8c, decides, make("SH").type(100016), ask(), 10},
        {R::R8c, decides, make("XX").type(100016).type(290), ask(1), 10},
        {R::R8c, misses, make("SH").type(10019), ask(51), 100},
        {R::R8c, misses, make("SZ").type(100016), ask(31), 1},

        {R::R9, decides, make("SH").type(142), ask(), 10},
        {R::R9, decides, make("XX").base(1117), ask(), 10},
        {R::R9, decides, make("SH").base(1117).type(290).base(1062), ask(), 10},
        {R::R9, misses, make("SH").base(142).type(1117), ask(), 100},

        {R::R10a, decides, make("XX").type(290), ask(), 500},
        {R::R10a, decides, make("XX").type(290).type(278), ask(), 500},
        {R::R10a, misses, make("XX").base(290), ask(), 1},
        {R::R10a, misses, make("XX").type(278), ask(), 500},

        {R::R10b, decides, make("SH").type(278).base(1062), ask(), 500},
        {R::R10b, misses, make("XX").type(279).type(277), ask(), 1},

        {R::R11a, decides, make("SH").base(1062), ask().with(kRegistered), 500},
        {R::R11a, misses, make("SH").base(1062), ask(), 1000},
        {R::R11a, misses, make("SSE").base(1062), ask().with(kRegistered), 100},

        {R::R11b, decides, make("SH").base(1062), ask(), 1000},
        {R::R11b, decides, make("SH").base(1062).base(1172), ask().with(kSzBonds), 1000},
        {R::R11b, misses, make("SH").type(1062), ask(), 100},
        {R::R11b, misses, make("SZ").base(1062), ask(), 500},

        {R::R12, decides, make("SZ").base(1062), ask(), 500},
        {R::R12, decides, make("SZ").base(1062), ask().with(kRegistered), 500},
        {R::R12, misses, make("SZSE").base(1062), ask(), 100},
        {R::R12, misses, make("BJ").base(1062), ask(), 1000},

        {R::R13a, decides, make("BJ"), ask(1029), 1},
        {R::R13a, decides, make("NEEQ").base(1606), ask(1030), 1},
        {R::R13a, misses, make("BJ"), ask(1028), 1000},
        {R::R13a, misses, make("NEEQ"), ask(1031), 1000},
        {R::R13a, misses, make("SH"), ask(1029), 100},

        {R::R13b, decides, make("NEEQ").type(20000), ask(), 100},
        {R::R13b, decides, make("BJ").typeOn("NEEQ", 20000), ask(), 100},
        {R::R13b, decides, make("BJ").base(1606), ask(), 100},
        {R::R13b, decides, make("NEEQ").base(1607), ask(), 100},
        {R::R13b, decides, make("NEEQ").base(1608), ask(), 100},
        {R::R13b, decides, make("BJ").base(1609), ask(), 100},
        {R::R13b, decides, make("BJ").base(1610), ask(1031), 100},
        {R::R13b, misses, make("BJ").type(20000), ask(), 1000},
        {R::R13b, misses, make("NEEQ").base(20000), ask(), 1000},
        {R::R13b, misses, make("NEEQ").base(1605).base(1611), ask(), 1000},
        {R::R13b, misses, make("XX").base(1606).typeOn("NEEQ", 20000), ask(), 1},

        {R::R13c, decides, make("NEEQ"), ask(), 1000},
        {R::R13c, decides, make("BJ").type(157).type(10040).base(1172), ask(), 1000},
        {R::R13c, misses, make("BJ").type(142), ask(), 10},
        {R::R13c, misses, make("neeq"), ask(), 1},

        {R::R14, decides, make("SH").type(10040), ask(), 1},
        {R::R14, decides, make("SH").type(167), ask(), 1},
        {R::R14, decides, make("SH").type(168), ask(), 1},
        {R::R14, decides, make("SH").type(10075).base(1172), ask(), 1},
        {R::R14, misses, make("SH").base(10040).base(167).base(168).base(10075), ask(), 100},
        {R::R14, misses, make("SH").type(166).type(169).type(10039).type(10076), ask(), 100},

        {R::R15, decides, make("SH").base(1172), ask(), 200},
        {R::R15, decides, make("XX").base(1172).type(157), ask(), 200},
        {R::R15, misses, make("SH").type(1172), ask(), 100},
        {R::R15, misses, make("SH").base(1172).type(168), ask(), 1},

        {R::R16a, misses, make("BJ"), ask(), 1000},

        {R::R16b, decides, make("SH"), ask(), 100},
        {R::R16b, decides, make("SZ"), ask(1029), 100},
        {R::R16b, decides, make("SSE"), ask(), 100},
        {R::R16b, decides, make("SZSE").base(157), ask(), 100},
        {R::R16b, misses, make("SH").type(157), ask(), 1},
        {R::R16b, misses, make("SHO"), ask(), 1},

        {R::R16c, misses, make("NEEQ"), ask(), 1000},

        {R::R17a, decides, make("HGT").record({{2001, 500}}), ask(), 500},
        {R::R17a, decides, make("SSEHKEX").record({{2001, 100}}), ask(), 100},
        {R::R17a, decides, make("SGT").record({{2001, 2000}, {2009, 3}, {2013, 4}}), ask(), 2000},
        {R::R17a, decides, make("SZSEHKEX").record({{2001, 400}}), ask(), 400},
        {R::R17a, decides, make("HK").record({{2001, 300}}), ask(), 300},
        {R::R17a, decides, make("HK").record(), ask(), 0},
        {R::R17a, misses, make("HKFE").record({{2001, 300}}), ask(), 1},
        {R::R17a, misses, make("HGT"), ask(), 1},
        {R::R17a, misses, make("XX").passingFirstTest().passingSecondTest().record({{2001, 300}}), ask(), 1},

        {R::R17b, decides, make("HGT"), ask(), 1},
        {R::R17b, decides, make("SZSEHKEX"), ask(), 1},
        {R::R17b, decides, make("HK"), ask(), 1},
        {R::R17b, misses, make("HK").record({{2001, 1}}), ask(), 1},

        {R::R18a, decides, make("NASDAQ").record({{2001, 300}}), ask(), 1},
        {R::R18a, decides, make("NYSE"), ask(), 1},
        {R::R18a, misses, make("AMEX"), ask(), 1},
        {R::R18a, misses, make("NYSE").type(142), ask(), 10},

        {R::R18b, decides, make("XX").record({{2001, 300}}), ask(), 1},
        {R::R18b, decides, make(""), ask(), 1},
        {R::R18b, decides, make("SH").type(157), ask(), 1},
        {R::R18b, misses, make("NASDAQ"), ask(), 1},
    };
    return all;
}

Cases allCases() {
    Cases all = earlyCases();
    all.insert(all.end(), lateCases().begin(), lateCases().end());
    return all;
}

using Ranges = std::vector<std::pair<int, int>>;

bool within(const Ranges& ranges, int op) {
    for (const auto& [first, last] : ranges) {
        if (first <= op && op <= last) return true;
    }
    return false;
}

}  // namespace

TEST(TradeMinUnit, EachRuleDecidesItsCasesAndNoNearMiss) {
    tests::expectCases(allCases(), {}, [](const tests::Made& made, const tests::Asked& asked) {
        return tests::BothAnswers<ttservice::internal::MinUnitAnswer, int>{
            ttservice::internal::tradeMinUnit(made.market, made.code, asked.op, tests::kStoreSwitches),
            minUnitOf(made, asked.op)};
    });
}

TEST(TradeMinUnit, EveryRuleHasCases) {
    tests::expectCasesForEveryRule(allCases(), ttservice::internal::kMinUnitRules);
}

TEST(TradeMinUnit, WithoutAnOperationItIsThatOfMinus1) {
    standin::PlatformData data = tests::emptyPlatform();
    const Cases rows = allCases();
    for (const auto& row : rows)
        row.made.addTo(data);
    standin::PlatformData::install(std::move(data));
    tests::LoadedStore store;
    for (unsigned switches = 0; switches <= tests::kAllSwitches; ++switches) {
        store.load(tests::settingsWith(switches));
        for (const auto& row : rows) {
            EXPECT_EQ(ttservice::getTradeMinUnit(row.made.market, row.made.code), minUnitOf(row.made, -1))
                << row.made.text();
        }
    }
}

TEST(TradeMinUnit, UnknownInstrumentIs1OutsideTheStockExchangesAndTheirNeighbours) {
    EXPECT_EQ(ttservice::getTradeMinUnit("XX", "1"), 1);
    EXPECT_EQ(ttservice::getTradeMinUnit("", ""), 1);
    EXPECT_EQ(ttservice::getTradeMinUnit("SZ", "1"), 100);
    EXPECT_EQ(ttservice::getTradeMinUnit("BJ", "1"), 1000);
    EXPECT_EQ(ttservice::getTradeMinUnit("NEEQ", "1"), 1000);
}

TEST(TradeMinUnit, EachRangeOfOperationsHoldsToItsEndsAndNotBeyond) {
    struct Row {
        const char* what;
        tests::Made made;
        std::vector<std::pair<Ranges, int>> steps;  // the first range that contains the operation decides
        int otherwise;
    };
    const std::vector<Row> rows = {
        {"type 100104", make("SH").type(100104), {{{{57, 64}, {1037, 1038}, {1103, 1104}}, 500}, {{{51, 52}}, 1}}, 10},
        {"type 100103",
         make("SH").type(100103),
         {{{{57, 64}, {1037, 1038}, {1103, 1104}, {1032, 1036}, {1052, 1053}}, 1000}},
         100},
        {"bond of SZ", make("SZ").type(100016), {{{{30, 31}}, 1}}, 10},
        {"bond of SZ with type 10019", make("SZ").type(100016).type(10019), {{{{30, 31}, {51, 52}}, 1}}, 10},
        {"bond of SH", make("SH").type(100016), {}, 10},
        {"bond of SH with type 10019", make("SH").type(100016).type(10019), {{{{51, 52}}, 1}}, 10},
        {"NEEQ", make("NEEQ"), {{{{1029, 1030}}, 1}}, 1000},
        {"BJ", make("BJ").base(1609), {{{{1029, 1030}}, 1}}, 100},
    };
    for (const Row& row : rows) {
        tests::installOnly(row.made);
        for (int op = -2; op <= 1200; ++op) {
            int expected = row.otherwise;
            for (auto step = row.steps.rbegin(); step != row.steps.rend(); ++step) {
                if (within(step->first, op)) expected = step->second;
            }
            EXPECT_EQ(minUnitOf(row.made, op), expected) << row.what << ", op " << op;
        }
    }
}

TEST(TradeMinUnit, UnderNewBondRulesThePurchasesTakeTheLeastPurchaseAndAllElseTheLeastSale) {
    const auto bond = make("SZ").type(100016).underNewRules().bondRule(1, 7, 8).bondRule(2, 17, 18);
    standin::PlatformData data;  // all operations have the ordinary trade type
    bond.addTo(data);
    standin::PlatformData::install(std::move(data));
    const tests::LoadedStore store(tests::settingsWith(kSzBonds));
    for (int op = -2; op <= 1200; ++op) {
        int expected = tests::kBuyList.count(op) != 0 || op == -1 ? 7 : 8;
        if (op == 30 || op == 31) expected = 1;
        EXPECT_EQ(minUnitOf(bond, op), expected) << op;
    }
}

TEST(TradeMinUnit, Operations30And31SkipTheNewBondRules) {
    const auto bond = make("SH").type(100016).underNewRules().bondRule(1, 7, 8).bondRule(2, 17, 18);
    tests::installOnly(bond);
    const tests::LoadedStore store(tests::settingsWith(kShBonds));
    EXPECT_EQ(minUnitOf(bond, 29), 8);
    EXPECT_EQ(minUnitOf(bond, 30), 10);
    EXPECT_EQ(minUnitOf(bond, 31), 10);
    EXPECT_EQ(minUnitOf(bond, 32), 7);
}

TEST(TradeMinUnit, NewBondRulesAreSwitchedMarketByMarket) {
    const auto shanghai = make("SH").underNewRules().bondRule(1, 7, 8);
    const auto shenzhen = make("SZ").underNewRules().bondRule(1, 7, 8);
    standin::PlatformData data;
    shanghai.addTo(data);
    shenzhen.addTo(data);
    standin::PlatformData::install(std::move(data));
    tests::LoadedStore store;
    for (unsigned switches = 0; switches <= tests::kAllSwitches; ++switches) {
        store.load(tests::settingsWith(switches));
        EXPECT_EQ(minUnitOf(shanghai), (switches & kShBonds) != 0 ? 7 : 100) << switches;
        EXPECT_EQ(minUnitOf(shenzhen), (switches & kSzBonds) != 0 ? 7 : 100) << switches;
    }
}

TEST(TradeMinUnit, Type10006WithoutAStepTakes100AndWithoutARecord1) {
    const auto empty = make("SZ").type(10006).record({{2009, 0}});
    tests::installOnly(empty);
    EXPECT_EQ(minUnitOf(empty), 100);
    const auto unknown = make("SZ").type(10006);
    tests::installOnly(unknown);
    EXPECT_EQ(minUnitOf(unknown), 1);
}

TEST(TradeMinUnit, CodeIsAskedUnderFixedMarketsWhateverItsOwn) {
    for (const char* market : {"SH", "SZ", "HK", "NASDAQ", "XX"}) {
        const auto pledged = make(market).typeOn("SH", 126);
        const auto known = std::string(market) == "SH" ? make("SH").type(126) : pledged;
        tests::installOnly(known);
        EXPECT_EQ(minUnitOf(known), 1000) << market;
        const auto other = std::string(market) == "SZ" ? make("SZ").type(100017) : make(market).typeOn("SZ", 100017);
        tests::installOnly(other);
        EXPECT_EQ(minUnitOf(other), 10) << market;
    }
}

TEST(TradeMinUnit, BjAndNeeqEndWithTheirOwnRuleBeforeTheStockExchanges) {
    for (const char* market : {"BJ", "NEEQ"}) {
        for (const int type : {0, 157, 10040, 167, 168, 10075}) {
            const auto instrument = make(market).type(type).base(1172);
            tests::installOnly(instrument);
            EXPECT_EQ(minUnitOf(instrument), 1000) << market << ", type " << type;
        }
    }
    EXPECT_EQ(ttservice::getTradeMinUnit("BJ", "920001", tests::operation(1029)), 1);
}

TEST(TradeMinUnit, UsSharesTake1WhateverTheirRecord) {
    for (const char* market : {"NASDAQ", "NYSE"}) {
        const auto share = make(market).type(100003).record({{2001, 100}, {2009, 100}, {2013, 100}});
        tests::installOnly(share);
        EXPECT_EQ(minUnitOf(share), 1) << market;
    }
}

TEST(TradeMinUnit, PlainShareTakes100InEveryOperation) {
    const auto share = make("SH").type(100003);
    tests::installOnly(share);
    for (int op = -2; op <= 1200; ++op)
        EXPECT_EQ(minUnitOf(share, op), 100) << op;
}
