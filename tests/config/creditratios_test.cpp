#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include <ttplatform/configuration.h>
#include <boost/make_shared.hpp>
#include <boost/thread/locks.hpp>

#include "standin/logsetup.h"
#include "standin/queryhook.h"
#include "tests/config/collectorpeer.h"
#include "tests/support/allocations.h"
#include "tests/support/store.h"

using tests::LoadedStore;
using ttservice::ConfigCollector;
using ttservice::ConfigCollectorPeer;

namespace {

using Ratios = std::pair<double, double>;

std::string concentration(const std::string& value) {
    return "[CreditSetting]\nuse_collateral_buy_Concentration_Ratio=" + value + "\n";
}

std::string collateralSale(const std::string& value) {
    return "[CreditSetting]\nuse_collateral_sale_repay_debt=" + value + "\n";
}

std::string setting(const std::string& key, const std::string& value) {
    return "[setting]\n" + key + "=" + value + "\n";
}

constexpr Ratios kUntouched(-7, -8);

// The ratios of the platform, or kUntouched when it is not listed.
Ratios ratiosOf(const LoadedStore& store, int platform) {
    Ratios ratios = kUntouched;
    const bool isListed = store->isUseConcentrationRatioPts(platform, ratios.first, ratios.second);
    EXPECT_EQ(isListed, ratios != kUntouched);
    return ratios;
}

// The settings with one number per platform that a load reads.
struct NumberSetting {
    std::string key;
    std::function<double(const ConfigCollector&, int)> number;
    std::function<bool(const ConfigCollector&, int)> isListed;
};

const std::vector<NumberSetting>& numberSettings() {
    static const std::vector<NumberSetting> all = {
        {"setavailable", [](const ConfigCollector& store, int platform) { return store.getisSetavailable(platform); },
         [](const ConfigCollector& store, int platform) { return store.isSetavailable(platform); }},
        {"specialenablebalvolumestkexchangerate",
         [](const ConfigCollector& store, int platform) { return store.getSpecailEnableVolStkExchangeRate(platform); },
         [](const ConfigCollector& store, int platform) { return store.isUseSpecialEnableBalCalcVolume(platform); }},
    };
    return all;
}

// How many lines about bad values the last load wrote.
long complaints(const LoadedStore& store) {
    const std::string& text = store.lastComplaints();
    EXPECT_EQ(text.size() % tests::kBadValueLine.size(), 0U) << text;
    return static_cast<long>(text.size() / tests::kBadValueLine.size());
}

// Runs the reader that loads leave out, on settings given as text, and returns what it wrote.
std::string readBailRatio(LoadedStore& store, const std::string& text) {
    const tests::TempFolder folder;
    const auto configuration = boost::make_shared<utils::Configuration>();
    configuration->parse(folder.write("settings.ini", text));
    const tests::StandardError caught;
    ConfigCollectorPeer::readFinEnableBailRatio(*store, configuration);
    return caught.text();
}

}  // namespace

// --- concentration ratios

TEST(ConcentrationRatios, AListedPlatformHasItsTwoRatios) {
    LoadedStore store(concentration("12:0.5,0.6;15:1,2e-1;-3:.25,-1"));
    EXPECT_EQ(ratiosOf(store, 12), Ratios(0.5, 0.6));
    EXPECT_EQ(ratiosOf(store, 15), Ratios(1, 0.2));
    EXPECT_EQ(ratiosOf(store, -3), Ratios(0.25, -1));
}

TEST(ConcentrationRatios, AnUnlistedPlatformLeavesTheOutputsAlone) {
    LoadedStore store(concentration("12:0.5,0.6"));
    EXPECT_EQ(ratiosOf(store, 13), kUntouched);
    store.load("");
    EXPECT_EQ(ratiosOf(store, 12), kUntouched);
}

TEST(ConcentrationRatios, AnEntryWithOneNumberIsIgnored) {
    LoadedStore store(concentration("12:0.5"));
    EXPECT_EQ(ratiosOf(store, 12), kUntouched);
    store.load(concentration("12:0.5,0.6;12:0.7;13:0.1,0.2"));
    EXPECT_EQ(ratiosOf(store, 12), Ratios(0.5, 0.6)) << "nor does it take an earlier entry away";
    EXPECT_EQ(ratiosOf(store, 13), Ratios(0.1, 0.2));
}

