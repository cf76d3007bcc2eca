// What is guarded, asked by many threads while it is replaced: every answer is one that some load or call gave.

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <functional>
#include <iostream>
#include <map>
#include <string>
#include <thread>
#include <vector>

#include "tests/support/clientfolder.h"
#include "tests/support/standarderror.h"
#include "traderbase/base/config/algorithmparamconfig.h"
#include "traderbase/base/config/configcollector.h"

using tests::ClientFolder;
using ttservice::AlgorithmParamConfig;
using ttservice::ConfigCollector;

namespace {

constexpr int kAskers = 8;
constexpr auto kDuration = std::chrono::seconds(TT_THREAD_SECONDS);

// Every list is {1, 2} or {3, 4}, every ratio pair (1, 2) or (3, 4), every code set {"A", "B"} or {"C", "D"}.
const char* const kFirst =
    "[setting]\nneedmaxamount=1,2\nisnotneedreplacecashrequired=1,2\nsome other key=1,2\n"
    "[CreditSetting]\nuse_collateral_buy_Concentration_Ratio=1:1,2;2:1,2\n"
    "use_collateral_sale_repay_debt=1:A,B;2:A,B\n"
    "[MonetaryFundSetting]\nfix_price_by_nontrade_monetaryfund=SZSE:A,B;SSE:A,B\n";
const char* const kSecond =
    "[setting]\nneedmaxamount=3,4\nisnotneedreplacecashrequired=3,4\nsome other key=3,4\n"
    "[CreditSetting]\nuse_collateral_buy_Concentration_Ratio=1:3,4;2:3,4\n"
    "use_collateral_sale_repay_debt=1:C,D;2:C,D\n"
    "[MonetaryFundSetting]\nfix_price_by_nontrade_monetaryfund=SZSE:C,D;SSE:C,D\n";

const std::vector<int> kFirstList{1, 2};
const std::vector<int> kSecondList{3, 4};

bool isLegal(const std::vector<int>& list) {
    return list == kFirstList || list == kSecondList;
}

// One round of everything that may be asked while a load runs. False for an answer that nothing gave. Two questions in
// a row may meet two tables, so only what one question answers is judged, and what holds in both tables.
bool asksLegally(const ConfigCollector& store, int round) {
    const int platform = 1 + round % 2;
    for (const char* key : {"needmaxamount", "isnotneedreplacecashrequired", "some other key"}) {
        if (!isLegal(store.getPts(key))) return false;
    }
    const auto all = store.getAllpts();
    for (const auto& [key, list] : all) {
        if (!isLegal(list)) return false;
    }
    // Whoever sets one of the two sets both.
    if (all.at("needmaxamount") != all.at("isnotneedreplacecashrequired")) return false;
    // Nothing lists 5 and nothing lists 0; whatever is asked of the others is a yes or a no of one of the two tables.
    if (store.isNeedMaxAmountPts(5) || store.isSomePt("some other key", 0)) return false;
    if (!store.needReplaceCashRequired(5)) return false;
    store.isNeedMaxAmountPts(platform);
    store.isSomePt("needmaxamount", platform);
    double first = 0;
    double second = 0;
    if (!store.isUseConcentrationRatioPts(platform, first, second)) return false;
    if (!(first == 1 && second == 2) && !(first == 3 && second == 4)) return false;
    if (store.isUseConcentrationRatioPts(3, first, second)) return false;
    store.isRepayDebtByCollateralSell(platform, round % 2 == 0 ? "A" : "C");
    if (store.isRepayDebtByCollateralSell(platform, "E") || store.isRepayDebtByCollateralSell(3, "A")) return false;
    store.isNeedFixPriceByNonTradeMonetaryFund("SZSE", round % 2 == 0 ? "B" : "D");
    return !store.isNeedFixPriceByNonTradeMonetaryFund("SSE", "E");
}

// Starts so many threads at one moment and waits for them.
void runTogether(int threads, const std::function<void(int)>& work) {
    std::atomic<int> waiting{threads};
    std::vector<std::thread> all;
    for (int i = 0; i < threads; ++i) {
        all.emplace_back([&waiting, &work, i] {
            --waiting;
            while (waiting > 0)
                std::this_thread::yield();
            work(i);
        });
    }
    for (std::thread& thread : all)
        thread.join();
}

}  // namespace

