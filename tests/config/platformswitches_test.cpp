#include <gtest/gtest.h>

#include <atomic>
#include <map>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include "tests/config/collectorpeer.h"
#include "tests/support/allocations.h"
#include "tests/support/store.h"
#include "traderbase/base/config/configcollector.h"
#include "traderbase/base/config/internal/switches/platformswitchtable.h"

using tests::LoadedStore;
using ttservice::ConfigCollector;
using ttservice::ConfigCollectorPeer;
using ttservice::internal::kPlatformSwitches;
using ttservice::internal::SwitchSense;

namespace {

using Predicate = bool (ConfigCollector::*)(int) const;

// The predicate of each row, in the order of the table.
constexpr Predicate kPredicates[] = {
#define TT_PLATFORM_SWITCH(predicate, key, sense, meaning) &ConfigCollector::predicate,
#include "traderbase/base/config/platformswitches.def"
};

struct Row {
    const char* predicate;
    const char* key;
    bool listed;
};

// The vocabulary that brokers and clients know, written independently of the table.
constexpr Row kVocabulary[] = {
#include "tests/config/platformswitchrows.inc"
};

bool ask(const ConfigCollector& store, std::size_t row, int platform) {
    return (store.*kPredicates[row])(platform);
}

}  // namespace

TEST(PlatformSwitches, TheTableIsTheVocabulary) {
    ASSERT_EQ(std::size(kPlatformSwitches), std::size(kVocabulary));
    for (const Row& expected : kVocabulary) {
        int found = 0;
        for (const auto& row : kPlatformSwitches) {
            if (row.predicate != expected.predicate) continue;
            ++found;
            EXPECT_EQ(row.key, expected.key) << expected.predicate;
            EXPECT_EQ(row.sense == SwitchSense::Listed, expected.listed) << expected.predicate;
        }
        EXPECT_EQ(found, 1) << expected.predicate;
    }
}

TEST(PlatformSwitches, EveryPredicateAnswersFromItsKeyAndNoOther) {
    const auto store = ConfigCollector::instance();
    for (std::size_t i = 0; i < std::size(kPlatformSwitches); ++i) {
        const auto& row = kPlatformSwitches[i];
        const bool whenListed = row.sense == SwitchSense::Listed;
        EXPECT_EQ(ask(*store, i, 12), !whenListed) << row.predicate << ", no key";
        store->setPts({{std::string(row.key), {7, 12, 7}}});
        EXPECT_EQ(ask(*store, i, 12), whenListed) << row.predicate << ", listed";
        EXPECT_EQ(ask(*store, i, 7), whenListed) << row.predicate << ", listed twice";
        EXPECT_EQ(ask(*store, i, 13), !whenListed) << row.predicate << ", not listed";
        for (std::size_t other = i + 1; other < std::size(kPlatformSwitches); ++other) {
            EXPECT_EQ(ask(*store, other, 12), kPlatformSwitches[other].sense == SwitchSense::NotListed)
                << row.key << " changes " << kPlatformSwitches[other].predicate;
        }
        store->addLocalConfig(std::string(row.key), false);
        EXPECT_EQ(ask(*store, i, 12), !whenListed) << row.predicate << ", overridden to false";
        store->addLocalConfig(std::string(row.key), true);
        EXPECT_EQ(ask(*store, i, 13), whenListed) << row.predicate << ", overridden to true";
        store->setUseLocalConfig({});
        store->setPts({{std::string(row.key), {}}});
        EXPECT_EQ(ask(*store, i, 12), !whenListed) << row.predicate << ", empty list";
    }
}

TEST(PlatformSwitches, CommasInARowAndAtTheEndDoNotCount) {
    const LoadedStore store("[setting]\nneedmaxamount=12,,15,\n");
    EXPECT_EQ(store->getPts("needmaxamount"), (std::vector<int>{12, 15}));
    EXPECT_TRUE(store->isNeedMaxAmountPts(15));
    EXPECT_FALSE(store->isNeedMaxAmountPts(0));
    EXPECT_EQ(store.lastComplaints(), "");
}

TEST(PlatformSwitches, ABlankInAPieceCostsThePieceAndOneLine) {
    const LoadedStore store("[setting]\nneedmaxamount=12, 15\n");
    EXPECT_EQ(store->getPts("needmaxamount"), (std::vector<int>{12}));
    EXPECT_EQ(store.lastComplaints(), tests::kBadValueLine);
}