TEST(ConcentrationRatios, OfThreeNumbersTheFirstTwoCount) {
    LoadedStore store(concentration("12:0.5,0.6,0.7"));
    EXPECT_EQ(ratiosOf(store, 12), Ratios(0.5, 0.6));
}

TEST(ConcentrationRatios, EmptyFieldsCountAsZero) {
    LoadedStore store(concentration("12:,;13:,,0.5;14:0.5,"));
    EXPECT_EQ(ratiosOf(store, 12), Ratios(0, 0));
    EXPECT_EQ(ratiosOf(store, 13), Ratios(0, 0));
    EXPECT_EQ(ratiosOf(store, 14), Ratios(0.5, 0));
}

TEST(ConcentrationRatios, NumbersAreReadAsAtoiAndAtofDo) {
    LoadedStore store(concentration("12x:0.5y, 0.6;abc:x,1"));
    EXPECT_EQ(ratiosOf(store, 12), Ratios(0.5, 0.6));
    EXPECT_EQ(ratiosOf(store, 0), Ratios(0, 1)) << "no number is platform 0";
}

TEST(ConcentrationRatios, AnEntryWithoutColonIsSkipped) {
    LoadedStore store(concentration("12;0.5,0.6;;13:0.1,0.2;"));
    EXPECT_EQ(ratiosOf(store, 12), kUntouched);
    EXPECT_EQ(ratiosOf(store, 0), kUntouched);
    EXPECT_EQ(ratiosOf(store, 13), Ratios(0.1, 0.2));
}

TEST(ConcentrationRatios, TheLastPairOfAPlatformCounts) {
    LoadedStore store(concentration("12:0.5,0.6;13:1,1;12:0.7,0.8"));
    EXPECT_EQ(ratiosOf(store, 12), Ratios(0.7, 0.8));
}

TEST(ConcentrationRatios, AnEmptyValueStoresNothing) {
    LoadedStore store(concentration(""));
    EXPECT_EQ(ratiosOf(store, 0), kUntouched);
}

TEST(ConcentrationRatios, SectionAndKeyAreExact) {
    LoadedStore store(
        "[CreditSetting]\nuse_collateral_buy_concentration_ratio=12:1,1\n[creditsetting]\n"
        "use_collateral_buy_Concentration_Ratio=13:1,1\n");
    EXPECT_EQ(ratiosOf(store, 12), kUntouched);
    EXPECT_EQ(ratiosOf(store, 13), kUntouched);
}

TEST(ConcentrationRatios, AReloadBuildsTheTableAnew) {
    LoadedStore store(concentration("12:0.5,0.6"));
    store.load(concentration("13:0.5,0.6"));
    EXPECT_EQ(ratiosOf(store, 12), kUntouched);
    EXPECT_EQ(ratiosOf(store, 13), Ratios(0.5, 0.6));
}

TEST(ConcentrationRatios, NothingIsReported) {
    LoadedStore store;
    standin::LogCapture log;
    standin::setEveryFileLogEnabled(true);
    store.load(concentration("12:x;y:;;z"));
    EXPECT_EQ(store.lastComplaints(), "");
    EXPECT_TRUE(log.messages().empty());
}

// --- codes whose sale repays debt

TEST(CollateralSale, AListedPlatformAndCodeRepay) {
    LoadedStore store(collateralSale("12:600000,511880;15:159001"));
    EXPECT_TRUE(store->isRepayDebtByCollateralSell(12, "600000"));
    EXPECT_TRUE(store->isRepayDebtByCollateralSell(12, "511880"));
    EXPECT_TRUE(store->isRepayDebtByCollateralSell(15, "159001"));
    EXPECT_FALSE(store->isRepayDebtByCollateralSell(15, "600000"));
    EXPECT_FALSE(store->isRepayDebtByCollateralSell(12, "60000"));
    EXPECT_FALSE(store->isRepayDebtByCollateralSell(99, "600000"));
}

TEST(CollateralSale, CodesAreComparedExactly) {
    LoadedStore store(collateralSale("12:Abc, 1"));
    EXPECT_TRUE(store->isRepayDebtByCollateralSell(12, "Abc"));
    for (const char* code : {"abc", "ABC", "1", "Abc "}) {
        EXPECT_FALSE(store->isRepayDebtByCollateralSell(12, code)) << code;
    }
    EXPECT_TRUE(store->isRepayDebtByCollateralSell(12, " 1")) << "not trimmed";
}

