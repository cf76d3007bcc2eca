#include <gtest/gtest.h>
#include <boost/make_shared.hpp>
#include <boost/thread/locks.hpp>
#include <boost/thread/shared_mutex.hpp>

#include <atomic>
#include <chrono>
#include <future>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "standin/logsetup.h"
#include "standin/platformdata.h"
#include "standin/queryhook.h"
#include "tests/config/collectorpeer.h"
#include "tests/support/allocations.h"
#include "tests/support/store.h"
#include "ttplatform/configuration.h"
#include "ttplatform/stocktypecenter.h"

using tests::LoadedStore;
using ttservice::ConfigCollector;
using ttservice::ConfigCollectorPeer;
using namespace std::chrono_literals;

namespace {

constexpr int kMoneyMarketFund = 100024;

std::string lendingFirst(const std::string& rows) {
    return "[monetaryFundUseSloBalanceFirst]\n" + rows;
}

std::string fixedPrice(const std::string& value) {
    return "[MonetaryFundSetting]\nfix_price_by_nontrade_monetaryfund=" + value + "\n";
}

// SSE 511xxx are money-market funds, SSE 510xxx are funds of another type.
void installCatalogue() {
    standin::PlatformData data;
    data.addStockType(kMoneyMarketFund, "SSE", "511*");
    data.addStockType(100004, "SSE", "510*");
    data.addBaseType(kMoneyMarketFund, "SSE", "510*");  // a type of the base library: must not count
    standin::PlatformData::install(std::move(data));
}

struct Question {
    std::string market, code;
    bool answer;
};

}  // namespace

TEST(LendingBalanceFirst, HoldsForTheFundsThatThePlatformLists) {
    LoadedStore store(lendingFirst("5=SSE511880,SZSE159001\n"));
    const std::vector<Question> rows = {
        {"SSE", "511880", true},   {"SZSE", "159001", true}, {"SZSE", "511880", false},
        {"SSE", "159001", false},  {"sse", "511880", false}, {"SSE", "51188", false},
        {"SSE", "5118800", false}, {"", "", false},          {"SSE5", "11880", true},  // only the joined text counts
    };
    for (const Question& row : rows) {
        EXPECT_EQ(store->isMonetaryFundUseSloBalanceFirst(5, row.market, row.code), row.answer)
            << row.market << row.code;
        EXPECT_FALSE(store->isMonetaryFundUseSloBalanceFirst(6, row.market, row.code)) << row.market << row.code;
        EXPECT_FALSE(store->isMonetaryFundUseSloBalanceFirst(0, row.market, row.code)) << row.market << row.code;
    }
}

TEST(LendingBalanceFirst, AllAloneStandsForEveryMoneyMarketFund) {
    installCatalogue();
    LoadedStore store(lendingFirst("7=ALL\n"));
    EXPECT_TRUE(store->isMonetaryFundUseSloBalanceFirst(7, "SSE", "511880"));
    EXPECT_TRUE(store->isMonetaryFundUseSloBalanceFirst(7, "SSE", "511990"));
    EXPECT_FALSE(store->isMonetaryFundUseSloBalanceFirst(7, "SSE", "510050"));
    EXPECT_FALSE(store->isMonetaryFundUseSloBalanceFirst(7, "SZSE", "511880"));
    EXPECT_FALSE(store->isMonetaryFundUseSloBalanceFirst(8, "SSE", "511880"));
}

TEST(LendingBalanceFirst, AllBesideOthersIsOneEntryAmongThem) {
    installCatalogue();
    LoadedStore store;
    store.load(lendingFirst("7=ALL,X\n8=ALL,SSE510050\n"));
    EXPECT_TRUE(store->isMonetaryFundUseSloBalanceFirst(7, "X", ""));
    EXPECT_TRUE(store->isMonetaryFundUseSloBalanceFirst(7, "", "X"));
    EXPECT_TRUE(store->isMonetaryFundUseSloBalanceFirst(8, "SSE", "510050"));
    EXPECT_FALSE(store->isMonetaryFundUseSloBalanceFirst(7, "SSE", "511880"));
    EXPECT_FALSE(store->isMonetaryFundUseSloBalanceFirst(8, "SSE", "511880"));
    EXPECT_TRUE(store->isMonetaryFundUseSloBalanceFirst(7, "A", "LL"));
    for (const char* list : {"ALL,", ",ALL", "ALL,ALL", "all", "All", "ALL x", ""}) {
        store.load(lendingFirst("7=" + std::string(list) + "\n"));
        EXPECT_FALSE(store->isMonetaryFundUseSloBalanceFirst(7, "SSE", "511880")) << list;
    }
}

