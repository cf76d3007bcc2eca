#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

#include <standin/queryhook.h>
#include <ttplatform/stocktypecenter.h>
#include <ttplatform/tradercenter.h>

#include "tests/config/tradeunit/tradeunitmade.h"
#include "tests/support/allocations.h"

// The questions that units ask the platform, and their order: hosts can observe both.

using tests::exchangeUnitOf;
using tests::formUnitOf;
using tests::kShBonds;
using tests::make;
using tests::minUnitOf;
using tests::wordOf;

namespace {

using Questions = std::vector<std::string>;

// A question in short: "type 126 SH", "base 1172", "first", ...; the market is omitted when it is the instrument's own.
std::string inShort(const standin::Query& query, const std::string& market) {
    static const std::map<std::string, std::string> names = {
        {"StockTypeCenter::isTypedStock", "type"},
        {"StockTypeCenter::getMarketEnumFromString", "number"},
        {"ttservice::isTypedStock", "base"},
        {"ttservice::isNewRulesBond", "newRules"},
        {"ttservice::getBondTradeType", "tradeType"},
        {"ttservice::isTechBoardCDRCode", "cdr"},
        {"ttservice::isIssueAdditionalStock", "additional"},
        {"IDataCenter::getInstrument", "record"},
        {"IDataCenter::getBondRule", "bondRule"},
        {"IDataCenter::passesFirstMarketTest", "first"},
        {"IDataCenter::passesSecondMarketTest", "second"},
    };
    const auto name = names.find(std::string(query.operation));
    std::string text = name == names.end() ? std::string(query.operation) : name->second;
    if (query.number != 0) text += ' ' + std::to_string(query.number);
    if (!query.first.empty() && query.first != market) text += ' ' + std::string(query.first);
    return text;
}

// The platform's questions during one query about an instrument. The store is built beforehand.
template <typename Ask>
Questions questionsOf(const tests::Made& made, Ask ask) {
    tests::installOnly(made);
    ttservice::ConfigCollector::instance();
    Questions seen;
    standin::setQueryHook([&](const standin::Query& query) { seen.push_back(inShort(query, made.market)); });
    ask(made);
    standin::setQueryHook({});
    return seen;
}

Questions wordQuestions(const tests::Made& made) {
    return questionsOf(made, [](const tests::Made& asked) { wordOf(asked); });
}
Questions exchangeQuestions(const tests::Made& made) {
    return questionsOf(made, [](const tests::Made& asked) { exchangeUnitOf(asked); });
}
Questions minQuestions(const tests::Made& made, int op = -1) {
    return questionsOf(made, [op](const tests::Made& asked) { minUnitOf(asked, op); });
}
Questions formQuestions(const tests::Made& made, bool flag, int op = -1) {
    return questionsOf(made, [=](const tests::Made& asked) { formUnitOf(asked, flag, op); });
}

bool asks(const Questions& questions, const std::string& wanted) {
    for (const auto& question : questions) {
        if (question.compare(0, wanted.size(), wanted) == 0) return true;
    }
    return false;
}

const Questions kMinUpToRule12 = {"record",      "type 10006",  "type 124",   "type 126 SH", "type 100017 SZ",
                                  "type 100104", "type 100103", "additional", "type 100016", "type 142",
                                  "base 1117",   "type 290",    "type 278"};

Questions operator+(Questions questions, const Questions& more) {
    questions.insert(questions.end(), more.begin(), more.end());
    return questions;
}

}  // namespace

TEST(UnitQuestions, WordAsksTypesThenTheMarketsNumber) {
    EXPECT_EQ(wordQuestions(make("XX")),
              (Questions{"type 100003", "type 100013", "type 100004", "type 100024", "type 100036", "cdr",
                         "type 100016", "type 126", "type 100017", "type 142", "number"}));
    EXPECT_EQ(wordQuestions(make("XX").type(100003)), (Questions{"type 100003"}));
    EXPECT_EQ(wordQuestions(make("XX").type(100024)),
              (Questions{"type 100003", "type 100013", "type 100004", "type 100024"}));
}

TEST(UnitQuestions, ExchangeUnitFetchesTheRecordFirst) {
    EXPECT_EQ(exchangeQuestions(make("XX")), (Questions{"record", "type 159", "first", "second"}));
    EXPECT_EQ(exchangeQuestions(make("SH")), (Questions{"record", "type 100016", "type 126", "type 100017", "type 142",
                                                        "type 100004", "type 100013", "type 100024"}));
    EXPECT_EQ(exchangeQuestions(make("HGT")), (Questions{"record", "type 159"}));
}