TEST(CollateralSale, SeveralEntriesOfAPlatformAddUp) {
    LoadedStore store(collateralSale("12:1;15:2;12:3"));
    EXPECT_TRUE(store->isRepayDebtByCollateralSell(12, "1"));
    EXPECT_TRUE(store->isRepayDebtByCollateralSell(12, "3"));
    EXPECT_FALSE(store->isRepayDebtByCollateralSell(12, "2"));
}

TEST(CollateralSale, AnEntryWithoutColonIsSkipped) {
    LoadedStore store(collateralSale("600000;12:1;"));
    EXPECT_FALSE(store->isRepayDebtByCollateralSell(600000, "600000"));
    EXPECT_FALSE(store->isRepayDebtByCollateralSell(0, "600000"));
    EXPECT_TRUE(store->isRepayDebtByCollateralSell(12, "1"));
}

TEST(CollateralSale, EmptyCodesDoNotCount) {
    LoadedStore store(collateralSale("12:;13:1,,2,"));
    EXPECT_FALSE(store->isRepayDebtByCollateralSell(12, ""));
    EXPECT_FALSE(store->isRepayDebtByCollateralSell(13, ""));
    EXPECT_TRUE(store->isRepayDebtByCollateralSell(13, "2"));
}

TEST(CollateralSale, ThePlatformIsReadAsAtoiDoes) {
    LoadedStore store(collateralSale("12x:1;x:2; 13:3"));
    EXPECT_TRUE(store->isRepayDebtByCollateralSell(12, "1"));
    EXPECT_TRUE(store->isRepayDebtByCollateralSell(0, "2"));
    EXPECT_TRUE(store->isRepayDebtByCollateralSell(13, "3"));
}

TEST(CollateralSale, AReloadBuildsTheTableAnew) {
    LoadedStore store(collateralSale("12:1"));
    store.load(collateralSale("12:2"));
    EXPECT_FALSE(store->isRepayDebtByCollateralSell(12, "1"));
    EXPECT_TRUE(store->isRepayDebtByCollateralSell(12, "2"));
    store.load("");
    EXPECT_FALSE(store->isRepayDebtByCollateralSell(12, "2"));
}

TEST(CollateralSale, BeforeAnyLoadNothingRepays) {
    LoadedStore store;
    EXPECT_FALSE(store->isRepayDebtByCollateralSell(12, "1"));
    EXPECT_EQ(ratiosOf(store, 12), kUntouched);
}

TEST(CollateralSale, NothingIsReported) {
    LoadedStore store(collateralSale("x;y:;;12:z"));
    EXPECT_EQ(store.lastComplaints(), "");
}

// --- one number per platform

TEST(CreditNumbers, AListedPlatformHasItsNumberAndTheOthersTheDefault) {
    for (const NumberSetting& row : numberSettings()) {
        LoadedStore store(setting(row.key, "12:0.5;15:-2e2;0.25"));
        EXPECT_EQ(row.number(*store, 12), 0.5) << row.key;
        EXPECT_EQ(row.number(*store, 15), -200) << row.key;
        EXPECT_EQ(row.number(*store, 99), 0.25) << row.key;
        EXPECT_TRUE(row.isListed(*store, 12)) << row.key;
        EXPECT_TRUE(row.isListed(*store, 15)) << row.key;
        EXPECT_FALSE(row.isListed(*store, 99)) << row.key;
    }
}

TEST(CreditNumbers, APlatformListedWithZeroIsListed) {
    for (const NumberSetting& row : numberSettings()) {
        LoadedStore store(setting(row.key, "12:0"));
        EXPECT_TRUE(row.isListed(*store, 12)) << row.key;
        EXPECT_EQ(row.number(*store, 12), 0) << row.key;
    }
}

TEST(CreditNumbers, WithoutTheKeyTheNumberIsZeroAndNobodyIsListed) {
    for (const NumberSetting& row : numberSettings()) {
        LoadedStore store;
        EXPECT_EQ(row.number(*store, 12), 0) << row.key << " before any load";
        for (const char* text : {"", "[setting]\n"}) {
            store.load(setting(row.key, "12:1;2"));
            store.load(text);
            EXPECT_EQ(row.number(*store, 12), 0) << row.key;
            EXPECT_FALSE(row.isListed(*store, 12)) << row.key;
            EXPECT_EQ(store.lastComplaints(), "") << row.key;
        }
    }
}

