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

const Limit kDefault(1000000, "股");
constexpr int kDefaultAmount = 1000000;

std::size_t quantityRows(const LoadedStore& store) {
    return ConfigCollectorPeer::blockTradeQuantities(*store).size();
}
std::size_t amountRows(const LoadedStore& store) {
    return ConfigCollectorPeer::blockTradeAmounts(*store).size();
}

std::string section(const std::string& rows) {
    return "[StkExchangeDazongOrderLimit]\n" + rows;
}

void installTypes(const std::vector<int>& types) {
    standin::PlatformData data;
    for (const int type : types)
        data.addStockType(type, "SZ", "A1");
    standin::PlatformData::install(data);
}

// Every category with its own row, distinguished by quantity and amount.
const char* const kAllRows =
    "SZ-STOCK=1,股,10\n"
    "SZ-LOAN=2,张,20\n"
    "SZ-FUND=3,份,30\n"
    "SZ-PIF=4,份,40\n"
    "SZ-DIRECTIONALCONVERTIBALEBOND=5,张,50\n"
    "SZ-ETF=6,份,60\n"
    "SZ-DEF=7,股,70\n";

}  // namespace

TEST(BlockTradeLimits, EveryCategoryOfTheQuantityHasItsRow) {
    LoadedStore store(section(kAllRows));
    struct {
        int type;
        Limit limit;
    } const rows[] = {{100003, {1, "股"}}, {100104, {5, "张"}}, {100103, {4, "份"}}, {100016, {2, "张"}},
                      {100004, {3, "份"}}, {100013, {3, "份"}}, {100024, {1, "股"}}, {126, {1, "股"}}};
    for (const auto& row : rows) {
        installTypes({row.type});
        EXPECT_EQ(store->getDazongOrderNumLimit("SZ", "A1"), row.limit) << row.type;
    }
    installTypes({});
    EXPECT_EQ(store->getDazongOrderNumLimit("SZ", "A1"), Limit(1, "股"));
}

TEST(BlockTradeLimits, EveryCategoryOfTheAmountHasItsRow) {
    LoadedStore store(section(kAllRows));
    struct {
        int type;
        int amount;
    } const rows[] = {{100003, 10}, {100016, 20}, {100004, 30}, {100013, 30}, {100024, 10}, {126, 10}};
    for (const auto& row : rows) {
        installTypes({row.type});
        EXPECT_EQ(store->getDazongOrderTradeAmountLimit("SZ", "A1"), row.amount) << row.type;
    }
    installTypes({});
    EXPECT_EQ(store->getDazongOrderTradeAmountLimit("SZ", "A1"), 10);
}

TEST(BlockTradeLimits, DirectionalConvertibleBondTakesItsQuantityFromItsRowAndItsAmountFromTheStockRow) {
    LoadedStore store(section(kAllRows));
    installTypes({100104});
    EXPECT_EQ(store->getDazongOrderNumLimit("SZ", "A1"), Limit(5, "张"));
    EXPECT_EQ(store->getDazongOrderTradeAmountLimit("SZ", "A1"), 10);
}

TEST(BlockTradeLimits, TheAmountKnowsNoPif) {
    LoadedStore store(section(kAllRows));
    installTypes({100103});
    EXPECT_EQ(store->getDazongOrderNumLimit("SZ", "A1"), Limit(4, "份"));
    EXPECT_EQ(store->getDazongOrderTradeAmountLimit("SZ", "A1"), 10);
}

TEST(BlockTradeLimits, ExchangeTradedFundsShareTheFundRows) {
    LoadedStore store(section(kAllRows));
    installTypes({100013});
    EXPECT_EQ(store->getDazongOrderNumLimit("SZ", "A1"), Limit(3, "份"));
    EXPECT_EQ(store->getDazongOrderTradeAmountLimit("SZ", "A1"), 30);
}

TEST(BlockTradeLimits, OfTwoTypesTheEarlierRuleDecides) {
    LoadedStore store(section(kAllRows));
    struct {
        std::vector<int> types;
        int quantity;
        int amount;
    } const rows[] = {{{100003, 100104, 100103, 100016, 100004}, 1, 10},
                      {{100104, 100103, 100016, 100004}, 5, 20},
                      {{100103, 100016, 100004}, 4, 20},
                      {{100016, 100004, 100013}, 2, 20}};
    for (const auto& row : rows) {
        installTypes(row.types);
        EXPECT_EQ(store->getDazongOrderNumLimit("SZ", "A1").first, row.quantity);
        EXPECT_EQ(store->getDazongOrderTradeAmountLimit("SZ", "A1"), row.amount);
    }
}