TEST(UnitQuestions, MarketTestsAreAskedInTheirOrderUntilTheFirstYes) {
    EXPECT_EQ(exchangeQuestions(make("XX").passingFirstTest().passingSecondTest()),
              (Questions{"record", "type 159", "first"}));
    EXPECT_EQ(exchangeQuestions(make("XX").passingSecondTest()), (Questions{"record", "type 159", "first", "second"}));
    const Questions first = formQuestions(make("XX").passingFirstTest().passingSecondTest(), true);
    EXPECT_EQ(first.back(), "first");
    const Questions second = formQuestions(make("XX").passingSecondTest(), true);
    ASSERT_GE(second.size(), 2U);
    EXPECT_EQ(second[second.size() - 2], "first");
    EXPECT_EQ(second.back(), "second");
    EXPECT_FALSE(asks(formQuestions(make("HGT"), true), "first"));
    EXPECT_FALSE(asks(minQuestions(make("XX")), "first"));
}

TEST(UnitQuestions, MinUnitGoesThroughItsRulesInOrder) {
    EXPECT_EQ(minQuestions(make("XX")),
              kMinUpToRule12 + (Questions{"type 10040", "type 167", "type 168", "type 10075", "base 1172"}));
    EXPECT_EQ(minQuestions(make("SSE")), kMinUpToRule12 + (Questions{"type 10040", "type 167", "type 168", "type 10075",
                                                                     "base 1172", "type 157"}));
    EXPECT_TRUE(asks(minQuestions(make("SH")), "base 1062"));
    EXPECT_TRUE(asks(minQuestions(make("SZ")), "base 1062"));
    EXPECT_FALSE(asks(minQuestions(make("BJ")), "base 1062"));
    EXPECT_EQ(minQuestions(make("SZ").type(100016).type(10019), 51),
              (Questions{"record", "type 10006", "type 124", "type 126 SH", "type 100017", "type 100104", "type 100103",
                         "additional", "type 100016", "type 10019"}));
}

TEST(UnitQuestions, MinUnitAsksTheNewBoardsTypesInTheirOrderUntilTheFirstYes) {
    EXPECT_EQ(minQuestions(make("BJ")), kMinUpToRule12 + (Questions{"type 20000 NEEQ", "base 1606", "base 1608",
                                                                    "base 1609", "base 1607", "base 1610"}));
    EXPECT_EQ(minQuestions(make("BJ").base(1609).base(1607)),
              kMinUpToRule12 + (Questions{"type 20000 NEEQ", "base 1606", "base 1608", "base 1609"}));
    EXPECT_EQ(minQuestions(make("BJ").typeOn("NEEQ", 20000).base(1606)),
              kMinUpToRule12 + (Questions{"type 20000 NEEQ"}));
    EXPECT_EQ(minQuestions(make("BJ"), 1029), kMinUpToRule12);
}

TEST(UnitQuestions, FormUnitGoesThroughItsRulesInOrder) {
    EXPECT_EQ(formQuestions(make("XX"), true),
              (Questions{"record", "type 100104", "type 124", "type 126 SH", "type 100017 SZ", "type 100016",
                         "additional", "type 142", "type 290", "type 278", "type 10006", "type 10040", "type 167",
                         "type 168", "type 10075", "base 1172", "first", "second"}));
    const Questions board = formQuestions(make("BJ"), true);
    ASSERT_GE(board.size(), 6U);
    EXPECT_EQ(Questions(board.end() - 6, board.end()),
              (Questions{"type 20000 NEEQ", "base 1606", "base 1607", "base 1608", "base 1609", "base 1610"}));
    EXPECT_FALSE(asks(formQuestions(make("XX"), true), "base 1117"));
}