TEST(CreditNumbers, AnEmptyEntryAnywhereSetsTheBuiltInDefault) {
    for (const NumberSetting& row : numberSettings()) {
        struct {
            const char* value;
            double others;
        } const rows[] = {{"7;12:1;", 0}, {";7;12:1", 7}, {"7;;12:1", 0}, {"12:1;;7", 7}, {";", 0}, {"7", 7}};
        LoadedStore store;
        for (const auto& each : rows) {
            store.load(setting(row.key, each.value));
            EXPECT_EQ(row.number(*store, 99), each.others) << row.key << "=" << each.value;
        }
    }
}

TEST(CreditNumbers, AValueOfPlatformsAloneKeepsTheDefaultOfTheLoadBefore) {
    for (const NumberSetting& row : numberSettings()) {
        LoadedStore store(setting(row.key, "12:1;7"));
        store.load(setting(row.key, "13:2"));
        EXPECT_EQ(row.number(*store, 99), 7) << row.key;
        EXPECT_EQ(row.number(*store, 12), 7) << row.key << ": the platforms themselves are read anew";
        EXPECT_FALSE(row.isListed(*store, 12)) << row.key;
        EXPECT_EQ(row.number(*store, 13), 2) << row.key;
    }
}

TEST(CreditNumbers, TheLastEntryOfAPlatformAndTheLastDefaultCount) {
    for (const NumberSetting& row : numberSettings()) {
        LoadedStore store(setting(row.key, "12:1;3;12:2;4"));
        EXPECT_EQ(row.number(*store, 12), 2) << row.key;
        EXPECT_EQ(row.number(*store, 99), 4) << row.key;
    }
}

TEST(CreditNumbers, ABadEntryCostsOneLineAndTheOthersCount) {
    struct {
        const char* entry;
    } const bad[] = {{"12:x"},   {"12:1x"}, {"12:"},  {"12: 1"}, {"x:1"},    {":1"},           {"1.0:1"},
                     {"12 :1"},  {"abc"},   {"1e"},   {"1E"},    {"1+"},     {"1-"},           {"12:1e"},
                     {"12:1e+"}, {"12:-"},  {"12:+"}, {"0x10"},  {"12:1:2"}, {"2147483648:1"}, {" 7"}};
    for (const NumberSetting& row : numberSettings()) {
        for (const auto& each : bad) {
            LoadedStore store;
            store.load(setting(row.key, "13:0.5;" + std::string(each.entry) + ";14:2;0.25"));
            // The value holds no ",", so the platform list sees it as one bad piece too.
            EXPECT_EQ(complaints(store), 2) << row.key << " " << each.entry;
            EXPECT_EQ(row.number(*store, 13), 0.5) << each.entry;
            EXPECT_EQ(row.number(*store, 14), 2) << each.entry;
            EXPECT_EQ(row.number(*store, 99), 0.25) << each.entry;
            EXPECT_FALSE(row.isListed(*store, 12)) << each.entry;
            EXPECT_FALSE(row.isListed(*store, 1)) << each.entry;
        }
    }
}

TEST(CreditNumbers, GoodEntriesCostNoLine) {
    for (const NumberSetting& row : numberSettings()) {
        struct {
            const char* value;
            double number;
        } const good[] = {{"+12:1", 1},    {"12:+1", 1},      {"12:.5", 0.5}, {"12:5.", 5},
                          {"12:1e2", 100}, {"12:1E-2", 0.01}, {"0012:1", 1}};
        for (const auto& each : good) {
            LoadedStore store(setting(row.key, each.value));
            EXPECT_EQ(complaints(store), 1) << each.value << ": the switch table's line and no other";
            EXPECT_EQ(row.number(*store, 12), each.number) << each.value;
        }
        LoadedStore store(setting(row.key, "-2147483648:1;2147483647:2"));
        EXPECT_EQ(complaints(store), 1);
        EXPECT_EQ(row.number(*store, -2147483647 - 1), 1);
        EXPECT_EQ(row.number(*store, 2147483647), 2);
    }
}

TEST(CreditNumbers, EachSettingHasItsOwnKey) {
    LoadedStore store("[setting]\nsetavailable=12:1;2\n");
    EXPECT_EQ(store->getSpecailEnableVolStkExchangeRate(12), 0);
    EXPECT_FALSE(store->isUseSpecialEnableBalCalcVolume(12));
    store.load("[setting]\nspecialenablebalvolumestkexchangerate=12:1;2\n");
    EXPECT_EQ(store->getisSetavailable(12), 0);
    EXPECT_FALSE(store->isSetavailable(12));
    EXPECT_FALSE(store->isNeedCheckAssureEnbuyBalancePts(12));
}

