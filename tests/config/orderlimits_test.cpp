#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "standin/logsetup.h"
#include "standin/platformdata.h"
#include "standin/queryhook.h"
#include "tests/config/collectorpeer.h"
#include "tests/support/allocations.h"
#include "tests/support/store.h"

using tests::LoadedStore;
using ttservice::ConfigCollectorPeer;
using Limit = std::pair<int, std::string>;

namespace {

constexpr int kOrdinaryPrice = 11;
const Limit kDefault(1000000, "股");

Limit ask(LoadedStore& store, const std::string& market, const std::string& code, int priceType = kOrdinaryPrice) {
    return store->getOrderLimit(market, code, static_cast<EBrokerPriceType>(priceType));
}

std::size_t rows(const LoadedStore& store) {
    return ConfigCollectorPeer::orderLimits(*store).size();
}

bool holds(const LoadedStore& store, const std::string& market, const std::string& item) {
    return ConfigCollectorPeer::orderLimits(*store).count({market, item}) != 0;
}

std::string section(const std::string& rowsText) {
    return "[StkExchangeOrderLimit]\n" + rowsText;
}

// Makes code "1" of market "SH" an instrument of that stock type.
void installType(int type) {
    standin::PlatformData data;
    data.addStockType(type, "SH", "1");
    standin::PlatformData::install(data);
}

}  // namespace

// --- the answer

TEST(OrderLimits, CodeRowBeatsCategoryRow) {
    standin::PlatformData data;
    data.addStockType(100003, "SH", "600*");
    standin::PlatformData::install(data);
    LoadedStore store(section("SH-600000=500,股\nSH-STOCK=1000,股\n"));
    EXPECT_EQ(ask(store, "sh", "600000"), Limit(500, "股"));
    EXPECT_EQ(ask(store, "sh", "600001"), Limit(1000, "股"));
}

TEST(OrderLimits, CodeRowIsFoundWithoutAnyQuestionToThePlatform) {
    LoadedStore store(section("SH-600000=500,股\n"));
    int asked = 0;
    standin::setQueryHook([&asked](const standin::Query&) { ++asked; });
    ask(store, "SH", "600000");
    EXPECT_EQ(asked, 0);
    ask(store, "SH", "600001");
    EXPECT_GT(asked, 0);
    standin::setQueryHook(nullptr);
}

TEST(OrderLimits, MarketAndCodeAreAskedInEitherCase) {
    LoadedStore store(section("shfe-rb2510=500,手\nSHFE-Def=20,手\n"));
    for (const char* market : {"SHFE", "shfe", "Shfe"}) {
        for (const char* code : {"RB2510", "rb2510", "Rb2510"}) {
            EXPECT_EQ(ask(store, market, code), Limit(500, "手")) << market << " " << code;
        }
        EXPECT_EQ(ask(store, market, "cu2510"), Limit(20, "手")) << market;
    }
}

TEST(OrderLimits, ThePlatformIsAskedInUpperCase) {
    standin::PlatformData data;
    data.addStockType(100016, "SH", "ABC");
    standin::PlatformData::install(data);
    LoadedStore store(section("SH-LOAN=100,张\n"));
    EXPECT_EQ(ask(store, "sh", "abc"), Limit(100, "张"));
}

TEST(OrderLimits, UnknownInstrumentOfUnlistedMarketGetsTheDefaultAndLeavesDef) {
    LoadedStore store(section(""));
    EXPECT_EQ(rows(store), 0U);
    EXPECT_EQ(ask(store, "xyz", "1"), kDefault);
    EXPECT_EQ(rows(store), 1U);
    EXPECT_TRUE(holds(store, "XYZ", "DEF"));
}

TEST(OrderLimits, TheDefaultUnitIsSharesInUtf8) {
    LoadedStore store;
    EXPECT_EQ(ask(store, "SH", "1").second, "\xE8\x82\xA1");
}

TEST(OrderLimits, BeforeAnyLoadTheDefaultHolds) {
    LoadedStore store;
    EXPECT_EQ(rows(store), 0U);
    EXPECT_EQ(ask(store, "SH", "600000"), kDefault);
}

