#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include <log4cxx/logger.h>
#include <ttplatform/ratelimitrecords.h>

#include "standin/logsetup.h"
#include "standin/platformdata.h"
#include "standin/queryhook.h"
#include "tests/config/collectorpeer.h"
#include "tests/support/allocations.h"
#include "tests/support/store.h"

using testing::ElementsAre;
using tests::LoadedStore;
using ttservice::ConfigCollectorPeer;

namespace {

const std::string kFourteen = "1,2,3,4,5,6,7,8,9,10,11,12,13,14";

std::vector<double> numbers(const CStkExchangeRateLimit& record) {
    return {record.rate1, record.rate2, record.rate3, record.rate4, record.rate5, record.rate6, double(record.count)};
}

template <typename ConnectRecord>
std::vector<double> numbers(const ConnectRecord& record) {
    return {record.rate1, record.rate2, record.rate3,  record.rate4,  record.rate5,  record.rate6,  record.rate7,
            record.rate8, record.rate9, record.rate10, record.rate11, record.rate12, record.rate13, record.rate14};
}

std::string stock(const std::string& rows) {
    return "[StkExchangeRateLimit]\n" + rows;
}
std::string shanghai(const std::string& rows) {
    return "[HGTExchangeRateLimit]\n" + rows;
}
std::string shenzhen(const std::string& rows) {
    return "[SgtExchangeRateLimit]\n" + rows;
}

std::size_t stockRows(const LoadedStore& store) {
    return ConfigCollectorPeer::stockRates(*store).size();
}
std::size_t shanghaiRows(const LoadedStore& store) {
    return ConfigCollectorPeer::shanghaiConnectRates(*store).size();
}
std::size_t shenzhenRows(const LoadedStore& store) {
    return ConfigCollectorPeer::shenzhenConnectRates(*store).size();
}

void installTypes(const std::vector<int>& types, const std::vector<int>& baseTypes = {}) {
    standin::PlatformData data;
    for (const char* market : {"SH", "HK", "HGT", "SSEHKEX", "SGT", "SZSEHKEX"}) {
        for (const int type : types)
            data.addStockType(type, market, "A1");
        for (const int type : baseTypes)
            data.addBaseType(type, market, "A1");
    }
    standin::PlatformData::install(data);
}

// The messages of the rate channel.
std::vector<std::string> rateLines(const standin::LogCapture& log) {
    std::vector<std::string> found;
    for (const standin::LogLine& line : log.lines()) {
        EXPECT_EQ(line.level, "DEBUG");
        EXPECT_EQ(line.logger, "TTDbgFile");
        found.push_back(line.message);
    }
    return found;
}

}  // namespace

// --- stock rates

TEST(StockRates, ARowFillsTheMembersInTheirOrder) {
    LoadedStore store(stock("SH-600000=0.1,0.2,3,4.5,-5,1e3,7\n"));
    const auto record = store->getRateLimitPtr("SH", "600000");
    EXPECT_THAT(numbers(*record), ElementsAre(0.1, 0.2, 3, 4.5, -5, 1000, 7));
}

TEST(StockRates, OnlySevenFieldsCount) {
    for (const char* value : {"", "1", "1,2,3,4,5,6", "1,2,3,4,5,6,7,8", "1,2,3,4,5,6,7,"}) {
        LoadedStore store(stock("SH-600000=" + std::string(value) + "\n"));
        EXPECT_EQ(stockRows(store), 0U) << value;
    }
    LoadedStore store(stock("SH-600000=,,,,,,\n"));
    EXPECT_THAT(numbers(*store->getRateLimitPtr("SH", "600000")), ElementsAre(0, 0, 0, 0, 0, 0, 0));
    EXPECT_EQ(stockRows(store), 1U) << "six commas make seven fields";
}

TEST(StockRates, TheSeventhFieldIsCutOffAtThePoint) {
    for (const char* count : {"7.9", "7", " 7", "7x", "+7"}) {
        LoadedStore store(stock("SH-600000=1,2,3,4,5,6," + std::string(count) + "\n"));
        EXPECT_EQ(store->getRateLimitPtr("SH", "600000")->count, 7) << count;
    }
}

