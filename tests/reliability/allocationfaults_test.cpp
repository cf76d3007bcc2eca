// Memory runs out at every single request of a load and of a query: nothing leaks or crashes, every table is in its old
// or its new state, and the store goes on answering.

#include <gtest/gtest.h>

#include <functional>
#include <iostream>
#include <iterator>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "standin/logsetup.h"
#include "tests/reliability/answertext.h"
#include "tests/reliability/freshstore.h"
#include "tests/reliability/refuseeachrequest.h"
#include "tests/reliability/storetables.h"
#include "tests/support/clientfolder.h"
#include "traderbase/base/config/configcollector.h"
#include "traderbase/base/config/tradeunit.h"

using tests::brokenTables;
using tests::ClientFolder;
using tests::combinationsOf;
using tests::FreshStore;
using tests::Outcome;
using tests::Refusal;
using tests::settingsOfVersion;
using tests::SilentError;
using tests::Tables;
using tests::tablesOf;
using tests::textOf;
using ttservice::ConfigCollector;

namespace {

struct Call {
    const char* name;
    std::function<std::string(ConfigCollector&)> ask;
};

// Too long for the small-string optimisation.
const std::string kMarket = "a market with a name that is long";
const std::string kCode = "a code with a name that is long";
const std::string kText = "a text of the client that is long";

std::string concentrationRatios(const ConfigCollector& store, int platform) {
    std::pair<double, double> ratios;
    const bool isListed = store.isUseConcentrationRatioPts(platform, ratios.first, ratios.second);
    return isListed ? textOf(ratios) : "none";
}

#define TT_CALL(expression)                                                     \
    Call {                                                                      \
#expression, [](ConfigCollector & store) { return textOf(expression); } \
    }
#define TT_SET(expression)                       \
    Call {                                       \
#expression, [](ConfigCollector& store) {      \
            expression;                                \
            return std::string();                      \
        } \
    }

const Call kCalls[] = {
    TT_CALL(store.isNeedMaxAmountPts(1)),
    TT_CALL(store.isSomePt("needmaxamount", 1)),
    TT_CALL(store.isSomePt(kText, 1)),
    TT_CALL(store.getPts("a switch that only version 1 has, under a long name")),
    TT_CALL(store.getPts(kText)),
    TT_CALL(store.getAllpts()),
    TT_CALL(store.isCanQueryETFFromCounter(1)),
    TT_CALL(store.getMaxPermission(kText)),
    TT_CALL(store.useNewBondRules(kMarket)),
    TT_CALL(store.getHgtSgtPriceDiff()),
    TT_CALL(store.getCounterMaxCompactsRespNum(1)),
    TT_CALL(store.getOrderLimit("SSE", "600001", BROKER_PRICE_INVALID)),
    TT_CALL(store.getOrderLimit(kMarket, kCode, BROKER_PRICE_INVALID)),
    TT_CALL(store.getDazongOrderNumLimit("SSE", "600001")),
    TT_CALL(store.getDazongOrderNumLimit(kMarket, kCode)),
    TT_CALL(store.getDazongOrderTradeAmountLimit(kMarket, kCode)),
    TT_CALL(store.getRateLimitPtr(kMarket, kCode)),
    TT_CALL(store.getHGTExchangeRateLimitPtr(kMarket, kCode)),
    TT_CALL(store.getSgtExchangeRateLimitPtr(kMarket, kCode)),
    TT_CALL(store.getSHFixIncomeLimit(static_cast<EBondTradeType>(2))),
    TT_CALL(store.getStandardBondUseLimit(kCode) == 1.0),
    TT_CALL(store.isRepayDebtByCollateralSell(1, kCode)),
    TT_CALL(concentrationRatios(store, 1)),
    TT_CALL(concentrationRatios(store, 77)),
    TT_CALL(store.getContractInfo("P1", false)),
    TT_CALL(store.getContractInfo(2)),
    TT_CALL(store.getAllContractInfo()),
    TT_CALL(store.getProductIdbyAlgoName("TWAP", false)),
    TT_CALL(store.getProductIdbyAlgoName(kText, true)),
    TT_CALL(store.isHttpProductID(kText)),
    TT_CALL(store.getAlgoTypes()),
    TT_CALL(store.getBuySellHideAlgoTypes()),
    TT_CALL(store.getT0Strategy()),
    TT_CALL(store.getSubFee(kText) == 0.0),
    TT_CALL(store.getSingleMarginProductName(kText)),
    TT_CALL(store.getETFBrokerCLientTag()),
    TT_CALL(store.getETFBrokerCLientQueryTimes()),
    TT_CALL(store.getTradingTime("SSE")),
    TT_CALL(store.isMonetaryFundUseSloBalanceFirst(1, kMarket, kCode)),
    TT_CALL(store.isNeedFixPriceByNonTradeMonetaryFund(kMarket, kCode)),
    TT_CALL((static_cast<void>(store), ttservice::getStockUnit(kMarket, kCode))),
    TT_CALL((static_cast<void>(store), ttservice::getStockTradeUnit(kMarket, kCode))),
    TT_CALL((static_cast<void>(store), ttservice::getTradeMinUnit(kMarket, kCode))),
    TT_CALL((static_cast<void>(store), ttservice::getUiMinUnit(kMarket, kCode, true))),
    TT_SET(store.setPts({{"needmaxamount", {4, 4}}, {kText, {1}}, {"notchangeborokerid", {4}}})),
    TT_SET(store.addLocalConfig("a switch that only the client knows", true)),
    TT_SET(store.setUseLocalConfig({{"a switch that only the client knows", true}, {"needmaxamount", false}})),
    TT_SET(store.setSplitPermission({{"the first permission", 1}, {"the other permission", 2}})),
    TT_SET(store.setLocalDiskPathHash(kText)),
    TT_SET(store.setLocalInfoFormat(kText)),
    TT_SET(store.setQeTsConfig(kText)),
    TT_SET(store.setUseOrderIdFunction(false)),
    TT_SET(store.initMarketTradingTime(std::map<std::string, std::string>{
        {"SSE", R"({"100000":50,"110000":49})"}, {"SZSE", R"({"100000":50,"110000":49,"120000":50})"}})),
};