TEST(LendingBalanceFirst, EmptyEntriesCountAsWritten) {
    LoadedStore store(lendingFirst("7=\n8=A,,B\n9=A\n"));
    EXPECT_TRUE(store->isMonetaryFundUseSloBalanceFirst(7, "", ""));
    EXPECT_TRUE(store->isMonetaryFundUseSloBalanceFirst(8, "", ""));
    EXPECT_FALSE(store->isMonetaryFundUseSloBalanceFirst(9, "", ""));
}

TEST(LendingBalanceFirst, KeysAreReadLooselyAndTheLaterOneCounts) {
    LoadedStore store(lendingFirst("x=A1\n7=B1\n07=C1\n8x=D1\n-3=E1\n"));
    const std::vector<std::pair<int, std::string>> rows = {{0, "A1"}, {7, "C1"}, {8, "D1"}, {-3, "E1"}};
    for (const auto& [platform, fund] : rows)
        EXPECT_TRUE(store->isMonetaryFundUseSloBalanceFirst(platform, fund, "")) << platform;
    EXPECT_FALSE(store->isMonetaryFundUseSloBalanceFirst(7, "B1", ""));
    EXPECT_EQ(ConfigCollectorPeer::sloBalanceFirstFunds(*store).size(), 4U);
}

TEST(LendingBalanceFirst, IsReplacedByAReload) {
    LoadedStore store(lendingFirst("5=A1\n6=B1\n"));
    store.load(lendingFirst("6=C1\n"));
    EXPECT_FALSE(store->isMonetaryFundUseSloBalanceFirst(5, "A1", ""));
    EXPECT_FALSE(store->isMonetaryFundUseSloBalanceFirst(6, "B1", ""));
    EXPECT_TRUE(store->isMonetaryFundUseSloBalanceFirst(6, "C1", ""));
    store.load("");
    EXPECT_TRUE(ConfigCollectorPeer::sloBalanceFirstFunds(*store).empty());
}

TEST(LendingBalanceFirst, AsksTheCatalogueOnlyForAPlatformThatDoesNotListTheFund) {
    LoadedStore store(lendingFirst("5=SSE511880\n7=ALL\n"));
    std::vector<std::string> asked;
    standin::setQueryHook([&asked](const standin::Query& query) {
        asked.push_back(std::string(query.operation) + " " + std::to_string(query.number) + " " +
                        std::string(query.first) + " " + std::string(query.second));
    });
    static_cast<void>(store->isMonetaryFundUseSloBalanceFirst(6, "SSE", "511880"));
    static_cast<void>(store->isMonetaryFundUseSloBalanceFirst(5, "SSE", "511880"));
    EXPECT_TRUE(asked.empty());
    static_cast<void>(store->isMonetaryFundUseSloBalanceFirst(7, "SSE", "511880"));
    standin::setQueryHook({});
    EXPECT_EQ(asked, (std::vector<std::string>{"StockTypeCenter::isTypedStock 100024 SSE 511880"}));
}

TEST(FixedPriceFunds, AreTheCodesOfTheirMarket) {
    LoadedStore store(fixedPrice("SZSE:159001,159002;SSE:511990"));
    const std::vector<Question> rows = {
        {"SZSE", "159001", true},  {"SZSE", "159002", true},  {"SSE", "511990", true},  {"SSE", "159002", false},
        {"SZSE", "511990", false}, {"szse", "159001", false}, {"SZSE", "15900", false}, {"HK", "159001", false},
        {"SZSE", "", false},       {"", "", false},
    };
    for (const Question& row : rows)
        EXPECT_EQ(store->isNeedFixPriceByNonTradeMonetaryFund(row.market, row.code), row.answer)
            << row.market << row.code;
}

TEST(FixedPriceFunds, APieceWithoutAColonIsMarketAndCodes) {
    LoadedStore store(fixedPrice("SZSE;A,B"));
    EXPECT_TRUE(store->isNeedFixPriceByNonTradeMonetaryFund("SZSE", "SZSE"));
    EXPECT_TRUE(store->isNeedFixPriceByNonTradeMonetaryFund("A,B", "A"));
    EXPECT_TRUE(store->isNeedFixPriceByNonTradeMonetaryFund("A,B", "B"));
    EXPECT_FALSE(store->isNeedFixPriceByNonTradeMonetaryFund("A", "A"));
    EXPECT_FALSE(store->isNeedFixPriceByNonTradeMonetaryFund("SZSE", ""));
}