TEST(StockRates, BadNumbersReadAsZero) {
    LoadedStore store(stock("SH-600000=x,1.5abc, 2,--1,.5,,none\n"));
    EXPECT_THAT(numbers(*store->getRateLimitPtr("SH", "600000")), ElementsAre(0, 1.5, 2, 0, 0.5, 0, 0));
}

TEST(StockRates, CodeRowBeatsCategoryRow) {
    installTypes({100003});
    LoadedStore store(stock("SH-A1=1,0,0,0,0,0,0\nSH-STOCK=2,0,0,0,0,0,0\n"));
    EXPECT_EQ(store->getRateLimitPtr("sh", "a1")->rate1, 1);
    store.load(stock("SH-STOCK=2,0,0,0,0,0,0\n"));
    EXPECT_EQ(store->getRateLimitPtr("sh", "a1")->rate1, 2);
}

TEST(StockRates, EveryCategoryHasItsRow) {
    struct {
        bool isBase;
        int type;
        std::string word;
    } const categories[] = {{true, 1154, "LONDONCDR"}, {true, 1124, "INNOVATION"}, {true, 1136, "CDR"},
                            {false, 100003, "STOCK"},  {false, 100016, "LOAN"},    {false, 100103, "PIF"},
                            {false, 100004, "FUND"},   {false, 100013, "ETF"},     {false, 126, "REPURCHASE"},
                            {false, 1, "DEF"}};
    std::string rows;
    int number = 0;
    for (const auto& row : categories)
        rows += "SH-" + row.word + "=" + std::to_string(++number) + ",0,0,0,0,0,0\n";
    LoadedStore store(stock(rows));
    number = 0;
    for (const auto& row : categories) {
        installTypes(row.isBase ? std::vector<int>() : std::vector<int>{row.type},
                     row.isBase ? std::vector<int>{row.type} : std::vector<int>());
        EXPECT_EQ(store->getRateLimitPtr("SH", "A1")->rate1, ++number) << row.word;
    }
    installTypes({100017});
    EXPECT_EQ(store->getRateLimitPtr("SH", "A1")->rate1, 9);
}

TEST(StockRates, RepurchasesAreNotToldApart) {
    LoadedStore store(stock("SH-REPURCHASE=1,0,0,0,0,0,0\nSH-REPURCHASEIMPAWN,SH-REPURCHASEBUYOUT=2,0,0,0,0,0,0\n"));
    for (const int finer : {100021, 124}) {
        installTypes({126, finer});
        EXPECT_EQ(store->getRateLimitPtr("SH", "A1")->rate1, 1) << finer;
    }
}

TEST(StockRates, EveryMarketWithoutTypesGoesByDef) {
    installTypes({});
    LoadedStore store(stock("NEEQ-DEF,SHO-DEF,HGT-DEF=3,0,0,0,0,0,0\n"));
    for (const char* market : {"NEEQ", "SHO", "HGT"}) {
        EXPECT_EQ(store->getRateLimitPtr(market, "1")->rate1, 3) << market;
    }
}

TEST(StockRates, MarketHkStandsForNoOtherMarketHere) {
    LoadedStore store(stock("HGT-1,SGT-1=3,0,0,0,0,0,0\n"));
    EXPECT_EQ(store->getRateLimitPtr("HK", "1")->rate1, 0);
}

TEST(StockRates, TheDefaultRecordIsMadeOnceAndKept) {
    installTypes({100016});
    LoadedStore store(stock(""));
    const auto first = store->getRateLimitPtr("SH", "A1");
    ASSERT_TRUE(first);
    EXPECT_THAT(numbers(*first), ElementsAre(0, 0, 0, 0, 0, 0, 0));
    EXPECT_EQ(store->getRateLimitPtr("sh", "a1"), first);
    EXPECT_EQ(stockRows(store), 1U);
    EXPECT_EQ(ConfigCollectorPeer::stockRates(*store).count({"SH", "LOAN"}), 1U);
    EXPECT_NE(store->getRateLimitPtr("SH", "B2"), first) << "another category";
    store.load(stock(""));
    EXPECT_EQ(stockRows(store), 0U);
    EXPECT_NE(store->getRateLimitPtr("SH", "A1"), first);
}