TEST(OrderLimits, EveryCategoryHasItsRow) {
    struct {
        bool isBase;
        int type;
        std::string word;
    } const categories[] = {{true, 1062, "IPO"},        {true, 1117, "IPO"},           {true, 1172, "TECHSTOCKMARKET"},
                            {false, 100003, "STOCK"},   {false, 100024, "MONEYFUND"},  {false, 100016, "LOAN"},
                            {false, 100103, "PIF"},     {false, 100004, "FUND"},       {false, 100013, "ETF"},
                            {false, 126, "REPURCHASE"}, {false, 100017, "REPURCHASE"}, {false, 1, "DEF"}};
    std::string text;
    int limit = 0;
    for (const auto& row : categories) {
        text += "SH-" + row.word + "=" + std::to_string(++limit) + "," + row.word + "\n";
    }
    LoadedStore store(section(text));
    for (const auto& row : categories) {
        standin::PlatformData data;
        if (row.isBase) {
            data.addBaseType(row.type, "SH", "1");
        } else {
            data.addStockType(row.type, "SH", "1");
        }
        standin::PlatformData::install(data);
        EXPECT_EQ(ask(store, "SH", "1").second, row.word) << row.type;
    }
}

TEST(OrderLimits, FinerRepurchaseRowsAreFound) {
    LoadedStore store(section("SH-REPURCHASE=1,张\nSH-REPURCHASEIMPAWN=2,张\nSH-REPURCHASEBUYOUT=3,张\n"));
    struct {
        std::vector<int> types;
        int limit;
    } const rows[] = {{{126}, 1}, {{126, 100021}, 2}, {{100017, 124}, 3}, {{126, 124, 100021}, 2}};
    for (const auto& row : rows) {
        standin::PlatformData data;
        for (const int type : row.types)
            data.addStockType(type, "SH", "204001");
        standin::PlatformData::install(data);
        EXPECT_EQ(ask(store, "SH", "204001"), Limit(row.limit, "张"));
    }
}

TEST(OrderLimits, OptionsGoByPriceType) {
    LoadedStore store(section("SHO-MARKET=10,张\nSHO-LIMIT=50,张\n"));
    EXPECT_EQ(ask(store, "SHO", "10005001", 85), Limit(10, "张"));
    EXPECT_EQ(ask(store, "SHO", "10005001", 90), Limit(50, "张"));
}

TEST(OrderLimits, TechnologyBoardGoesByPriceTypeEvenWithAStockRow) {
    standin::PlatformData data;
    data.addBaseType(1172, "SH", "688*");
    data.addStockType(100003, "SH", "*");
    standin::PlatformData::install(data);
    LoadedStore store(
        section("SH-STOCK=1000000,股\nSH-TECHSTOCKLIMIT=100000,股\nSH-TECHSTOCKMARKET=50000,股\n"
                "SH-TECHSTOCKCLOSE=70000,股\n"));
    EXPECT_EQ(ask(store, "SH", "688001", 50), Limit(100000, "股"));
    EXPECT_EQ(ask(store, "SH", "688001", 117), Limit(70000, "股"));
    EXPECT_EQ(ask(store, "SH", "688001", 51), Limit(50000, "股"));
    EXPECT_EQ(ask(store, "SH", "600000", 50), Limit(1000000, "股"));
}

TEST(OrderLimits, AMissingCategoryRowFallsBackToNoOtherCategory) {
    installType(100013);
    LoadedStore store(section("SH-STOCK=1,股\nSH-FUND=2,份\nSH-DEF=3,份\nSZ-ETF=4,份\n"));
    EXPECT_EQ(ask(store, "SH", "1"), kDefault);
}

TEST(OrderLimits, TheSwitchThatLiftsTheLimitIsNotConsulted) {
    LoadedStore store("[setting]\ncloseordinarytradeorderlimit=12\n" + section("SH-600000=500,股\n"));
    store->addLocalConfig("closeordinarytradeorderlimit", true);
    EXPECT_EQ(ask(store, "SH", "600000"), Limit(500, "股"));
}

// --- the row that a question inserts

TEST(OrderLimits, TheInsertedDefaultIsFoundByLaterQuestions) {
    LoadedStore store(section(""));
    installType(100016);
    EXPECT_EQ(ask(store, "SH", "1"), kDefault);
    EXPECT_TRUE(holds(store, "SH", "LOAN"));
    for (int again = 0; again < 3; ++again)
        EXPECT_EQ(ask(store, "sh", "1"), kDefault);
    EXPECT_EQ(rows(store), 1U);
    EXPECT_EQ(ask(store, "SH", "LOAN"), kDefault);
    EXPECT_EQ(rows(store), 1U) << "asked as a code, the category's row answers";
}