TEST(Threads, EveryAnswerIsLegalWhileLoadsAndSetPtsRun) {
    const ClientFolder client;
    const tests::TempFolder folder;
    const tests::StandardError caught;
    const std::string files[] = {folder.write("first.ini", kFirst), folder.write("second.ini", kSecond)};
    const auto store = ConfigCollector::instance();
    store->readConfig(files[0]);

    std::atomic<bool> ended{false};
    std::atomic<long> rounds{0};
    std::atomic<long> wrong{0};
    std::atomic<long> loads{0};
    std::atomic<long> replacements{0};
    const auto end = std::chrono::steady_clock::now() + kDuration;
    runTogether(kAskers + 2, [&](int number) {
        for (int round = number; !ended; ++round) {
            if (number == 0) {  // loads are the client's to serialise: one thread loads
                store->readConfig(files[round % 2]);
                ++loads;
                ended = std::chrono::steady_clock::now() >= end;
            } else if (number == 1) {
                const std::vector<int>& list = round % 2 == 0 ? kFirstList : kSecondList;
                store->setPts({{"needmaxamount", list}, {"isnotneedreplacecashrequired", list}});
                ++replacements;
                std::this_thread::yield();
            } else {
                if (!asksLegally(*store, round)) ++wrong;
                ++rounds;
            }
        }
    });
    EXPECT_EQ(wrong, 0);
    EXPECT_GT(loads, 10);
    EXPECT_GT(replacements, 10);
    EXPECT_GT(rounds, 100);
    RecordProperty("seconds", TT_THREAD_SECONDS);
    std::cout << kAskers << " askers, " << TT_THREAD_SECONDS << " s: " << rounds << " rounds of questions, " << loads
              << " loads, " << replacements << " setPts\n";
}

TEST(Threads, SixteenFirstUsersGetOneStore) {
    const ClientFolder client(
        "function getMarkets() return '{\"SSE\":1}' end\n"
        "function getMarketTradeDuration() return '{\"93000\":50,\"150000\":49}' end\n");
    std::vector<boost::shared_ptr<ConfigCollector>> stores(16);
    runTogether(16, [&stores](int number) { stores[static_cast<std::size_t>(number)] = ConfigCollector::instance(); });
    for (const auto& store : stores) {
        EXPECT_EQ(store, stores.front());
        EXPECT_EQ(store->getTradingTime("SSE").size(), 1U);
    }
}

TEST(Threads, SixteenFirstUsersGetOneCatalogue) {
    const ClientFolder client(
        "function getMarkets() return '{\"SSE\":1}' end\n"
        "function getMarketTradeDuration() return 'all day' end\n");
    std::vector<boost::shared_ptr<AlgorithmParamConfig>> catalogues(16);
    runTogether(16, [&catalogues](int number) {
        catalogues[static_cast<std::size_t>(number)] = AlgorithmParamConfig::instance();
    });
    for (const auto& catalogue : catalogues) {
        EXPECT_EQ(catalogue, catalogues.front());
        std::map<std::string, std::string> times;
        catalogue->getMarketTimeMap(times);
        EXPECT_EQ(times, (std::map<std::string, std::string>{{"SSE", "all day"}}));
    }
}

TEST(Threads, SixteenFirstUsersGetBothAtOnce) {
    const ClientFolder client;
    std::atomic<int> seen{0};
    runTogether(16, [&seen](int number) {
        if (number % 2 == 0 ? ConfigCollector::instance() != nullptr : AlgorithmParamConfig::instance() != nullptr)
            ++seen;
    });
    EXPECT_EQ(seen, 16);
}