// --- the financing bail ratio, which loads leave out

TEST(BailRatio, ALoadHasNoEffect) {
    LoadedStore store;
    for (const char* value : {"", "1:0.5;0.7", "0.9", "x"}) {
        EXPECT_EQ(store->getFinEnableBailRatio(1), 0.6) << value;
        EXPECT_EQ(store->getFinEnableBailRatio(99), 0.6) << value;
        EXPECT_FALSE(store->isUseFinEnableBailRatio(1)) << value;
        store.load(setting("finenablebailratio", value));
    }
    EXPECT_EQ(store->getFinEnableBailRatio(1), 0.6);
    EXPECT_FALSE(store->isUseFinEnableBailRatio(1));
}

TEST(BailRatio, NoLoadAsksForItsKeyBeyondTheSwitchTable) {
    LoadedStore store;
    int asked = 0;
    standin::setQueryHook([&asked](const standin::Query& query) { asked += query.second == "finenablebailratio"; });
    store.load("");
    EXPECT_EQ(asked, 0);
    store.load(setting("finenablebailratio", "1:0.5"));
    EXPECT_EQ(asked, 1);
    standin::setQueryHook(nullptr);
}

TEST(BailRatio, ReaderWouldStoreValuesIfItRan) {
    LoadedStore store;
    EXPECT_EQ(readBailRatio(store, ""), "");
    EXPECT_EQ(store->getFinEnableBailRatio(99), 0.6);
    EXPECT_EQ(readBailRatio(store, setting("finenablebailratio", "1:0.5;0.7")), "");
    EXPECT_EQ(store->getFinEnableBailRatio(1), 0.5);
    EXPECT_EQ(store->getFinEnableBailRatio(99), 0.7);
    EXPECT_TRUE(store->isUseFinEnableBailRatio(1));
    EXPECT_FALSE(store->isUseFinEnableBailRatio(99));
    EXPECT_EQ(readBailRatio(store, setting("finenablebailratio", "2:0.4;x;")), tests::kBadValueLine);
    EXPECT_EQ(store->getFinEnableBailRatio(2), 0.4);
    EXPECT_EQ(store->getFinEnableBailRatio(1), 0.6) << "an empty entry sets the built-in default";
}

TEST(BailRatio, EachBadEntryCostsExactlyOneLine) {
    LoadedStore store;
    const std::string line = tests::kBadValueLine;
    EXPECT_EQ(readBailRatio(store, setting("finenablebailratio", "x;1:y;z:1;2:0.5")), line + line + line);
    EXPECT_EQ(store->getFinEnableBailRatio(2), 0.5);
}

// --- the flag

TEST(AssureEnbuyBalance, AListedPlatformHasItsFlagAndTheOthersTheDefault) {
    LoadedStore store(setting("isneedcheckassureenbuybalance", "12:1;15:0;1"));
    EXPECT_TRUE(store->isNeedCheckAssureEnbuyBalancePts(12));
    EXPECT_FALSE(store->isNeedCheckAssureEnbuyBalancePts(15));
    EXPECT_TRUE(store->isNeedCheckAssureEnbuyBalancePts(99));
}

TEST(AssureEnbuyBalance, WithoutTheKeyItIsFalseAndNothingIsReported) {
    LoadedStore store;
    EXPECT_FALSE(store->isNeedCheckAssureEnbuyBalancePts(12));
    store.load(setting("isneedcheckassureenbuybalance", "1"));
    EXPECT_TRUE(store->isNeedCheckAssureEnbuyBalancePts(12));
    store.load("[setting]\n");
    EXPECT_FALSE(store->isNeedCheckAssureEnbuyBalancePts(12));
    EXPECT_EQ(store.lastComplaints(), "");
}

TEST(AssureEnbuyBalance, EveryEmptyEntrySetsFalse) {
    struct {
        const char* value;
        bool others;
    } const rows[] = {{"1;", false}, {"1;;12:1", false}, {";1", true}, {"1;12:0", true}, {"", false}};
    LoadedStore store;
    for (const auto& row : rows) {
        store.load(setting("isneedcheckassureenbuybalance", row.value));
        EXPECT_EQ(store->isNeedCheckAssureEnbuyBalancePts(99), row.others) << row.value;
    }
}