TEST(BlockTradeLimits, ARowForACodeIsStoredButNeverFound) {
    LoadedStore store(section("SZ-A1=9,股,90\n"));
    EXPECT_EQ(quantityRows(store), 1U);
    EXPECT_EQ(amountRows(store), 1U);
    EXPECT_EQ(store->getDazongOrderNumLimit("SZ", "A1"), kDefault);
    EXPECT_EQ(store->getDazongOrderTradeAmountLimit("SZ", "A1"), kDefaultAmount);
}

TEST(BlockTradeLimits, MarketAndCodeAreTakenInEitherCase) {
    LoadedStore store(section("sz-loan=2,张,20\n"));
    installTypes({100016});
    for (const char* market : {"SZ", "sz", "Sz"}) {
        for (const char* code : {"A1", "a1"}) {
            EXPECT_EQ(store->getDazongOrderNumLimit(market, code), Limit(2, "张")) << market << code;
            EXPECT_EQ(store->getDazongOrderTradeAmountLimit(market, code), 20) << market << code;
        }
    }
    EXPECT_EQ(store->getDazongOrderNumLimit("SH", "A1"), kDefault);
}

TEST(BlockTradeLimits, QuestionsInsertNothing) {
    for (const char* rows : {"", "SZ-LOAN=2,张,20\n"}) {
        LoadedStore store(section(rows));
        installTypes({});
        const std::size_t before = quantityRows(store);
        EXPECT_EQ(store->getDazongOrderNumLimit("SZ", "A1"), kDefault);
        EXPECT_EQ(store->getDazongOrderTradeAmountLimit("SZ", "A1"), kDefaultAmount);
        EXPECT_EQ(quantityRows(store), before);
        EXPECT_EQ(amountRows(store), before);
    }
}

TEST(BlockTradeLimits, OnlyAValueOfExactlyThreeFieldsCounts) {
    for (const char* value : {"", "100", "100,股", "100,股,5,", "100,股,5,6", ",,,"}) {
        LoadedStore store(section("SZ-STOCK=" + std::string(value) + "\n"));
        EXPECT_EQ(quantityRows(store), 0U) << value;
        EXPECT_EQ(amountRows(store), 0U) << value;
    }
}

TEST(BlockTradeLimits, NumbersAreReadAsAtoiDoes) {
    struct {
        const char* written;
        int number;
    } const rows[] = {{"100", 100}, {"x", 0}, {"", 0}, {"12abc", 12}, {"-5", -5}, {" 8", 8}, {"1.9", 1}};
    for (const auto& row : rows) {
        const std::string number(row.written);
        LoadedStore store(section("SZ-STOCK=" + number + ",股," + number + "\n"));
        EXPECT_EQ(store->getDazongOrderNumLimit("SZ", "A1"), Limit(row.number, "股")) << number;
        EXPECT_EQ(store->getDazongOrderTradeAmountLimit("SZ", "A1"), row.number) << number;
    }
}

TEST(BlockTradeLimits, TheUnitIsKeptVerbatim) {
    for (const char* unit : {" 股", "", "\xB9\xC9"}) {
        LoadedStore store(section("SZ-STOCK=1," + std::string(unit) + ",2\n"));
        EXPECT_EQ(store->getDazongOrderNumLimit("SZ", "A1"), Limit(1, unit));
    }
}

TEST(BlockTradeLimits, EveryItemGetsBothNumbersAndALaterRowOverwritesBoth) {
    LoadedStore store(section("SZ-STOCK,SH-STOCK=1,股,10\nBJ-STOCK,sh-stock=2,手,20\n"));
    EXPECT_EQ(store->getDazongOrderNumLimit("SZ", "1"), Limit(1, "股"));
    EXPECT_EQ(store->getDazongOrderTradeAmountLimit("SZ", "1"), 10);
    for (const char* market : {"SH", "BJ"}) {
        EXPECT_EQ(store->getDazongOrderNumLimit(market, "1"), Limit(2, "手")) << market;
        EXPECT_EQ(store->getDazongOrderTradeAmountLimit(market, "1"), 20) << market;
    }
}

