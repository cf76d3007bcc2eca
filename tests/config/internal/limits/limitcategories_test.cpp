#include "traderbase/base/config/internal/limits/limitcategories.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "standin/platformdata.h"
#include "standin/queryhook.h"
#include "tests/support/slowcategories.h"

using ttservice::internal::blockTradeAmountCategory;
using ttservice::internal::blockTradeQuantityCategory;
using ttservice::internal::LimitCategory;
using ttservice::internal::orderLimitCategory;
using ttservice::internal::shanghaiConnectRateCategory;
using ttservice::internal::shenzhenConnectRateCategory;
using ttservice::internal::stockRateCategory;

namespace {

using Source = tests::TypeSource;
using Type = tests::InstrumentType;
using Rule = tests::CategoryRule;
using Categorise = LimitCategory (*)(const std::string& market, const std::string& code);

// A table's rules, and what is categorised by them.
struct Table : tests::CategoryTable {
    std::string name;
    Categorise categorise;
};

constexpr int kOrdinaryPrice = 11;

LimitCategory orderCategory(const std::string& market, const std::string& code) {
    return orderLimitCategory(market, code, static_cast<EBrokerPriceType>(kOrdinaryPrice));
}

const std::vector<Table>& tables() {
    static const std::vector<Table> all = {
        {tests::kOrderLimitCategories, "order limits", &orderCategory},
        {tests::kBlockTradeQuantityCategories, "block trade quantities", &blockTradeQuantityCategory},
        {tests::kBlockTradeAmountCategories, "block trade amounts", &blockTradeAmountCategory},
        {tests::kStockRateCategories, "stock rates", &stockRateCategory},
        {tests::kShanghaiConnectRateCategories, "Shanghai connect rates", &shanghaiConnectRateCategory},
    };
    return all;
}

void add(standin::PlatformData& data, Type type, const std::string& market, const std::string& code) {
    if (type.source == Source::Base) {
        data.addBaseType(type.number, market, code);
    } else {
        data.addStockType(type.number, market, code);
    }
}

// Gives code "1" of market "XX" these types and no others.
void installTypes(const std::vector<Type>& types) {
    standin::PlatformData data;
    for (const Type& type : types)
        add(data, type, "XX", "1");
    standin::PlatformData::install(data);
}

std::string orderWord(const std::string& market, int priceType, const std::string& code = "1") {
    return std::string(orderLimitCategory(market, code, static_cast<EBrokerPriceType>(priceType)).word);
}

// "base 1062", "center 100003": the questions to the platform, in order.
std::vector<std::string> questions(Categorise categorise) {
    std::vector<std::string> asked;
    standin::setQueryHook([&asked](const standin::Query& query) {
        EXPECT_EQ(query.first, "XX");
        EXPECT_EQ(query.second, "1");
        const bool isBase = query.operation == "ttservice::isTypedStock";
        EXPECT_TRUE(isBase || query.operation == "StockTypeCenter::isTypedStock") << query.operation;
        asked.push_back((isBase ? "base " : "center ") + std::to_string(query.number));
    });
    categorise("XX", "1");
    standin::setQueryHook(nullptr);
    return asked;
}

}  // namespace

TEST(LimitCategories, EachTypeHasItsWord) {
    for (const Table& table : tables()) {
        for (const Rule& rule : table.rules) {
            installTypes({rule.type});
            EXPECT_EQ(table.categorise("XX", "1").word, rule.word) << table.name << ", type " << rule.type.number;
        }
    }
}

TEST(LimitCategories, AnInstrumentOfNoTypeHasTheTablesOwnWord) {
    for (const Table& table : tables()) {
        installTypes({});
        EXPECT_EQ(table.categorise("XX", "1").word, table.otherwise) << table.name;
        EXPECT_EQ(table.categorise("XX", "1").rule, "no other rule") << table.name;
    }
}