TEST(OrderLimits, AQuestionThatFindsARowInsertsNothing) {
    LoadedStore store(section("SH-1=500,股\nSH-DEF=1,股\n"));
    ask(store, "SH", "1");
    ask(store, "SH", "2");
    EXPECT_EQ(rows(store), 2U);
}

TEST(OrderLimits, AReloadForgetsWhatQuestionsLeft) {
    LoadedStore store(section(""));
    ask(store, "SH", "1");
    EXPECT_EQ(rows(store), 1U);
    store.load(section("SH-600000=500,股\n"));
    EXPECT_EQ(rows(store), 1U);
    EXPECT_FALSE(holds(store, "SH", "DEF"));
}

// --- rows of the file

TEST(OrderLimits, OnlyAValueOfExactlyTwoFieldsCounts) {
    for (const char* value : {"100", "", "100,股,", "100,股,1", ",,", "100;股"}) {
        LoadedStore store(section("SH-1=" + std::string(value) + "\n"));
        EXPECT_EQ(rows(store), 0U) << value;
        EXPECT_EQ(store.lastComplaints(), "") << value;
    }
}

TEST(OrderLimits, TheLimitIsReadAsAtoiDoes) {
    struct {
        const char* written;
        int limit;
    } const rows[] = {{"100", 100}, {"x", 0},   {"", 0},    {"12abc", 12}, {"-5", -5},
                      {"+7", 7},    {"1.9", 1}, {"1e3", 1}, {"0x10", 0},   {"007", 7}};
    for (const auto& row : rows) {
        LoadedStore store(section("SH-1=" + std::string(row.written) + ",股\n"));
        EXPECT_EQ(ask(store, "SH", "1"), Limit(row.limit, "股")) << row.written;
    }
}

TEST(OrderLimits, TheUnitIsKeptVerbatim) {
    for (const char* unit : {"股", " 股", "手数", "a-b", "\xB9\xC9", ""}) {
        LoadedStore store(section("SH-1=100," + std::string(unit) + "\n"));
        EXPECT_EQ(ask(store, "SH", "1"), Limit(100, unit)) << unit;
    }
}

TEST(OrderLimits, EveryItemOfAKeyGetsTheRow) {
    LoadedStore store(section("SH-600000,sz-000001,SHO-MARKET=300,股\n"));
    EXPECT_EQ(ask(store, "SH", "600000"), Limit(300, "股"));
    EXPECT_EQ(ask(store, "SZ", "000001"), Limit(300, "股"));
    EXPECT_EQ(ask(store, "SHO", "1", 85), Limit(300, "股"));
    EXPECT_EQ(rows(store), 3U);
}

TEST(OrderLimits, ALaterRowOverwritesBothNumberAndUnit) {
    LoadedStore store(section("SH-600000=300,股\nSZ-000001,sh-600000=400,手\n"));
    EXPECT_EQ(ask(store, "SH", "600000"), Limit(400, "手"));
    EXPECT_EQ(ask(store, "SZ", "000001"), Limit(400, "手"));
    EXPECT_EQ(rows(store), 2U);
}

TEST(OrderLimits, AMalformedLaterRowLeavesTheEarlierOne) {
    LoadedStore store(section("SH-600000=300,股\nSZ-000001,SH-600000=400\n"));
    EXPECT_EQ(ask(store, "SH", "600000"), Limit(300, "股"));
    EXPECT_EQ(rows(store), 1U);
}

TEST(OrderLimits, AnItemWithoutDashIsFoundByACodeThatEqualsItsMarket) {
    LoadedStore store(section("abc=300,股\n"));
    EXPECT_EQ(ask(store, "ABC", "abc"), Limit(300, "股"));
    EXPECT_EQ(ask(store, "ABC", "1"), kDefault);
}

TEST(OrderLimits, ItemsAreNotTrimmed) {
    LoadedStore store(section("SH-1, SZ-2,SH- 3=300,股\n"));
    EXPECT_EQ(ask(store, "SZ", "2"), kDefault);
    EXPECT_EQ(ask(store, " SZ", "2"), Limit(300, "股"));
    EXPECT_EQ(ask(store, "SH", " 3"), Limit(300, "股"));
}

TEST(OrderLimits, CodesMayHoldDashes) {
    LoadedStore store(section("DCE-m2509-C-3000=200,手\n"));
    EXPECT_EQ(ask(store, "DCE", "M2509-c-3000"), Limit(200, "手"));
}

// --- the three sections