TEST(PlatformSwitches, AnEmptyValueIsAnEmptyList) {
    const LoadedStore store("[setting]\nneedmaxamount=\n");
    const std::map<std::string, std::vector<int>> expected = {{"needmaxamount", {}}};
    EXPECT_EQ(store->getAllpts(), expected);
    EXPECT_FALSE(store->isNeedMaxAmountPts(0));
    EXPECT_EQ(store.lastComplaints(), "");
}

TEST(PlatformSwitches, SignedIdsAndTheEndsOfTheRange) {
    const LoadedStore store("[setting]\nneedmaxamount=-5,+5,2147483648,-2147483648,2147483647\n");
    EXPECT_EQ(store->getPts("needmaxamount"), (std::vector<int>{-5, 5, -2147483647 - 1, 2147483647}));
    EXPECT_EQ(store.lastComplaints(), tests::kBadValueLine);
}

TEST(PlatformSwitches, TwoRowsAnswerTheOtherWayRound) {
    const LoadedStore store("[setting]\nisnotneedreplacecashrequired=7\nnotneedcalcenbalevoluebyenablemargin=7\n");
    EXPECT_FALSE(store->needReplaceCashRequired(7));
    EXPECT_TRUE(store->needReplaceCashRequired(8));
    EXPECT_FALSE(store->isNeedCalcEnbaleVolueByEnableMarginPts(7));
    EXPECT_TRUE(store->isNeedCalcEnbaleVolueByEnableMarginPts(8));
}

TEST(PlatformSwitches, TwoRowsWithoutTheirKeyAreTrueForEveryPlatform) {
    const auto store = ConfigCollector::instance();
    EXPECT_TRUE(store->needReplaceCashRequired(7));
    EXPECT_TRUE(store->isNeedCalcEnbaleVolueByEnableMarginPts(7));
}

TEST(PlatformSwitches, NamesThatSayTheOppositeOfTheirKeyAreNotTurnedRound) {
    const LoadedStore store("[setting]\nnotchangeborokerid=7\nnotqueryalgopermission=7\n");
    EXPECT_TRUE(store->isChangeBrokerId(7));
    EXPECT_FALSE(store->isChangeBrokerId(8));
    EXPECT_TRUE(store->isQueryAlgoPerm(7));
    EXPECT_FALSE(store->isQueryAlgoPerm(8));
}

TEST(PlatformSwitches, AnOverrideAppliesBeforeTheAnswerIsTurnedRound) {
    const LoadedStore store("[setting]\nisnotneedreplacecashrequired=7\n");
    store->addLocalConfig("isnotneedreplacecashrequired", true);
    EXPECT_FALSE(store->needReplaceCashRequired(7));
    EXPECT_FALSE(store->needReplaceCashRequired(8));
    store->addLocalConfig("isnotneedreplacecashrequired", false);
    EXPECT_TRUE(store->needReplaceCashRequired(7));
    EXPECT_TRUE(store->needReplaceCashRequired(8));
}

TEST(PlatformSwitches, SettingListsReplacesThoseGivenAndKeepsTheOthers) {
    const auto store = ConfigCollector::instance();
    store->setPts({{"a", {1, 2}}, {"b", {3}}});
    store->setPts({{"a", {4}}, {"c", {}}});
    const std::map<std::string, std::vector<int>> expected = {{"a", {4}}, {"b", {3}}, {"c", {}}};
    EXPECT_EQ(store->getAllpts(), expected);
    store->setPts({});
    EXPECT_EQ(store->getAllpts(), expected);
}

TEST(PlatformSwitches, AnUnknownKeyListsNothingAndIsNotEntered) {
    const auto store = ConfigCollector::instance();
    EXPECT_EQ(store->getPts("unknown"), std::vector<int>());
    EXPECT_FALSE(store->isSomePt("unknown", 0));
    EXPECT_TRUE(store->getAllpts().empty());
}

TEST(PlatformSwitches, TheETFTagIsEmptyUntilItIsRead) {
    const auto store = ConfigCollector::instance();
    for (const int platform : {0, 5, -5})
        EXPECT_FALSE(store->isCanQueryETFFromCounter(platform));
}