TEST(LimitCategories, TheTypeOfAnotherInstrumentDecidesNothing) {
    for (const Table& table : tables()) {
        for (const Rule& rule : table.rules) {
            installTypes({rule.type});
            EXPECT_EQ(table.categorise("XX", "2").word, table.otherwise) << table.name << ", type " << rule.type.number;
            EXPECT_EQ(table.categorise("XY", "1").word, table.otherwise) << table.name << ", type " << rule.type.number;
        }
    }
}

TEST(LimitCategories, TheTwoServicesNumberTheirTypesIndependently) {
    for (const Table& table : tables()) {
        for (const Rule& rule : table.rules) {
            const Source other = rule.type.source == Source::Base ? Source::Center : Source::Base;
            installTypes({{other, rule.type.number}});
            EXPECT_EQ(table.categorise("XX", "1").word, table.otherwise) << table.name << ", type " << rule.type.number;
        }
    }
}

TEST(LimitCategories, NeighbouringTypeNumbersDecideNothing) {
    for (const Table& table : tables()) {
        for (const Rule& rule : table.rules) {
            for (const int near : {rule.type.number - 1, rule.type.number + 1}) {
                bool isRule = false;
                for (const Rule& other : table.rules)
                    isRule = isRule || other.type.number == near;
                if (isRule) continue;
                installTypes({{rule.type.source, near}});
                EXPECT_EQ(table.categorise("XX", "1").word, table.otherwise) << table.name << ", type " << near;
            }
        }
    }
}

TEST(LimitCategories, OfTwoTypesTheEarlierRuleDecides) {
    for (const Table& table : tables()) {
        for (std::size_t first = 0; first < table.rules.size(); ++first) {
            for (std::size_t second = first + 1; second < table.rules.size(); ++second) {
                installTypes({table.rules[second].type, table.rules[first].type});
                EXPECT_EQ(table.categorise("XX", "1").word, table.rules[first].word)
                    << table.name << ", types " << table.rules[first].type.number << " and "
                    << table.rules[second].type.number;
            }
        }
    }
}

// Also shows that no question is asked once a rule has decided.
TEST(LimitCategories, TypesAreAskedInTheOrderOfTheRules) {
    for (const Table& table : tables()) {
        std::vector<std::string> expected;
        for (const Rule& rule : table.rules) {
            expected.push_back((rule.type.source == Source::Base ? "base " : "center ") +
                               std::to_string(rule.type.number));
            installTypes({rule.type});
            std::vector<std::string> asked = questions(table.categorise);
            if (rule.word == "REPURCHASE" && table.name == "order limits") {
                EXPECT_EQ(std::vector<std::string>(asked.end() - 2, asked.end()),
                          (std::vector<std::string>{"center 100021", "center 124"}));
                asked.resize(asked.size() - 2);
            }
            EXPECT_EQ(asked, expected) << table.name << ", type " << rule.type.number;
        }
        installTypes({});
        EXPECT_EQ(questions(table.categorise), expected) << table.name;
    }
}

// --- what only order limits distinguish

TEST(OrderLimitCategory, TechnologyBoardStocksGoByPriceType) {
    installTypes({{Source::Base, 1172}});
    struct {
        int priceType;
        const char* word;
    } const rows[] = {{50, "TECHSTOCKLIMIT"},  {117, "TECHSTOCKCLOSE"},  {49, "TECHSTOCKMARKET"},
                      {51, "TECHSTOCKMARKET"}, {116, "TECHSTOCKMARKET"}, {118, "TECHSTOCKMARKET"},
                      {-1, "TECHSTOCKMARKET"}, {0, "TECHSTOCKMARKET"},   {85, "TECHSTOCKMARKET"}};
    for (const auto& row : rows)
        EXPECT_EQ(orderWord("XX", row.priceType), row.word) << row.priceType;
}

