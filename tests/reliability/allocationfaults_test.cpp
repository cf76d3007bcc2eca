// Memory that runs out at every single request of a load, of a question and of a script's answer: nothing leaks,
// nothing crashes, every table is as it was or as it was to become, and the store goes on answering.

#include <gtest/gtest.h>

#include <cstddef>
#include <functional>
#include <iostream>
#include <iterator>
#include <map>
#include <streambuf>
#include <string>
#include <utility>
#include <vector>

#include "standin/platformdata.h"
#include "tests/base/luaconfig/script.h"
#include "tests/reliability/failingallocations.h"
#include "tests/reliability/storetables.h"
#include "tests/support/clientfolder.h"
#include "traderbase/base/config/algorithmparamconfig.h"
#include "traderbase/base/config/configcollector.h"
#include "traderbase/base/config/internal/storeslot.h"
#include "traderbase/base/config/tradeunit.h"

using tests::attempt;
using tests::Attempt;
using tests::ClientFolder;
using tests::Outcome;
using tests::piecesHeld;
using tests::settingsOfVersion;
using tests::Shortage;
using tests::tablesOf;
using ttservice::AlgorithmParamConfig;
using ttservice::ConfigCollector;
using ttservice::internal::StoreSlot;

namespace {

using Tables = std::map<std::string, std::string>;

// Takes the library's own lines and keeps none of them, so that they cost no memory.
class SilentError : std::streambuf {
public:
    SilentError() : before(std::cerr.rdbuf(this)) {}
    SilentError(const SilentError&) = delete;
    SilentError& operator=(const SilentError&) = delete;
    ~SilentError() override { std::cerr.rdbuf(before); }

private:
    int_type overflow(int_type c) override { return traits_type::not_eof(c); }
    std::streamsize xsputn(const char* /*text*/, std::streamsize size) override { return size; }

    std::streambuf* before;
};

// A store of its own in the place of the process's one.
class FreshStore {
public:
    FreshStore() : store(StoreSlot::build()), before(StoreSlot::exchange(store)) {}
    FreshStore(const FreshStore&) = delete;
    FreshStore& operator=(const FreshStore&) = delete;
    ~FreshStore() { StoreSlot::exchange(before); }

    ConfigCollector& operator*() const { return *store; }
    ConfigCollector* operator->() const { return store.get(); }

private:
    boost::shared_ptr<ConfigCollector> store;
    boost::shared_ptr<ConfigCollector> before;
};

// The names of the tables that are neither as they were nor as they were to become.
std::string brokenTables(const Tables& now, const Tables& old, const Tables& wanted) {
    std::string names;
    for (const auto& [name, content] : now) {
        if (content != old.at(name) && content != wanted.at(name)) names += name + ": " + content + '\n';
    }
    return names;
}

// What an answer is compared by.
std::string textOf(const std::string& text) {
    return text;
}
std::string textOf(int number) {
    return std::to_string(number);
}
std::string textOf(const std::pair<int, std::string>& limit) {
    return std::to_string(limit.first) + limit.second;
}
template <typename Range>
auto textOf(const Range& range) -> decltype(std::to_string(range.size())) {
    return std::to_string(range.size());
}
template <typename Record>
std::string textOf(const boost::shared_ptr<Record>& record) {
    return record ? "a record" : "none";
}

struct Call {
    const char* name;
    std::function<std::string(ConfigCollector&)> ask;
};

// Longer than any text that is kept in place.
const std::string kMarket = "a market with a name that is long";
const std::string kCode = "a code with a name that is long";
const std::string kText = "a text of the client that is long";

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

constexpr Shortage kShortages[] = {Shortage::Once, Shortage::FromThenOn};

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
    {
        const FreshStore store;
        prepare(*store, paths[0]);
        old = tablesOf(*store);
        store->readConfig(paths[1]);
        wanted = tablesOf(*store);
    }
    for (const auto& [name, content] : wanted) {
        const bool isLoaded = name.find("TradingTime") == std::string::npos && name.find("get") != 0;
        if (isLoaded && name != "local override of an unknown switch") {
            EXPECT_NE(content, old.at(name)) << name;
        }
    }
    long points = 0;
    for (const Shortage shortage : kShortages) {
        bool refused = true;
        for (long n = 1; refused; ++n) {
            const long before = piecesHeld();
            {
                const FreshStore store;
                prepare(*store, paths[0]);
                const Attempt load = attempt(n, shortage, [&] { store->readConfig(paths[1]); });
                refused = load.refused;
                points += refused ? 1 : 0;
                ASSERT_NE(load.outcome, Outcome::OtherException) << n;
                const Tables now = tablesOf(*store);
                if (load.outcome == Outcome::Done) {
                    ASSERT_EQ(now, wanted) << n;
                }
                ASSERT_EQ(brokenTables(now, old, wanted), "") << n;
                ASSERT_EQ(store->isNeedMaxAmountPts(2), store->isSomePt("needmaxamount", 2)) << n;
                store->readConfig(paths[1]);
                ASSERT_EQ(tablesOf(*store), wanted) << n;
            }
            ASSERT_EQ(piecesHeld(), before) << n;
        }
    }
    EXPECT_GT(points, 500);
    std::cout << points << " requests of a load refused\n";
}