TEST(StockRates, NeverEmptyEvenBeforeAnyLoad) {
    LoadedStore store;
    EXPECT_TRUE(store->getRateLimitPtr("", ""));
    EXPECT_TRUE(store->getHGTExchangeRateLimitPtr("", ""));
    EXPECT_TRUE(store->getSgtExchangeRateLimitPtr("", ""));
}

// --- the connects

TEST(ConnectRates, ARowFillsTheMembersInTheirOrder) {
    LoadedStore store(shanghai("HGT-00700=" + kFourteen + "\n") + shenzhen("SGT-00700=" + kFourteen + "\n"));
    EXPECT_THAT(numbers(*store->getHGTExchangeRateLimitPtr("HGT", "00700")),
                ElementsAre(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14));
    EXPECT_THAT(numbers(*store->getSgtExchangeRateLimitPtr("SGT", "00700")),
                ElementsAre(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14));
}

TEST(ConnectRates, AllFourteenFieldsAreDecimal) {
    LoadedStore store(shanghai("HGT-1=.5,.5,.5,.5,.5,.5,.5,.5,.5,.5,.5,.5,.5,.5\n"));
    EXPECT_THAT(numbers(*store->getHGTExchangeRateLimitPtr("HGT", "1")), testing::Each(0.5));
}

TEST(ConnectRates, OnlyFourteenFieldsCount) {
    for (const std::string& value : {std::string("1,2,3,4,5,6,7"), kFourteen + ",15", kFourteen + ",",
                                     std::string("1,2,3,4,5,6,7,8,9,10,11,12,13"), std::string()}) {
        LoadedStore store(shanghai("HGT-1=" + value + "\n") + shenzhen("SGT-1=" + value + "\n"));
        EXPECT_EQ(shanghaiRows(store), 0U) << value;
        EXPECT_EQ(shenzhenRows(store), 0U) << value;
    }
}

TEST(ConnectRates, MarketHkStandsForTheConnectsOwnMarket) {
    LoadedStore store(shanghai("HGT-00700=1,0,0,0,0,0,0,0,0,0,0,0,0,0\nHK-00700=3,0,0,0,0,0,0,0,0,0,0,0,0,0\n") +
                      shenzhen("SGT-00700=2,0,0,0,0,0,0,0,0,0,0,0,0,0\nHK-00700=4,0,0,0,0,0,0,0,0,0,0,0,0,0\n"));
    for (const char* market : {"hk", "HK", "Hk"}) {
        EXPECT_EQ(store->getHGTExchangeRateLimitPtr(market, "00700")->rate1, 1) << market;
        EXPECT_EQ(store->getSgtExchangeRateLimitPtr(market, "00700")->rate1, 2) << market;
    }
    EXPECT_EQ(store->getHGTExchangeRateLimitPtr("HKX", "00700")->rate1, 0) << "exactly HK and nothing else";
    EXPECT_EQ(store->getSgtExchangeRateLimitPtr("XHK", "00700")->rate1, 0);
}

TEST(ConnectRates, MarketHkLeavesItsDefaultUnderTheConnectsMarket) {
    LoadedStore store;
    store->getHGTExchangeRateLimitPtr("hk", "1");
    store->getSgtExchangeRateLimitPtr("hk", "1");
    EXPECT_EQ(ConfigCollectorPeer::shanghaiConnectRates(*store).count({"HGT", "STOCK"}), 1U);
    EXPECT_EQ(ConfigCollectorPeer::shenzhenConnectRates(*store).count({"SGT", "STOCK"}), 1U);
}