TEST(OrderLimitCategory, ConnectMarketsAreStocksWithoutAnyType) {
    installTypes({});
    for (const char* market : {"HGT", "SSEHKEX", "SGT", "SZSEHKEX"}) {
        EXPECT_EQ(orderWord(market, kOrdinaryPrice), "STOCK") << market;
    }
    for (const char* market : {"hgt", "HGTX", "HG", "HK", "SSEHKE", "SZSEHKEXX", "sgt", ""}) {
        EXPECT_EQ(orderWord(market, kOrdinaryPrice), "DEF") << market;
    }
}

TEST(OrderLimitCategory, AConnectMarketComesAfterTheBoardsAndBeforeTheOtherTypes) {
    for (const char* market : {"HGT", "SSEHKEX", "SGT", "SZSEHKEX"}) {
        standin::PlatformData data;
        data.addBaseType(1062, market, "ipo");
        data.addBaseType(1117, market, "ipo2");
        data.addBaseType(1172, market, "tech");
        for (const int type : {100024, 100016, 100103, 100004, 100013, 126, 100017})
            data.addStockType(type, market, "*");
        standin::PlatformData::install(data);
        EXPECT_EQ(orderWord(market, kOrdinaryPrice, "ipo"), "IPO") << market;
        EXPECT_EQ(orderWord(market, kOrdinaryPrice, "ipo2"), "IPO") << market;
        EXPECT_EQ(orderWord(market, 50, "tech"), "TECHSTOCKLIMIT") << market;
        EXPECT_EQ(orderWord(market, kOrdinaryPrice, "any"), "STOCK") << market;
    }
}

TEST(OrderLimitCategory, RepurchasesAreToldApart) {
    for (const int repurchase : {126, 100017}) {
        installTypes({{Source::Center, repurchase}});
        EXPECT_EQ(orderWord("XX", kOrdinaryPrice), "REPURCHASE");
        installTypes({{Source::Center, repurchase}, {Source::Center, 100021}});
        EXPECT_EQ(orderWord("XX", kOrdinaryPrice), "REPURCHASEIMPAWN");
        installTypes({{Source::Center, repurchase}, {Source::Center, 124}});
        EXPECT_EQ(orderWord("XX", kOrdinaryPrice), "REPURCHASEBUYOUT");
        installTypes({{Source::Center, repurchase}, {Source::Center, 124}, {Source::Center, 100021}});
        EXPECT_EQ(orderWord("XX", kOrdinaryPrice), "REPURCHASEIMPAWN");
    }
    installTypes({{Source::Center, 100021}, {Source::Center, 124}});
    EXPECT_EQ(orderWord("XX", kOrdinaryPrice), "DEF") << "the finer types alone make no repurchase";
}

TEST(OrderLimitCategory, OptionsGoByPriceType) {
    installTypes({});
    const std::vector<int> marketPrices = {84,  85,  86,  87,  88,  89,  130, 131, 132,
                                           133, 134, 135, 136, 137, 140, 141, 142};
    for (const char* market : {"SHO", "SZO"}) {
        for (int priceType = -2; priceType < 300; ++priceType) {
            bool isMarketPrice = false;
            for (const int price : marketPrices)
                isMarketPrice = isMarketPrice || price == priceType;
            EXPECT_EQ(orderWord(market, priceType), isMarketPrice ? "MARKET" : "LIMIT") << market << " " << priceType;
        }
    }
    for (const char* market : {"sho", "SHOX", "SH", "SZ", "CFFEX", "SHFE"}) {
        EXPECT_EQ(orderWord(market, 85), "DEF") << market;
    }
}

TEST(OrderLimitCategory, TypesComeBeforeTheOptionAndNeeqMarkets) {
    for (const char* market : {"SHO", "SZO", "NEEQ"}) {
        standin::PlatformData data;
        data.addStockType(126, market, "1");
        data.addStockType(100003, market, "2");
        standin::PlatformData::install(data);
        EXPECT_EQ(orderWord(market, 85, "1"), "REPURCHASE") << market;
        EXPECT_EQ(orderWord(market, 85, "2"), "STOCK") << market;
    }
    EXPECT_EQ(orderWord("NEEQ", 85, "3"), "DEF");
}