TEST(OrderLimits, OneTableServesThreeSectionsAndTheLastOneWins) {
    const std::string stock = "[StkExchangeOrderLimit]\nSH-1=1,a\nHGT-1=1,a\nSGT-1=1,a\n";
    const std::string shanghai = "[HGTExchangeOrderLimit]\nHGT-1=2,b\nSGT-1=2,b\n";
    const std::string shenzhen = "[SgtExchangeOrderLimit]\nSGT-1=3,c\n";
    // The order of the sections in the file does not matter.
    for (const std::string& text : {stock + shanghai + shenzhen, shenzhen + shanghai + stock}) {
        LoadedStore store(text);
        EXPECT_EQ(ask(store, "SH", "1"), Limit(1, "a"));
        EXPECT_EQ(ask(store, "HGT", "1"), Limit(2, "b"));
        EXPECT_EQ(ask(store, "SGT", "1"), Limit(3, "c"));
    }
}

TEST(OrderLimits, TheSectionsAreReadInTheirOrder) {
    LoadedStore store;
    std::vector<std::string> asked;
    standin::setQueryHook([&asked](const standin::Query& query) {
        const std::string name(query.first);
        if (name.find("OrderLimit") == std::string::npos || name.find("Dazong") != std::string::npos) return;
        asked.push_back(name + "/" + std::string(query.second));
    });
    store.load(
        "[SgtExchangeOrderLimit]\nc=3,c\n[HGTExchangeOrderLimit]\nb=2,b\n[StkExchangeOrderLimit]\na2=1\na1=1,a\n");
    standin::setQueryHook(nullptr);
    const std::vector<std::string> expected = {
        "StkExchangeOrderLimit/",  "StkExchangeOrderLimit/a2", "StkExchangeOrderLimit/a1", "HGTExchangeOrderLimit/",
        "HGTExchangeOrderLimit/b", "SgtExchangeOrderLimit/",   "SgtExchangeOrderLimit/c"};
    EXPECT_EQ(asked, expected);
}

TEST(OrderLimits, SectionNamesAreExact) {
    LoadedStore store(
        "[stkexchangeorderlimit]\nSH-1=1,a\n[HgtExchangeOrderLimit]\nSH-1=1,a\n"
        "[SGTExchangeOrderLimit]\nSH-1=1,a\n[setting]\nSH-1=1,a\n");
    EXPECT_EQ(rows(store), 0U);
}

TEST(OrderLimits, AReloadBuildsTheTableAnew) {
    LoadedStore store("[StkExchangeOrderLimit]\nSH-1=1,a\n[HGTExchangeOrderLimit]\nHGT-1=2,b\n");
    store.load("[StkExchangeOrderLimit]\nSH-2=3,c\n");
    EXPECT_EQ(rows(store), 1U);
    EXPECT_EQ(ask(store, "SH", "1"), kDefault);
    EXPECT_EQ(ask(store, "SH", "2"), Limit(3, "c"));
    store.load("");
    EXPECT_EQ(rows(store), 0U);
}

// --- log and heap

TEST(OrderLimits, NothingIsReported) {
    LoadedStore store;
    standin::LogCapture log;
    standin::setEveryFileLogEnabled(true);
    store.load(section("SH-1=x,y,z\nnonsense=1\nSH-2=x,y\n"));
    ask(store, "SH", "1");
    ask(store, "??", "");
    EXPECT_EQ(store.lastComplaints(), "");
    EXPECT_TRUE(log.messages().empty());
}

TEST(OrderLimits, ARowIsFoundWithoutTheHeap) {
    installType(100016);
    LoadedStore store(section("SH-12345678ABCDEFG=1,股\nSH-LOAN=2,张\nSZ-DEF=3,张\nSHO-MARKET=4,张\n"));
    const std::string longCode = "12345678abcdefg";
    struct {
        std::string market;
        std::string code;
        int limit;
    } const rows[] = {{"sh", longCode, 1}, {"SH", "1", 2}, {"SZ", "NOBODYKNOWSTHIS", 3}, {"SHO", "10005001", 4}};
    for (const auto& row : rows)
        ask(store, row.market, row.code, 85);
    for (const auto& row : rows) {
        const tests::Allocations heap;
        const Limit limit = store->getOrderLimit(row.market, row.code, static_cast<EBrokerPriceType>(85));
        const long made = heap.made();
        EXPECT_EQ(made, 0) << row.market << " " << row.code;
        EXPECT_EQ(limit.first, row.limit);
    }
}