void prepare(ConfigCollector& store, const std::string& path) {
    store.readConfig(path);
    store.setSplitPermission({{"the first permission", 7}, {"a third permission", 7}});
    store.initMarketTradingTime(std::map<std::string, std::string>{{"SSE", R"({"93000":50,"113000":49})"}});
}

}  // namespace

TEST(AllocationFaults, ALoadLeavesEveryTableOldOrNew) {
    const ClientFolder client;
    const tests::TempFolder folder;
    const SilentError silent;
    const std::string paths[] = {folder.write("1.ini", settingsOfVersion(1)),
                                 folder.write("2.ini", settingsOfVersion(2))};
    Tables old;
    Tables wanted;
    std::vector<std::string> combinations;
    {
        const FreshStore store;
        prepare(*store, paths[0]);
        old = tablesOf(*store);
        combinations.push_back(combinationsOf(*store));
        store->readConfig(paths[1]);
        wanted = tablesOf(*store);
        combinations.push_back(combinationsOf(*store));
    }
    ASSERT_NE(combinations[0], combinations[1]);
    for (const auto& [name, content] : wanted)
        EXPECT_EQ(content != old.at(name), !tests::isSetAtRunTime(name)) << name;
    const long points = tests::refuseEachRequest([&](const Refusal& refusal) {
        const FreshStore store;
        prepare(*store, paths[0]);
        const Outcome load = refusal.during([&] { store->readConfig(paths[1]); });
        ASSERT_NE(load, Outcome::OtherException);
        const Tables now = tablesOf(*store);
        if (load == Outcome::Done) {
            ASSERT_EQ(now, wanted);
        }
        ASSERT_EQ(brokenTables(now, old, wanted), "");
        const std::string added = combinationsOf(*store);
        ASSERT_TRUE(added == combinations[1] || (load != Outcome::Done && added == combinations[0])) << added;
        ASSERT_EQ(store->isNeedMaxAmountPts(2), store->isSomePt("needmaxamount", 2));
        store->readConfig(paths[1]);
        ASSERT_EQ(tablesOf(*store), wanted);
    });
    EXPECT_GT(points, 500);
    std::cout << points << " requests of a load refused\n";
}

namespace {

std::unique_ptr<const standin::LogCapture> logFor(bool withLog) {
    return withLog ? std::make_unique<const standin::LogCapture>() : nullptr;
}

// Refuses each request of each call and returns how many there were. With a log, log lines are enabled and captured
// during each round.
long refuseEachRequestOfEachCall(bool withLog) {
    const ClientFolder client;
    const tests::TempFolder folder;
    const SilentError silent;
    const std::string path = folder.write("1.ini", settingsOfVersion(1));
    standin::setEveryFileLogEnabled(withLog);
    long points = 0;
    for (const Call& call : kCalls) {
        Tables old;
        Tables wanted;
        std::string expected;
        {
            const auto log = logFor(withLog);
            const FreshStore store;
            prepare(*store, path);
            old = tablesOf(*store);
            expected = call.ask(*store);
            wanted = tablesOf(*store);
        }
        points += tests::refuseEachRequest([&](const Refusal& refusal) {
            const auto log = logFor(withLog);
            const FreshStore store;
            prepare(*store, path);
            std::string answer;
            const Outcome asked = refusal.during([&] { answer = call.ask(*store); });
            ASSERT_NE(asked, Outcome::OtherException) << call.name;
            const Tables now = tablesOf(*store);
            if (asked == Outcome::Done) {
                ASSERT_EQ(answer, expected) << call.name;
                ASSERT_EQ(now, wanted) << call.name;
            }
            ASSERT_EQ(brokenTables(now, old, wanted), "") << call.name;
            ASSERT_EQ(call.ask(*store), expected) << call.name;
        });
    }
    return points;
}

}  // namespace

TEST(AllocationFaults, ACallAnswersCorrectlyOrNotAtAllAndLeavesEveryTableOldOrNew) {
    const long points = refuseEachRequestOfEachCall(false);
    EXPECT_GT(points, 300);
    std::cout << points << " requests of " << std::size(kCalls) << " calls refused\n";
}

TEST(AllocationFaults, ACallIsStillAnsweredWhenItsLogLinesCannotBeWritten) {
    const long points = refuseEachRequestOfEachCall(true);
    EXPECT_GT(points, 400);
    std::cout << points << " requests of " << std::size(kCalls) << " calls that write to the log refused\n";
}