TEST(AssureEnbuyBalance, AValueOfPlatformsAloneKeepsTheDefaultOfTheLoadBefore) {
    LoadedStore store(setting("isneedcheckassureenbuybalance", "1;12:0"));
    store.load(setting("isneedcheckassureenbuybalance", "13:0"));
    EXPECT_TRUE(store->isNeedCheckAssureEnbuyBalancePts(99));
    EXPECT_TRUE(store->isNeedCheckAssureEnbuyBalancePts(12));
    EXPECT_FALSE(store->isNeedCheckAssureEnbuyBalancePts(13));
}

TEST(AssureEnbuyBalance, BadFlagsCostOneLineEach) {
    for (const char* bad : {"12:true", "12:2", "12:-1", "12:", "yes", "x:1"}) {
        LoadedStore store(setting("isneedcheckassureenbuybalance", "13:1;" + std::string(bad) + ";0"));
        EXPECT_EQ(complaints(store), 2) << bad;
        EXPECT_TRUE(store->isNeedCheckAssureEnbuyBalancePts(13)) << bad;
        EXPECT_FALSE(store->isNeedCheckAssureEnbuyBalancePts(12)) << bad;
    }
}

// --- locks

using PlatformLock = ttservice::internal::ReadMostlyMutex;

TEST(CreditLocks, ConcentrationRatiosAreGuardedByTheirOwnMutex) {
    LoadedStore store(concentration("12:0.5,0.6"));
    std::atomic<bool> answered{false};
    boost::unique_lock<boost::mutex> held(ConfigCollectorPeer::concentrationLock(*store));
    EXPECT_FALSE(store->isRepayDebtByCollateralSell(12, "1")) << "the other table needs another lock";
    std::thread asker([&] {
        EXPECT_EQ(ratiosOf(store, 12), Ratios(0.5, 0.6));
        answered = true;
    });
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    EXPECT_FALSE(answered);
    held.unlock();
    asker.join();
    EXPECT_TRUE(answered);
}

TEST(CreditLocks, TheCollateralTableSharesTheLockOfThePlatformSwitches) {
    LoadedStore store(collateralSale("12:1"));
    {
        const PlatformLock::Reader reader(ConfigCollectorPeer::platformLock(*store));
        std::thread other([&] { EXPECT_TRUE(store->isRepayDebtByCollateralSell(12, "1")); });
        other.join();  // readers do not block each other
    }
    std::atomic<bool> answered{false};
    auto held = std::make_unique<PlatformLock::Writer>(ConfigCollectorPeer::platformLock(*store));
    EXPECT_EQ(ratiosOf(store, 12), kUntouched) << "the other table needs another lock";
    std::thread asker([&] {
        EXPECT_TRUE(store->isRepayDebtByCollateralSell(12, "1"));
        answered = true;
    });
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    EXPECT_FALSE(answered);
    held.reset();
    asker.join();
    EXPECT_TRUE(answered);
}

TEST(CreditLocks, BothTablesMayBeAskedWhileLoadsRun) {
    LoadedStore store(concentration("12:1,2") + "use_collateral_sale_repay_debt=12:1\n");
    std::atomic<bool> done{false};
    std::vector<std::thread> askers;
    for (int number = 0; number < 3; ++number) {
        askers.emplace_back([&] {
            while (!done) {
                double first = 1;
                double second = 2;
                store->isUseConcentrationRatioPts(12, first, second);
                EXPECT_EQ(second, 2 * first) << "a pair of two different loads";
                store->isRepayDebtByCollateralSell(12, "1");
            }
        });
    }
    for (int load = 1; load <= 50; ++load) {
        store.load(concentration("12:" + std::to_string(load) + "," + std::to_string(2 * load)) +
                   "use_collateral_sale_repay_debt=12:1,2,3\n");
    }
    done = true;
    for (std::thread& asker : askers)
        asker.join();
}

TEST(CreditRatios, QuestionsNeedNoHeap) {
    LoadedStore store(concentration("12:1,2") + "use_collateral_sale_repay_debt=12:600000\n" +
                      setting("setavailable", "12:1"));
    const std::string code = "600000";
    double first = 0;
    double second = 0;
    const tests::Allocations heap;
    store->isUseConcentrationRatioPts(12, first, second);
    store->isRepayDebtByCollateralSell(12, code);
    store->getisSetavailable(12);
    store->isSetavailable(12);
    store->getFinEnableBailRatio(12);
    store->isNeedCheckAssureEnbuyBalancePts(12);
    const long made = heap.made();
    EXPECT_EQ(made, 0);
}