// --- asymmetries between the tables

TEST(LimitCategories, BlockTradeAmountsKnowNoPifAndNoConvertibleBonds) {
    for (const int type : {100103, 100104}) {
        installTypes({{Source::Center, type}});
        EXPECT_NE(blockTradeQuantityCategory("XX", "1").word, "STOCK");
        EXPECT_EQ(blockTradeAmountCategory("XX", "1").word, "STOCK");
    }
}

TEST(LimitCategories, ExchangeTradedFundsShareTheFundWordInBlockTradesOnly) {
    installTypes({{Source::Center, 100013}});
    EXPECT_EQ(blockTradeQuantityCategory("XX", "1").word, "FUND");
    EXPECT_EQ(blockTradeAmountCategory("XX", "1").word, "FUND");
    EXPECT_EQ(orderWord("XX", kOrdinaryPrice), "ETF");
    EXPECT_EQ(stockRateCategory("XX", "1").word, "ETF");
}

TEST(LimitCategories, RatesDoNotTellRepurchasesApart) {
    for (const int finer : {100021, 124}) {
        installTypes({{Source::Center, 126}, {Source::Center, finer}});
        EXPECT_EQ(stockRateCategory("XX", "1").word, "REPURCHASE");
    }
}

TEST(LimitCategories, RatesKnowNoMarkets) {
    installTypes({});
    for (const char* market : {"NEEQ", "SHO", "HGT", "SGT", "SH"}) {
        EXPECT_EQ(stockRateCategory(market, "1").word, "DEF") << market;
    }
}

TEST(LimitCategories, RatesKnowNoMoneyFundsAndNoTechnologyBoard) {
    installTypes({{Source::Center, 100024}, {Source::Base, 1172}, {Source::Base, 1062}});
    EXPECT_EQ(stockRateCategory("XX", "1").word, "DEF");
}

TEST(LimitCategories, TheShanghaiConnectMarketDecidesBeforeTheType) {
    standin::PlatformData data;
    for (const char* market : {"HGT", "SSEHKEX", "SGT", "hgt"})
        data.addStockType(100016, market, "*");
    standin::PlatformData::install(data);
    int asked = 0;
    standin::setQueryHook([&asked](const standin::Query&) { ++asked; });
    EXPECT_EQ(shanghaiConnectRateCategory("HGT", "1").word, "STOCK");
    EXPECT_EQ(shanghaiConnectRateCategory("SSEHKEX", "1").word, "STOCK");
    EXPECT_EQ(asked, 0);
    EXPECT_EQ(shanghaiConnectRateCategory("SGT", "1").word, "LOAN") << "not a market of this connect";
    EXPECT_EQ(shanghaiConnectRateCategory("hgt", "1").word, "LOAN") << "markets are compared exactly";
    EXPECT_EQ(shanghaiConnectRateCategory("SZSEHKEX", "1").word, "DEF");
    standin::setQueryHook(nullptr);
}

TEST(LimitCategories, TheShenzhenConnectClassifiesNothing) {
    int asked = 0;
    standin::setQueryHook([&asked](const standin::Query&) { ++asked; });
    EXPECT_EQ(shenzhenConnectRateCategory().word, "STOCK");
    EXPECT_EQ(asked, 0);
    standin::setQueryHook(nullptr);
}

TEST(LimitCategories, EveryAnswerNamesItsRule) {
    for (const Table& table : tables()) {
        for (const Rule& rule : table.rules) {
            installTypes({rule.type});
            const std::string named(table.categorise("XX", "1").rule);
            EXPECT_NE(named.find(std::to_string(rule.type.number)), std::string::npos) << table.name << ": " << named;
            EXPECT_EQ(named.rfind("base ", 0) == 0, rule.type.source == Source::Base) << table.name << ": " << named;
        }
    }
}