TEST(ConnectRates, ShanghaiGoesByMarketThenByType) {
    LoadedStore store(
        shanghai("HGT-STOCK,SSEHKEX-STOCK,SH-STOCK=1,0,0,0,0,0,0,0,0,0,0,0,0,0\n"
                 "HGT-LOAN,SSEHKEX-LOAN,SH-LOAN=2,0,0,0,0,0,0,0,0,0,0,0,0,0\n"
                 "HGT-DEF,SSEHKEX-DEF,SH-DEF=3,0,0,0,0,0,0,0,0,0,0,0,0,0\n"));
    for (const std::vector<int>& types : {std::vector<int>{100016}, std::vector<int>{}}) {
        installTypes(types);
        EXPECT_EQ(store->getHGTExchangeRateLimitPtr("HGT", "a1")->rate1, 1);
        EXPECT_EQ(store->getHGTExchangeRateLimitPtr("ssehkex", "a1")->rate1, 1);
        EXPECT_EQ(store->getHGTExchangeRateLimitPtr("HK", "a1")->rate1, 1);
    }
    installTypes({100016});
    EXPECT_EQ(store->getHGTExchangeRateLimitPtr("SH", "A1")->rate1, 2);
    installTypes({100003});
    EXPECT_EQ(store->getHGTExchangeRateLimitPtr("SH", "A1")->rate1, 3) << "no stocks outside the connect's markets";
}

TEST(ConnectRates, ShenzhenFallsBackToTheStockRowEvenForBonds) {
    installTypes({100016});
    LoadedStore store(
        shenzhen("SGT-STOCK,SH-STOCK=1,0,0,0,0,0,0,0,0,0,0,0,0,0\n"
                 "SGT-LOAN,SGT-DEF,SH-LOAN=2,0,0,0,0,0,0,0,0,0,0,0,0,0\n"));
    EXPECT_EQ(store->getSgtExchangeRateLimitPtr("SGT", "A1")->rate1, 1);
    EXPECT_EQ(store->getSgtExchangeRateLimitPtr("sh", "a1")->rate1, 1);
    EXPECT_EQ(store->getSgtExchangeRateLimitPtr("SGT", "LOAN")->rate1, 2) << "asked as a code";
}

TEST(ConnectRates, ShenzhenAsksThePlatformNothing) {
    LoadedStore store;
    int asked = 0;
    standin::setQueryHook([&asked](const standin::Query&) { ++asked; });
    store->getSgtExchangeRateLimitPtr("SGT", "1");
    store->getHGTExchangeRateLimitPtr("HGT", "1");
    EXPECT_EQ(asked, 0);
    store->getHGTExchangeRateLimitPtr("SH", "1");
    EXPECT_EQ(asked, 1);
    standin::setQueryHook(nullptr);
}

TEST(ConnectRates, TheDefaultRecordIsMadeOnceAndKept) {
    installTypes({});
    LoadedStore store(shanghai("") + shenzhen(""));
    const auto first = store->getHGTExchangeRateLimitPtr("SH", "1");
    EXPECT_THAT(numbers(*first), testing::Each(0.0));
    EXPECT_EQ(store->getHGTExchangeRateLimitPtr("SH", "2"), first);
    EXPECT_EQ(ConfigCollectorPeer::shanghaiConnectRates(*store).count({"SH", "DEF"}), 1U);
    const auto second = store->getSgtExchangeRateLimitPtr("SH", "1");
    EXPECT_THAT(numbers(*second), testing::Each(0.0));
    EXPECT_EQ(store->getSgtExchangeRateLimitPtr("SH", "2"), second);
    EXPECT_EQ(ConfigCollectorPeer::shenzhenConnectRates(*store).count({"SH", "STOCK"}), 1U);
    store.load("");
    EXPECT_EQ(shanghaiRows(store), 0U);
    EXPECT_EQ(shenzhenRows(store), 0U);
}

// --- all three

TEST(RateLimits, TheItemsOfAKeyShareOneRecord) {
    LoadedStore store(stock("SH-1,SZ-2,sh-stock=1,2,3,4,5,6,7\nSH-3=1,2,3,4,5,6,7\n") +
                      shanghai("HGT-1,HGT-2=" + kFourteen + "\n") + shenzhen("SGT-1,SGT-2=" + kFourteen + "\n"));
    EXPECT_EQ(store->getRateLimitPtr("SH", "1"), store->getRateLimitPtr("SZ", "2"));
    EXPECT_EQ(store->getRateLimitPtr("SH", "1"), store->getRateLimitPtr("SH", "STOCK"));
    EXPECT_NE(store->getRateLimitPtr("SH", "1"), store->getRateLimitPtr("SH", "3")) << "equal rows, two records";
    EXPECT_EQ(store->getHGTExchangeRateLimitPtr("HGT", "1"), store->getHGTExchangeRateLimitPtr("HGT", "2"));
    EXPECT_EQ(store->getSgtExchangeRateLimitPtr("SGT", "1"), store->getSgtExchangeRateLimitPtr("SGT", "2"));
}

