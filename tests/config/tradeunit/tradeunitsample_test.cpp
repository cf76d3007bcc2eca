#include <gtest/gtest.h>

#include <cstddef>
#include <fstream>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>

#include <mongo/bson/bson.h>
#include <mongo/db/json.h>
#include <standin/platformdatafile.h>
#include <ttplatform/rights.h>

#include "tests/config/tradeunit/tradeunitmade.h"
#include "tests/support/store.h"
#include "traderbase/base/config/internal/limits/limitcategories.h"
#include "traderbase/base/config/internal/words/categorywords.h"

// The sample platform demonstrates every rule: a new rule needs a sample instrument.

namespace bson = mongo;
namespace internal = ttservice::internal;

namespace {

const std::string kSample = TT_SOURCE_DIR "/samples/platform.json";

using Instruments = std::set<std::pair<std::string, std::string>>;

void addExactCodes(const bson::BSONObj& entries, Instruments& instruments) {
    for (bson::BSONObjIterator entry(entries); entry.more();) {
        const bson::BSONObj row = entry.next().embeddedObject();
        for (const bson::BSONElement& code : row["codes"].Array()) {
            if (code.str().find('*') == std::string::npos) instruments.emplace(row["market"].str(), code.str());
        }
    }
}

void addNamedCodes(const bson::BSONObj& entries, Instruments& instruments) {
    for (bson::BSONObjIterator entry(entries); entry.more();) {
        const bson::BSONObj row = entry.next().embeddedObject();
        instruments.emplace(row["market"].str(), row["code"].str());
    }
}

// Every instrument that the file names by full code.
Instruments instrumentsOfTheSample() {
    std::ostringstream text;
    text << std::ifstream(kSample, std::ios::binary).rdbuf();
    const bson::BSONObj file = bson::fromjson(text.str());
    Instruments instruments;
    for (const char* member : {"stockTypes", "baseTypes", "newRulesBonds", "techBoardCdr", "issueAdditional"})
        addExactCodes(file[member].embeddedObject(), instruments);
    for (const char* member : {"instruments", "bondRules"})
        addNamedCodes(file[member].embeddedObject(), instruments);
    return instruments;
}

class SamplePlatform : public testing::Test {
protected:
    void SetUp() override {
        std::string error;
        ASSERT_TRUE(standin::installPlatformFile(kSample, error)) << error;
        instruments = instrumentsOfTheSample();
    }

    Instruments instruments;
};

template <typename Rule>
std::set<std::string> numbersOf(const std::set<Rule>& rules) {
    std::set<std::string> numbers;
    for (const Rule rule : rules)
        numbers.emplace(internal::describe(rule).number);
    return numbers;
}

template <std::size_t Count>
std::set<std::string> numbersThatDecide(const internal::UnitRuleText (&rules)[Count]) {
    std::set<std::string> numbers;
    for (const auto& rule : rules) {
        if (rule.reach == internal::RuleReach::Decides) numbers.emplace(rule.number);
    }
    return numbers;
}

}  // namespace

TEST_F(SamplePlatform, NamesAtLeast40Instruments) {
    EXPECT_GE(instruments.size(), 40U);
}

TEST_F(SamplePlatform, ReachesEveryUnitRule) {
    std::set<internal::StockUnitRule> words;
    std::set<internal::TradeUnitRule> exchangeUnits;
    std::set<internal::MinUnitRule> operations;
    std::set<internal::UiUnitRule> forms;
    tests::LoadedStore store;
    for (unsigned switches = tests::kNone; switches <= tests::kAllSwitches; ++switches) {
        store.load(tests::settingsWith(switches));
        for (const auto& [market, code] : instruments) {
            words.insert(internal::stockUnit(market, code).rule);
            exchangeUnits.insert(internal::stockTradeUnit(market, code).rule);
            for (int op = -1; op <= 1152; ++op) {
                operations.insert(internal::tradeMinUnit(market, code, op, tests::kStoreSwitches).rule);
                for (const bool flag : {false, true})
                    forms.insert(internal::uiMinUnit(market, code, flag, op, tests::kStoreSwitches).rule);
            }
        }
    }
    EXPECT_EQ(numbersOf(words), numbersThatDecide(internal::kStockUnitRules));
    EXPECT_EQ(numbersOf(exchangeUnits), numbersThatDecide(internal::kTradeUnitRules));
    EXPECT_EQ(numbersOf(operations), numbersThatDecide(internal::kMinUnitRules));
    EXPECT_EQ(numbersOf(forms), numbersThatDecide(internal::kUiUnitRules));
}

TEST_F(SamplePlatform, ReachesEveryCategoryWordOfTheLimitTables) {
    namespace words = internal::words;
    const std::set<std::string_view> all = {words::kStock,
                                            words::kLoan,
                                            words::kFund,
                                            words::kMoneyFund,
                                            words::kEtf,
                                            words::kIpo,
                                            words::kRepurchase,
                                            words::kRepurchaseImpawn,
                                            words::kRepurchaseBuyOut,
                                            words::kCdr,
                                            words::kLondonCdr,
                                            words::kInnovation,
                                            words::kDef,
                                            words::kPif,
                                            words::kTechStockLimit,
                                            words::kTechStockMarket,
                                            words::kTechStockClose,
                                            words::kMarket,
                                            words::kLimit,
                                            words::kDirectionalConvertibleBond};
    std::set<std::string_view> reached;
    for (const auto& [market, code] : instruments) {
        for (const int priceType : {50, 84, 117, 1})
            reached.insert(internal::orderLimitCategory(market, code, static_cast<EBrokerPriceType>(priceType)).word);
        reached.insert(internal::blockTradeQuantityCategory(market, code).word);
        reached.insert(internal::blockTradeAmountCategory(market, code).word);
        reached.insert(internal::stockRateCategory(market, code).word);
    }
    EXPECT_EQ(reached, all);
}

TEST_F(SamplePlatform, GivesTheUserSomeAlgorithmProducts) {
    EXPECT_TRUE(ttservice::testAuth("mdl_alg", "mdl_alg_twap"));
    EXPECT_TRUE(ttservice::testAuth("mdl_alg", "mdl_alg_zxjt1"));
    EXPECT_FALSE(ttservice::testAuth("mdl_alg", "mdl_alg_nobody"));
}