TEST(BlockTradeLimits, AnItemWithoutDashIsStoredUnderItselfTwice) {
    LoadedStore store(section("stock=1,股,10\n"));
    EXPECT_EQ(ConfigCollectorPeer::blockTradeQuantities(*store).count({"STOCK", "STOCK"}), 1U);
    EXPECT_EQ(ConfigCollectorPeer::blockTradeAmounts(*store).count({"STOCK", "STOCK"}), 1U);
    EXPECT_EQ(store->getDazongOrderNumLimit("stock", "1"), Limit(1, "股")) << "a market called like the category";
}

TEST(BlockTradeLimits, WithAnEmptySectionTheDefaultsHoldAndTheTablesStayEmpty) {
    for (const char* text :
         {"", "[StkExchangeDazongOrderLimit]\n", "[stkexchangedazongorderlimit]\nSZ-STOCK=1,a,2\n"}) {
        LoadedStore store(text);
        EXPECT_EQ(store->getDazongOrderNumLimit("SZ", "1"), kDefault);
        EXPECT_EQ(store->getDazongOrderTradeAmountLimit("SZ", "1"), kDefaultAmount);
        EXPECT_EQ(quantityRows(store), 0U);
        EXPECT_EQ(amountRows(store), 0U);
    }
}

TEST(BlockTradeLimits, AReloadBuildsBothTablesAnew) {
    LoadedStore store(section("SZ-STOCK=1,股,10\n"));
    store.load(section("SH-STOCK=2,股,20\n"));
    EXPECT_EQ(store->getDazongOrderNumLimit("SZ", "1"), kDefault);
    EXPECT_EQ(store->getDazongOrderTradeAmountLimit("SZ", "1"), kDefaultAmount);
    EXPECT_EQ(store->getDazongOrderNumLimit("SH", "1"), Limit(2, "股"));
    EXPECT_EQ(quantityRows(store), 1U);
    EXPECT_EQ(amountRows(store), 1U);
}

TEST(BlockTradeLimits, OrderLimitsAreATableOfTheirOwn) {
    LoadedStore store("[StkExchangeOrderLimit]\nSZ-STOCK=1,股\n");
    EXPECT_EQ(store->getDazongOrderNumLimit("SZ", "1"), kDefault);
    store.load(section("SZ-STOCK=1,股,10\n"));
    EXPECT_EQ(store->getOrderLimit("SZ", "STOCK", BROKER_PRICE_INVALID), kDefault);
}

TEST(BlockTradeLimits, OnlyTheStockTypeCentreIsAsked) {
    LoadedStore store;
    installTypes({});
    std::vector<int> asked;
    standin::setQueryHook([&asked](const standin::Query& query) {
        EXPECT_EQ(query.operation, "StockTypeCenter::isTypedStock");
        EXPECT_EQ(query.first, "SZ");
        EXPECT_EQ(query.second, "A1");
        asked.push_back(query.number);
    });
    store->getDazongOrderNumLimit("sz", "a1");
    EXPECT_EQ(asked, (std::vector<int>{100003, 100104, 100103, 100016, 100004, 100013}));
    asked.clear();
    store->getDazongOrderTradeAmountLimit("sz", "a1");
    EXPECT_EQ(asked, (std::vector<int>{100003, 100016, 100004, 100013}));
    standin::setQueryHook(nullptr);
}

TEST(BlockTradeLimits, NothingIsReported) {
    LoadedStore store;
    standin::LogCapture log;
    standin::setEveryFileLogEnabled(true);
    store.load(section("SZ-STOCK=x\nnonsense=x,y,z\n"));
    store->getDazongOrderNumLimit("", "");
    EXPECT_EQ(store.lastComplaints(), "");
    EXPECT_TRUE(log.messages().empty());
}

TEST(BlockTradeLimits, QuestionsNeedNoHeap) {
    LoadedStore store(section(kAllRows));
    installTypes({100104});
    const std::string market = "sz";
    store->getDazongOrderNumLimit(market, "A1");  // the first use creates the platform's services
    for (const std::string code : {"A1", "12345678abcdefg"}) {
        const tests::Allocations heap;
        const Limit limit = store->getDazongOrderNumLimit(market, code);
        const int amount = store->getDazongOrderTradeAmountLimit(market, code);
        const long made = heap.made();
        EXPECT_EQ(made, 0) << code;
        EXPECT_EQ(limit.first, code == "A1" ? 5 : 1);
        EXPECT_EQ(amount, 10);
    }
}