TEST(RateLimits, TheLastRowWins) {
    LoadedStore store(stock("SH-1,SH-2=1,0,0,0,0,0,0\nSZ-1,sh-1=2,0,0,0,0,0,0\nSH-2,SH-9=broken\n"));
    EXPECT_EQ(store->getRateLimitPtr("SH", "1")->rate1, 2);
    EXPECT_EQ(store->getRateLimitPtr("SH", "2")->rate1, 1);
    EXPECT_EQ(stockRows(store), 3U);
}

TEST(RateLimits, AnItemWithoutDashIsFoundByACodeThatEqualsItsMarket) {
    LoadedStore store(stock("abc=1,0,0,0,0,0,0\n"));
    EXPECT_EQ(store->getRateLimitPtr("ABC", "abc")->rate1, 1);
}

TEST(RateLimits, EachSectionFillsItsOwnTable) {
    LoadedStore store(stock("X-1=1,0,0,0,0,0,0\n"));
    EXPECT_EQ(stockRows(store) + shanghaiRows(store) + shenzhenRows(store), 1U);
    store.load(shanghai("X-1=" + kFourteen + "\n"));
    EXPECT_EQ(stockRows(store), 0U);
    EXPECT_EQ(shanghaiRows(store), 1U);
    EXPECT_EQ(shenzhenRows(store), 0U);
    store.load(shenzhen("X-1=" + kFourteen + "\n"));
    EXPECT_EQ(shanghaiRows(store), 0U);
    EXPECT_EQ(shenzhenRows(store), 1U);
}

TEST(RateLimits, ARecordHandedOutOutlivesTheReload) {
    LoadedStore store(stock("SH-1=1,0,0,0,0,0,5\n") + shanghai("HGT-1=" + kFourteen + "\n") +
                      shenzhen("SGT-1=" + kFourteen + "\n"));
    const auto stockRecord = store->getRateLimitPtr("SH", "1");
    const auto shanghaiRecord = store->getHGTExchangeRateLimitPtr("HGT", "1");
    const auto shenzhenRecord = store->getSgtExchangeRateLimitPtr("SGT", "1");
    store.load(stock("SH-1=2,0,0,0,0,0,6\n"));
    EXPECT_EQ(stockRecord->rate1, 1);
    EXPECT_EQ(stockRecord->count, 5);
    EXPECT_EQ(shanghaiRecord->rate14, 14);
    EXPECT_EQ(shenzhenRecord->rate14, 14);
    EXPECT_EQ(store->getRateLimitPtr("SH", "1")->rate1, 2);
    EXPECT_EQ(store->getHGTExchangeRateLimitPtr("HGT", "1")->rate14, 0);
}

TEST(RateLimits, TheSectionsAreReadInTheirOrder) {
    LoadedStore store;
    std::vector<std::string> asked;
    standin::setQueryHook([&asked](const standin::Query& query) {
        if (query.first.find("RateLimit") != std::string_view::npos) {
            asked.push_back(std::string(query.first) + "/" + std::string(query.second));
        }
    });
    store.load(shenzhen("c=1\n") + shanghai("b=1\n") + stock("a2=1\na1=1\n"));
    standin::setQueryHook(nullptr);
    EXPECT_THAT(asked, ElementsAre("StkExchangeRateLimit/", "StkExchangeRateLimit/a2", "StkExchangeRateLimit/a1",
                                   "HGTExchangeRateLimit/", "HGTExchangeRateLimit/b", "SgtExchangeRateLimit/",
                                   "SgtExchangeRateLimit/c"));
}

