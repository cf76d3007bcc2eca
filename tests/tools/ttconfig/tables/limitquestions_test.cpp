// Which rows of a limit table a question reaches, compared with the library's category rules: one instrument of each
// type, on each market, at each kind of price.

#include <gmock/gmock.h>
#include <standin/platformdata.h>
#include <standin/settingstext.h>

#include <map>
#include <set>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "traderbase/base/config/internal/limits/limitcategories.h"
#include "traderbase/base/config/internal/limits/limittables.h"
#include "ttconfig/tables/limitquestions.h"
#include "ttconfig/tables/limittable.h"

namespace {

using ttconfig::LimitQuestionSpec;
using namespace ttservice::internal;

const std::vector<std::string> kMarkets = {"SH",      "SZ",  "BJ",       "NEEQ", "SHFE", "HGT",
                                           "SSEHKEX", "SGT", "SZSEHKEX", "HKFE", "SHO",  "SZO"};

void installTypes(int stock, int second, int base) {
    standin::PlatformData data;
    for (const std::string& market : kMarkets) {
        if (stock != 0) data.addStockType(stock, market, "*");
        if (second != 0) data.addStockType(second, market, "*");
        if (base != 0) data.addBaseType(base, market, "*");
    }
    standin::PlatformData::install(std::move(data));
}

// Calls look() with each kind of instrument installed.
template <typename Look>
void withEveryKind(const Look& look) {
    for (const int stock : {0, 100003, 100024, 100016, 100103, 100004, 100013, 126, 100017, 100021, 124, 100104}) {
        for (const int base : {0, 1062, 1117, 1172, 1154, 1124, 1136}) {
            for (const int second : {0, 126}) {
                installTypes(stock, second, base);
                look();
            }
        }
    }
    standin::PlatformData::install(standin::PlatformData());
}

using Asked = std::map<std::pair<const LimitQuestionSpec*, std::string>, std::set<std::string_view>>;

void addAsked(Asked& asked) {
    for (const std::string& market : kMarkets) {
        for (const int price : {0, 50, 117, 84}) {
            const auto type = static_cast<EBrokerPriceType>(price);
            asked[{&kOrderLimitQuestion, market}].insert(orderLimitCategory(market, "1", type).word);
        }
        asked[{&kBlockTradeQuantityQuestion, market}].insert(blockTradeQuantityCategory(market, "1").word);
        asked[{&kBlockTradeAmountQuestion, market}].insert(blockTradeAmountCategory(market, "1").word);
        asked[{&kStockRateQuestion, market}].insert(stockRateCategory(market, "1").word);
        asked[{&kShanghaiConnectRateQuestion, market}].insert(shanghaiConnectRateCategory(market, "1").word);
        asked[{&kShenzhenConnectRateQuestion, market}].insert(shenzhenConnectRateCategory().word);
    }
}

std::set<std::string_view> asSet(const std::vector<std::string_view>& words) {
    return {words.begin(), words.end()};
}

TEST(LimitQuestions, KnowTheCategoriesThatTheRulesProduce) {
    Asked asked;
    withEveryKind([&asked] { addAsked(asked); });
    ASSERT_EQ(asked.size(), std::size(kLimitQuestions) * kMarkets.size());
    std::set<std::string_view> all;
    for (const auto& [table, words] : asked) {
        EXPECT_EQ(asSet(ttconfig::categoryWordsOf(*table.first, table.second)), words)
            << table.first->operation << ' ' << table.second;
        for (const std::string_view word : ttconfig::categoryWords()) {
            EXPECT_EQ(ttconfig::isReachable(*table.first, table.second, word), words.count(word) > 0)
                << table.first->operation << ' ' << table.second << ' ' << word;
        }
        all.insert(words.begin(), words.end());
    }
    EXPECT_EQ(asSet(ttconfig::categoryWords()), all);
}

// What check says about a row agrees, except that options without a type depend on the price alone.
TEST(LimitQuestions, SayWhyARowIsUnreachableAndOnlyThen) {
    installTypes(0, 0, 0);
    Asked untyped;
    addAsked(untyped);
    for (const LimitQuestionSpec* question : kLimitQuestions) {
        for (const std::string& market : kMarkets) {
            const bool isOption = question == &kOrderLimitQuestion && (market == "SHO" || market == "SZO");
            for (const std::string_view word : ttconfig::categoryWords()) {
                const bool isAsked = isOption ? untyped[{question, market}].count(word) > 0
                                              : ttconfig::isReachable(*question, market, word);
                EXPECT_EQ(ttconfig::whyUnreachable(*question, market, word).empty(), isAsked)
                    << question->operation << ' ' << market << ' ' << word;
            }
        }
    }
}

TEST(LimitQuestions, AskForCodesWhereThereAreAny) {
    using ttconfig::isReachable;
    EXPECT_TRUE(isReachable(kOrderLimitQuestion, "SH", "600000"));
    EXPECT_TRUE(isReachable(kStockRateQuestion, "SHFE", "AG"));
    EXPECT_FALSE(isReachable(kBlockTradeQuantityQuestion, "SH", "600000")) << "by category alone";
    EXPECT_FALSE(isReachable(kBlockTradeAmountQuestion, "SH", "600000"));
    EXPECT_FALSE(isReachable(kOrderLimitQuestion, "SH", "STOCKS")) << "codes of SH hold a digit";
    EXPECT_FALSE(isReachable(kOrderLimitQuestion, "SH", "CDR")) << "a category of the rates";
    EXPECT_FALSE(isReachable(kOrderLimitQuestion, "SH", ""));
    EXPECT_FALSE(isReachable(kOrderLimitQuestion, "", "600000"));
    EXPECT_FALSE(isReachable(kShanghaiConnectRateQuestion, "HK", "00700")) << "looked up as HGT";
    EXPECT_TRUE(isReachable(kOrderLimitQuestion, "HK", "00700"));
}

TEST(LimitQuestions, KnowWordsThatAreNeitherCategoriesNorCodes) {
    EXPECT_TRUE(ttconfig::isOddWord("SH", "STOCKS"));
    EXPECT_TRUE(ttconfig::isOddWord("SHFE", "DEFF"));
    EXPECT_FALSE(ttconfig::isOddWord("SH", "STOCK"));
    EXPECT_FALSE(ttconfig::isOddWord("SH", "600000"));
    EXPECT_FALSE(ttconfig::isOddWord("CFFEX", "IF"));
    EXPECT_FALSE(ttconfig::isOddWord("NASDAQ", "STOCKS"));
    EXPECT_EQ(ttconfig::categoryMeant("BOND"), "LOAN");
    EXPECT_EQ(ttconfig::categoryMeant("STOK"), "STOCK");
    EXPECT_EQ(ttconfig::categoryMeant("SOMETHINGELSE"), "");
}

// Four prices represent all of them.
TEST(LimitQuestions, KnowTheWordsOfACodeWhateverItsPriceIs) {
    withEveryKind([] {
        for (const std::string& market : kMarkets) {
            std::set<std::string_view> words;
            for (int price = -1; price < 200; ++price)
                words.insert(orderLimitCategory(market, "1", static_cast<EBrokerPriceType>(price)).word);
            ASSERT_EQ(asSet(ttconfig::categoryWordsOfCode(kOrderLimitQuestion, market, "1")), words) << market;
            for (const LimitQuestionSpec* question : kLimitQuestions) {
                for (const std::string_view word : ttconfig::categoryWordsOfCode(*question, market, "1"))
                    ASSERT_THAT(ttconfig::categoryWordsOf(*question, market), testing::Contains(word)) << market;
            }
        }
    });
}

TEST(LimitItems, AreTheRowsThatCountInOrder) {
    const standin::SettingsText text(
        std::string("[StkExchangeOrderLimit]\nsz-2,SH-9=1,u\nSH-9=2,u\nSH-1=too,many,fields\nSH-1=3,u\nsh-9=4,u\n"
                    "[HGTExchangeOrderLimit]\nSZ-2=5,u\nSH=6,u\n"));
    const auto rows = ttconfig::limitItems(text, kOrderLimitTable);
    std::vector<std::string> written;
    for (const auto& row : rows)
        written.push_back(std::string(row.item().text) + '=' + std::string(row.entry->value));
    // The first of the repeated key SH-1 counts, and it has too many fields.
    EXPECT_THAT(written, testing::ElementsAre("sh-9=4,u", "SH=6,u", "SZ-2=5,u"));
    ASSERT_NE(ttconfig::findLimitItem(rows, "SZ", "2"), nullptr);
    EXPECT_EQ(ttconfig::findLimitItem(rows, "SZ", "2")->place(), (ttconfig::Place{8, 1}));
    EXPECT_EQ(ttconfig::findLimitItem(rows, "SH", "1"), nullptr);
    EXPECT_EQ(ttconfig::findLimitItem(rows, "ZZ", "1"), nullptr);
}

TEST(LimitQuestions, KnowAnInstrumentByItsTypesOrByItsRecord) {
    standin::PlatformData data;
    data.addStockType(100003, "SH", "6*");
    data.addBaseType(1136, "SH", "9");
    data.addInstrument("SH", "1", {{1, 1}});
    for (const char* code : {"600000", "9", "1"})
        EXPECT_TRUE(ttconfig::knowsInstrument(data, "SH", code)) << code;
    EXPECT_FALSE(ttconfig::knowsInstrument(data, "SH", "2"));
    EXPECT_FALSE(ttconfig::knowsInstrument(data, "SZ", "600000"));
}

}  // namespace