TEST(UnitQuestions, NewBondRulesAreAskedForOnlyWhereSwitchedOn) {
    const auto bond = make("SH").underNewRules().bondRule(1, 7, 8);
    EXPECT_FALSE(asks(minQuestions(bond), "newRules"));
    EXPECT_FALSE(asks(formQuestions(bond, true), "newRules"));
    const tests::LoadedStore store(tests::settingsWith(kShBonds));
    // The host is asked about "no particular operation", whatever the operation.
    const Questions expected = {"record", "newRules -1", "tradeType 1", "bondRule 1", "type 100021"};
    EXPECT_EQ(minQuestions(bond, 1), expected);
    EXPECT_EQ(formQuestions(bond, true, 1), expected);
    EXPECT_EQ(formQuestions(bond, false, 1), expected);
    EXPECT_EQ(minQuestions(bond, 57),
              (Questions{"record", "newRules -1", "tradeType 57", "bondRule 4", "type 100021"}));
    EXPECT_FALSE(asks(minQuestions(make("SZ").underNewRules()), "newRules"));
}

TEST(UnitQuestions, Operations30And31NeverAskForABondRule) {
    const auto bond = make("SH").underNewRules().bondRule(1, 7, 8).bondRule(2, 7, 8);
    const tests::LoadedStore store(tests::settingsWith(kShBonds));
    for (const int op : {30, 31}) {
        for (const Questions& questions : {minQuestions(bond, op), formQuestions(bond, true, op)}) {
            EXPECT_FALSE(asks(questions, "bondRule")) << op;
            EXPECT_FALSE(asks(questions, "tradeType")) << op;
        }
    }
    EXPECT_TRUE(asks(minQuestions(bond, 29), "bondRule"));
    EXPECT_TRUE(asks(minQuestions(bond, 32), "bondRule"));
}

TEST(UnitQuestions, RecordIsFetchedFirstAndOnce) {
    const auto instrument = make("SH").type(124);
    for (const Questions& questions :
         {exchangeQuestions(instrument), minQuestions(instrument), formQuestions(instrument, true)}) {
        ASSERT_FALSE(questions.empty());
        EXPECT_EQ(questions.front(), "record");
        EXPECT_EQ(std::count(questions.begin(), questions.end(), "record"), 1);
    }
    EXPECT_FALSE(asks(wordQuestions(instrument), "record"));
}

TEST(UnitQuestions, WhatAHostThrowsReachesTheCallerAndTheNextAnswerIsRight) {
    const auto share = make("SH");
    tests::installOnly(share);
    standin::setQueryHook([](const standin::Query&) { throw std::runtime_error("host"); });
    EXPECT_THROW(wordOf(share), std::runtime_error);
    EXPECT_THROW(exchangeUnitOf(share), std::runtime_error);
    EXPECT_THROW(minUnitOf(share), std::runtime_error);
    EXPECT_THROW(formUnitOf(share, true), std::runtime_error);
    standin::setQueryHook({});
    EXPECT_EQ(minUnitOf(share), 100);
}

TEST(UnitQuestions, AnsweringAllocatesNothing) {
    standin::PlatformData data = tests::emptyPlatform({{"XX", 40}});
    std::vector<tests::Made> instruments;
    for (const char* market : {"SH", "SZ", "BJ", "NEEQ", "SHO", "HGT", "SZSEHKEX", "HK", "NYSE", "XX", "SHFE"}) {
        instruments.push_back(make(market));
        instruments.push_back(make(market).type(10006).record({{2001, 5}, {2009, 7}, {2013, 9}}));
        instruments.push_back(make(market).underNewRules().bondRule(1, 7, 8).type(100013));
        instruments.push_back(make(market).passingSecondTest().base(1172).base(1062));
    }
    for (const auto& instrument : instruments)
        instrument.addTo(data);
    standin::PlatformData::install(std::move(data));
    const tests::LoadedStore store(tests::settingsWith(tests::kAllSwitches));
    // The platform creates its own objects on first use.
    StockTypeCenter::instance();
    TraderCenter::instance().getDataCenter();
    const tests::Allocations counted;
    long sum = 0;
    for (const auto& instrument : instruments) {
        // The unit words fit into a string without allocation.
        sum += static_cast<long>(wordOf(instrument).size());
        sum += exchangeUnitOf(instrument);
        for (const int op : {-1, 0, 31, 57, 1029}) {
            sum += minUnitOf(instrument, op) + formUnitOf(instrument, true, op) + formUnitOf(instrument, false, op);
        }
        sum += ttservice::isBuyOpt(tests::operation(57)) ? 1 : 0;
    }
    EXPECT_EQ(counted.made(), 0);
    EXPECT_GT(sum, 0);
}