TEST(AllocationFaults, ACallAnswersRightOrNotAtAllAndLeavesEveryTableOldOrNew) {
    const ClientFolder client;
    const tests::TempFolder folder;
    const SilentError silent;
    const std::string path = folder.write("1.ini", settingsOfVersion(1));
    long points = 0;
    for (const Call& call : kCalls) {
        Tables old;
        Tables wanted;
        std::string expected;
        {
            const FreshStore store;
            prepare(*store, path);
            old = tablesOf(*store);
            expected = call.ask(*store);
            wanted = tablesOf(*store);
        }
        for (const Shortage shortage : kShortages) {
            bool refused = true;
            for (long n = 1; refused; ++n) {
                const long before = piecesHeld();
                {
                    const FreshStore store;
                    prepare(*store, path);
                    std::string answer;
                    const Attempt asked = attempt(n, shortage, [&] { answer = call.ask(*store); });
                    refused = asked.refused;
                    points += refused ? 1 : 0;
                    ASSERT_NE(asked.outcome, Outcome::OtherException) << call.name << n;
                    const Tables now = tablesOf(*store);
                    if (asked.outcome == Outcome::Done) {
                        ASSERT_EQ(answer, expected) << call.name << n;
                        ASSERT_EQ(now, wanted) << call.name << n;
                    }
                    ASSERT_EQ(brokenTables(now, old, wanted), "") << call.name << n;
                    ASSERT_EQ(call.ask(*store), expected) << call.name << n;
                }
                ASSERT_EQ(piecesHeld(), before) << call.name << n;
            }
        }
    }
    EXPECT_GT(points, 100);
    std::cout << points << " requests of " << std::size(kCalls) << " calls refused\n";
}

TEST(AllocationFaults, ABuildOfTheStoreIsTriedAgainByTheNextCaller) {
    const ClientFolder client;
    long n = 1;
    for (; attempt(n, Shortage::FromThenOn, [] { ConfigCollector::instance(); }).outcome == Outcome::NoMemory; ++n) {
    }
    EXPECT_GT(n, 1);
    EXPECT_NE(ConfigCollector::instance(), nullptr);
    EXPECT_FALSE(ConfigCollector::instance()->isNeedMaxAmountPts(1));
}

TEST(AllocationFaults, ABuildOfTheCatalogueIsTriedAgainByTheNextCaller) {
    const ClientFolder client;
    long n = 1;
    for (; attempt(n, Shortage::FromThenOn, [] { AlgorithmParamConfig::instance(); }).outcome == Outcome::NoMemory;
         ++n) {
    }
    EXPECT_GT(n, 1);
    EXPECT_NE(AlgorithmParamConfig::instance(), nullptr);
}