TEST(FixedPriceFunds, OnlyTheFirstColonSeparates) {
    LoadedStore store(fixedPrice("SZSE:1:2,3"));
    EXPECT_TRUE(store->isNeedFixPriceByNonTradeMonetaryFund("SZSE", "1:2"));
    EXPECT_TRUE(store->isNeedFixPriceByNonTradeMonetaryFund("SZSE", "3"));
    EXPECT_FALSE(store->isNeedFixPriceByNonTradeMonetaryFund("SZSE", "1"));
    EXPECT_FALSE(store->isNeedFixPriceByNonTradeMonetaryFund("SZSE:1", "2"));
}

TEST(FixedPriceFunds, EmptyPiecesCountAsWritten) {
    LoadedStore store(fixedPrice("SZSE:1,;"));
    EXPECT_TRUE(store->isNeedFixPriceByNonTradeMonetaryFund("SZSE", ""));
    EXPECT_TRUE(store->isNeedFixPriceByNonTradeMonetaryFund("", ""));
}

TEST(FixedPriceFunds, AMarketNamedTwiceKeepsItsLastPiece) {
    LoadedStore store(fixedPrice("SZSE:1,2;SSE:9;SZSE:3"));
    EXPECT_FALSE(store->isNeedFixPriceByNonTradeMonetaryFund("SZSE", "1"));
    EXPECT_TRUE(store->isNeedFixPriceByNonTradeMonetaryFund("SZSE", "3"));
    EXPECT_TRUE(store->isNeedFixPriceByNonTradeMonetaryFund("SSE", "9"));
}

TEST(FixedPriceFunds, AReloadReplacesOnlyTheMarketsThatItNames) {
    LoadedStore store(fixedPrice("SZSE:1,2;SSE:9"));
    store.load(fixedPrice("SZSE:2,3;HK:5"));
    const std::vector<Question> rows = {
        {"SZSE", "1", false}, {"SZSE", "2", true}, {"SZSE", "3", true}, {"SSE", "9", true}, {"HK", "5", true}};
    for (const Question& row : rows)
        EXPECT_EQ(store->isNeedFixPriceByNonTradeMonetaryFund(row.market, row.code), row.answer)
            << row.market << row.code;
    const auto before = ConfigCollectorPeer::fixedPriceFunds(*store);
    for (const std::string& settings : {fixedPrice(""), std::string("[MonetaryFundSetting]\n"), std::string()}) {
        store.load(settings);
        EXPECT_EQ(ConfigCollectorPeer::fixedPriceFunds(*store), before) << settings;
    }
}

TEST(FixedPriceFunds, AreLockedForTheWholeReading) {
    LoadedStore store(fixedPrice("SZSE:1"));
    std::future<bool> answer;
    bool waited = false;
    standin::setQueryHook([&](const standin::Query& query) {
        if (query.second != "fix_price_by_nontrade_monetaryfund") return;
        answer = std::async(std::launch::async,
                            [&store] { return store->isNeedFixPriceByNonTradeMonetaryFund("SZSE", "2"); });
        waited = answer.wait_for(50ms) == std::future_status::timeout;
    });
    store.load(fixedPrice("SZSE:2"));
    standin::setQueryHook({});
    ASSERT_TRUE(answer.valid());
    EXPECT_TRUE(waited);
    EXPECT_TRUE(answer.get());  // from the new table: the question waited for the reader
}

TEST(FixedPriceFunds, ManyMayAskAtOnceAndWaitForAReadingOnly) {
    LoadedStore store(fixedPrice("SZSE:1"));
    const auto ask = [&store] { return store->isNeedFixPriceByNonTradeMonetaryFund("SZSE", "1"); };
    auto& mutex = ConfigCollectorPeer::fixedPriceFundsMutex(*store);
    {
        boost::shared_lock<boost::shared_mutex> lock(mutex);
        std::future<bool> answer = std::async(std::launch::async, ask);
        EXPECT_EQ(answer.wait_for(10s), std::future_status::ready);
        lock.unlock();  // if the question does wait, the test fails instead of hanging
        EXPECT_TRUE(answer.get());
    }
    boost::unique_lock<boost::shared_mutex> lock(mutex);
    std::future<bool> answer = std::async(std::launch::async, ask);
    EXPECT_EQ(answer.wait_for(50ms), std::future_status::timeout);
    lock.unlock();
    EXPECT_TRUE(answer.get());
}