TEST(PlatformSwitches, SplitPermissionsAreReplacedWhole) {
    const auto store = ConfigCollector::instance();
    EXPECT_EQ(store->getMaxPermission("basket"), 0);
    store->setSplitPermission({{"basket", 3}, {"single", -1}});
    EXPECT_EQ(store->getMaxPermission("basket"), 3);
    EXPECT_EQ(store->getMaxPermission("single"), -1);
    EXPECT_EQ(store->getMaxPermission("Basket"), 0);
    store->setSplitPermission({{"single", 2}});
    EXPECT_EQ(store->getMaxPermission("basket"), 0);
    EXPECT_EQ(store->getMaxPermission("single"), 2);
}

TEST(PlatformSwitches, NightTimesAreSecondsBeforeMidnight) {
    const std::vector<std::pair<int, int>> seconds = {{0, 0},      {73799, 73799}, {73800, -12600},
                                                      {86399, -1}, {-5, -5},       {2147483647, 2147397247}};
    for (const auto& [secondOfDay, expected] : seconds)
        EXPECT_EQ(ConfigCollectorPeer::realNumber(secondOfDay), expected);
    const std::vector<std::pair<int, int>> clocks = {{203000, -12600}, {93000, 34200}, {202959, 73799},
                                                     {0, 0},           {235959, -1},   {-93000, -34200}};
    for (const auto& [clock, expected] : clocks)
        EXPECT_EQ(ConfigCollectorPeer::serialNumber(clock), expected);
}

TEST(PlatformSwitches, EveryPredicateAgreesWithTheSearchByKeyWhateverWasChangedBefore) {
    const auto store = ConfigCollector::instance();
    std::mt19937 random(20240801);
    const auto anyKey = [&random] { return std::string(kPlatformSwitches[random() % 12].key); };
    long listed = 0;
    for (int change = 0; change < 3000; ++change) {
        const int platform = static_cast<int>(random() % 4);
        switch (random() % 4) {
            case 0:
                store->setPts({{anyKey(), {platform, platform + 1}}, {"no known switch", {platform}}});
                break;
            case 1:
                store->setPts({{anyKey(), {}}});
                break;
            case 2:
                store->addLocalConfig(anyKey(), platform < 2);
                break;
            default:
                store->setUseLocalConfig({{anyKey(), platform < 2}, {"no known switch", true}});
                break;
        }
        for (std::size_t i = 0; i < 12; ++i) {
            const bool found = store->isSomePt(kPlatformSwitches[i].key, platform);
            const bool whenListed = kPlatformSwitches[i].sense == SwitchSense::Listed;
            ASSERT_EQ(ask(*store, i, platform), found == whenListed) << kPlatformSwitches[i].key;
            listed += found;
        }
    }
    EXPECT_GT(listed, 3000);
}

TEST(PlatformSwitches, AskingAllocatesNothing) {
    const LoadedStore store(
        "[setting]\nrefuse_credit_secu_account_show=1,2,3,12\nsupport_query_com_fund_to_get_fetch_balance=5\n");
    store->addLocalConfig("support_smt_query_transfer_position", true);
    const tests::Allocations counted;
    bool answer = true;
    for (std::size_t i = 0; i < std::size(kPlatformSwitches); ++i)
        answer = ask(*store, i, 12) != answer;
    answer = store->isCanQueryETFFromCounter(-2147483647) != answer;
    EXPECT_EQ(counted.made(), 0) << answer;
}

TEST(PlatformSwitches, CallersSeeOldOrNewListsWhileTheyAreReplaced) {
    const auto store = ConfigCollector::instance();
    store->setPts({{"needmaxamount", {1, 2, 3}}, {"nolockposition", {1}}});
    std::atomic<bool> stop{false};
    std::atomic<long> wrong{0};
    std::vector<std::thread> askers;
    for (int i = 0; i < 4; ++i) {
        askers.emplace_back([&] {
            while (!stop) {
                const auto list = store->getPts("needmaxamount");
                wrong += list != std::vector<int>{1, 2, 3} && list != std::vector<int>{3, 4, 5, 6};
                wrong += !store->isNeedMaxAmountPts(3);
                wrong += store->isNeedMaxAmountPts(7);
                wrong += store->getAllpts().size() != 2;
            }
        });
    }
    for (int i = 0; i < 500; ++i) {
        store->setPts({{"needmaxamount", {3, 4, 5, 6}}});
        store->setPts({{"needmaxamount", {1, 2, 3}}});
    }
    stop = true;
    for (std::thread& asker : askers)
        asker.join();
    EXPECT_EQ(wrong, 0);
}