TEST(RateLimits, ARowIsFoundWithoutTheHeap) {
    installTypes({100016});
    LoadedStore store(stock("SH-12345678ABCDEFG,SH-LOAN=1,2,3,4,5,6,7\n") +
                      shanghai("HGT-STOCK,HGT-00700=" + kFourteen + "\n") +
                      shenzhen("SGT-STOCK,SGT-00700=" + kFourteen + "\n"));
    const std::string longCode = "12345678abcdefg";
    struct {
        std::string market;
        std::string code;
    } const rows[] = {{"sh", longCode}, {"SH", "A1"}, {"hk", "00700"}, {"HK", "09988"}};
    store->getRateLimitPtr("SH", "A1");  // the first use creates the platform's services
    for (const auto& row : rows) {
        const bool isStock = row.market == "sh" || row.market == "SH";
        const tests::Allocations heap;
        if (isStock) store->getRateLimitPtr(row.market, row.code);
        if (!isStock) store->getHGTExchangeRateLimitPtr(row.market, row.code);
        if (!isStock) store->getSgtExchangeRateLimitPtr(row.market, row.code);
        const long made = heap.made();
        EXPECT_EQ(made, 0) << row.market << " " << row.code;
    }
}

// --- the log

TEST(RateLimits, EveryRowAndEveryItemIsLoggedOnChannel532) {
    LoadedStore store;
    standin::LogCapture log;
    standin::setEveryFileLogEnabled(false);
    standin::setFileLogEnabled(532, true);
    store.load(stock("sh-rb1,SZ=1,2,3,4,5,6,7\nSH-2=1,2\nSH-3=\n") + shanghai("hgt-stock=" + kFourteen + "\n") +
               shenzhen("SGT-STOCK=" + kFourteen + "\n"));
    const auto record = store->getRateLimitPtr("SH", "RB1");
    const auto shanghaiRecord = store->getHGTExchangeRateLimitPtr("HGT", "STOCK");
    const auto shenzhenRecord = store->getSgtExchangeRateLimitPtr("SGT", "STOCK");
    EXPECT_THAT(
        rateLines(log),
        ElementsAre(
            "tmpTS.size = 7",
            "[readRateConfig], market = sh, stockCode = rb1, StkExchangeRateLimit = " + record->toLog(),
            "[readRateConfig], market = SZ, stockCode = SZ, StkExchangeRateLimit = " + record->toLog(),
            "tmpTS.size = 2", "tmpTS.size = 1", "tmpTS.size = 14",
            "[readRateConfig], market = hgt, stockCode = stock, HGTExchangeRateLimit = " + shanghaiRecord->toLog(),
            "tmpTS.size = 14",
            "[readRateConfig], market = SGT, stockCode = STOCK, SgtExchangeRateLimit = " + shenzhenRecord->toLog()));
    EXPECT_EQ(store.lastComplaints(), "");
}

TEST(RateLimits, NothingIsLoggedWhenTheChannelIsOff) {
    LoadedStore store;
    standin::LogCapture log;
    standin::setEveryFileLogEnabled(true);
    standin::setFileLogEnabled(532, false);
    store.load(stock("SH-1=1,2,3,4,5,6,7\nSH-2=1,2\n"));
    EXPECT_TRUE(log.messages().empty());
}

TEST(RateLimits, NothingIsLoggedWhenTheLoggerIsNotAtDebugLevel) {
    LoadedStore store;
    standin::LogCapture log;
    standin::setEveryFileLogEnabled(true);
    const auto logger = log4cxx::Logger::getLogger("TTDbgFile");
    const auto before = logger->getLevel();
    logger->setLevel(log4cxx::Level::getInfo());
    store.load(stock("SH-1=1,2,3,4,5,6,7\n"));
    EXPECT_TRUE(log.messages().empty());
    logger->setLevel(before);
}

TEST(RateLimits, QuestionsAreNotLogged) {
    LoadedStore store;
    standin::LogCapture log;
    standin::setEveryFileLogEnabled(true);
    store->getRateLimitPtr("SH", "1");
    store->getHGTExchangeRateLimitPtr("HK", "1");
    store->getSgtExchangeRateLimitPtr("HK", "1");
    EXPECT_TRUE(log.messages().empty());
}