// The script's own memory is not refused here but where its interpreter is tested.
TEST(AllocationFaults, SessionsOutOfAScriptStayWholeOrAreReplacedWhole) {
    const ClientFolder client;
    tests::TempFolder folder;
    const std::string script =
        folder.write("sessions.lua",
                     "function getMarkets() return '{\"SSE\":1,\"SZSE\":1}' end\n"
                     "function getMarketTradeDuration(m) return '{\"100000\":50,\"110000\":49,\"a name that is long "
                     "enough to be no text in place\":1}' end\n");
    const SilentError silent;
    const std::map<std::string, std::string> former{{"SSE", R"({"93000":50,"113000":49})"}};
    bool refused = true;
    long points = 0;
    for (long n = 1; refused; ++n) {
        const FreshStore store;
        store->initMarketTradingTime(former);
        const Tables old = tablesOf(*store);
        const Attempt read = attempt(n, Shortage::Once, [&] { store->initMarketTradingTime(script); });
        refused = read.refused;
        points += refused ? 1 : 0;
        ASSERT_NE(read.outcome, Outcome::OtherException) << n;
        const std::string now = tablesOf(*store).at("getTradingTime");
        store->initMarketTradingTime(script);
        const std::string wanted = tablesOf(*store).at("getTradingTime");
        ASSERT_TRUE(now == wanted || now == old.at("getTradingTime")) << n << now;
    }
    EXPECT_GT(points, 20);
    std::cout << points << " requests of a market-time script refused\n";
}

namespace {

using Getter = void (AlgorithmParamConfig::*)(std::string&) const;

struct Vendor {
    const char* function;
    const char* right;
    Getter get;
};

const Vendor kVendors[] = {
    {"getCiticAlgoParamConfig", "mdl_alg_zxzq1", &AlgorithmParamConfig::getCiticOriginalStr},
    {"getTwapAlgoParamConfig", "mdl_alg_twap", &AlgorithmParamConfig::getTwapOriginalStr},
    {"getQeAlgoParamConfig", "", &AlgorithmParamConfig::getQeAlgOriginalStr},
    {"getAlgorithmsHelpParamConfig", "", &AlgorithmParamConfig::getQeAlgoHelpStr},
};

std::string answerOf(const Vendor& vendor) {
    return std::string(R"({"content":{"name":")") + vendor.function +
           R"(","fields":[1,2.5,{"x":"a text that is long"}]}})";
}

}  // namespace

TEST(AllocationFaults, VendorAnswersComeInWholeOrNotAtAll) {
    const ClientFolder client;
    const SilentError silent;
    std::string source;
    standin::PlatformData data;
    for (const Vendor& vendor : kVendors) {
        source += std::string("function ") + vendor.function + "() return '" + answerOf(vendor) + "' end\n";
        data.addRight("mdl_alg", vendor.right);
    }
    standin::PlatformData::install(std::move(data));
    tests::Script script(source);
    const AlgorithmParamConfig empty(*AlgorithmParamConfig::instance());
    AlgorithmParamConfig(empty).initAlgoParams(*script);  // whatever is made once in a process is made now
    long points = 0;
    for (const Shortage shortage : kShortages) {
        bool refused = true;
        for (long n = 1; refused; ++n) {
            const long before = piecesHeld();
            {
                AlgorithmParamConfig catalogue(empty);
                const Attempt read = attempt(n, shortage, [&] { catalogue.initAlgoParams(*script); });
                refused = read.refused;
                points += refused ? 1 : 0;
                ASSERT_EQ(read.outcome, Outcome::Done) << n;
                std::size_t texts = 0;
                for (const Vendor& vendor : kVendors) {
                    std::string text;
                    (catalogue.*vendor.get)(text);
                    ASSERT_TRUE(text.empty() || text == answerOf(vendor)) << n << text;
                    texts += text.empty() ? 0U : 1U;
                    const auto record = catalogue.getAlgoParam(vendor.function);
                    ASSERT_TRUE(record == nullptr || !text.empty()) << n;
                }
                ASSERT_LE(catalogue.getAlgoritmsParams().size(), texts) << n;
                if (!refused) {
                    ASSERT_EQ(catalogue.getAlgoritmsParams().size(), std::size(kVendors));
                }
            }
            ASSERT_EQ(piecesHeld(), before) << n;
        }
    }
    EXPECT_GT(points, 50);
    std::cout << points << " requests of a reading of vendor answers refused\n";
}