TEST(FixedPriceFunds, AreFreeAgainWhenTheReadingFails) {
    LoadedStore store(fixedPrice("SZSE:1"));
    standin::setQueryHook([](const standin::Query& query) {
        if (query.second == "fix_price_by_nontrade_monetaryfund") throw std::runtime_error("refused");
    });
    EXPECT_THROW(store.load(fixedPrice("SZSE:2")), std::runtime_error);
    standin::setQueryHook({});
    EXPECT_TRUE(store->isNeedFixPriceByNonTradeMonetaryFund("SZSE", "1"));
    store.load(fixedPrice("SZSE:2"));
    EXPECT_TRUE(store->isNeedFixPriceByNonTradeMonetaryFund("SZSE", "2"));
}

TEST(FixedPriceFunds, FourThreadsAskWhileLoadsRun) {
    LoadedStore store(fixedPrice("SZSE:always,even;SSE:kept"));
    std::atomic<bool> done{false};
    std::atomic<int> wrong{0};
    std::atomic<int> asked{0};
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([&] {
            while (!done) {
                const bool right = store->isNeedFixPriceByNonTradeMonetaryFund("SZSE", "always") &&
                                   store->isNeedFixPriceByNonTradeMonetaryFund("SSE", "kept") &&
                                   !store->isNeedFixPriceByNonTradeMonetaryFund("SSE", "even");
                static_cast<void>(store->isNeedFixPriceByNonTradeMonetaryFund("SZSE", "even"));
                if (!right) ++wrong;
                ++asked;
                std::this_thread::yield();
            }
        });
    }
    for (int i = 0; i < 200; ++i)
        store.load(fixedPrice(i % 2 == 0 ? "SZSE:odd,always,odder;X" + std::to_string(i) + ":1" : "SZSE:always,even"));
    while (asked < 4)
        std::this_thread::yield();
    done = true;
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(wrong, 0);
    EXPECT_TRUE(store->isNeedFixPriceByNonTradeMonetaryFund("X198", "1"));
}

TEST(MoneyFunds, QuestionsTakeNothingFromTheHeap) {
    const std::string market = "a market whose name is too long for any small text buffer";
    const std::string code = "a code that is too long for any small text buffer as well";
    installCatalogue();
    LoadedStore store(lendingFirst("5=X," + market + code + "\n6=" + market + "\n7=ALL\n") +
                      fixedPrice(market + ":" + code));
    StockTypeCenter::instance();  // created by the first question
    const tests::Allocations allocations;
    const bool listed = store->isMonetaryFundUseSloBalanceFirst(5, market, code);
    const bool other = store->isMonetaryFundUseSloBalanceFirst(6, market, code) ||
                       store->isMonetaryFundUseSloBalanceFirst(7, market, code);
    const bool fixed = store->isNeedFixPriceByNonTradeMonetaryFund(market, code);
    const bool otherFixed = store->isNeedFixPriceByNonTradeMonetaryFund(market, market) ||
                            store->isNeedFixPriceByNonTradeMonetaryFund(code, code);
    EXPECT_EQ(allocations.made(), 0);
    EXPECT_TRUE(listed && fixed);
    EXPECT_FALSE(other || otherFixed);
}

TEST(MoneyFunds, AnswerNoBeforeAnyLoad) {
    installCatalogue();
    const LoadedStore store;
    EXPECT_FALSE(store->isMonetaryFundUseSloBalanceFirst(0, "SSE", "511880"));
    EXPECT_FALSE(store->isNeedFixPriceByNonTradeMonetaryFund("SSE", "511880"));
    EXPECT_FALSE(store->isNeedFixPriceByNonTradeMonetaryFund("", ""));
}

TEST(MoneyFunds, TheReadersReportNothing) {
    ConfigCollector& store = *ConfigCollector::instance();  // created first, as it may log by itself
    const standin::LogCapture log;
    const tests::StandardError errors;
    const tests::TempFolder folder;
    const auto settings = boost::make_shared<utils::Configuration>();
    settings->parse(folder.write("a.ini", lendingFirst("x=,,\n") + fixedPrice(";:;x")));
    ConfigCollectorPeer::readSpecialMonetaryFund(store, settings);
    ConfigCollectorPeer::readNonTradeMonetaryFundFixPriceConfig(store, settings);
    EXPECT_TRUE(store.isNeedFixPriceByNonTradeMonetaryFund("x", "x"));
    EXPECT_TRUE(log.messages().empty());
    EXPECT_EQ(errors.text(), "");
}
