#include "traderbase/base/config/configcollector.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "standin/queryhook.h"
#include "tests/support/store.h"
#include "traderbase/base/config/internal/store/storeslot.h"

using tests::LoadedStore;
using tests::StandardError;
using tests::TempFolder;
using ttservice::ConfigCollector;
using ttservice::internal::StoreSlot;

namespace {

std::string pathOfLastLoad(const ConfigCollector& store) {
    std::string path = "something before";
    store.getOriginalStr(path);
    return path;
}

void expectEveryDefault(const ConfigCollector& store) {
    EXPECT_EQ(store.getFlowHistoryDays(), -1);
    EXPECT_EQ(store.getRefLimit(), 0);
    EXPECT_EQ(store.getHgtSgtPriceDiff(), "");
    for (const int platform : {-1, 0, 12, 2147483647}) {
        EXPECT_EQ(store.getCounterMaxCompactsRespNum(platform), 500);
        EXPECT_EQ(store.getRenewalPts(platform), 0);
        EXPECT_TRUE(store.isT0ForReturnStockPts(platform));
        EXPECT_FALSE(store.isSPXCreditStockPts(platform));
        EXPECT_TRUE(store.isMainAccountcalcCompactsBydealPts(platform));
        EXPECT_TRUE(store.useCounterIpwanPos(platform));
        EXPECT_FALSE(store.isNeedMaxAmountPts(platform));
        EXPECT_TRUE(store.needReplaceCashRequired(platform));
    }
    EXPECT_FALSE(store.isShowMaxCanOrder());
    EXPECT_FALSE(store.showNewCompacts());
    EXPECT_FALSE(store.useRegistRules());
    EXPECT_FALSE(store.useRegistIPORules());
    EXPECT_FALSE(store.useNewBondRules("SH"));
    EXPECT_FALSE(store.useNewBondRules("SZ"));
    EXPECT_FALSE(store.useNewShangHaiLoanRules());
    EXPECT_FALSE(store.useGlobalRef());
    EXPECT_FALSE(store.useSplitPageOfStkCompact());
    EXPECT_FALSE(store.isCreditCompactDeferT3());
    EXPECT_TRUE(store.isNeedUseETFOneCode());
    EXPECT_TRUE(store.getAllpts().empty());
}

}  // namespace

TEST(ConfigCollector, AnswersTheSameStoreToEveryone) {
    const auto store = ConfigCollector::instance();
    ASSERT_TRUE(store);
    EXPECT_EQ(store, ConfigCollector::instance());
    EXPECT_EQ(store.use_count(), 2);  // ours and the process's: each answer is a temporary copy
}

TEST(ConfigCollector, IsBuiltOnceWhenManyThreadsAskFirst) {
    std::vector<boost::shared_ptr<ConfigCollector>> answers(16);
    std::vector<std::thread> threads;
    threads.reserve(answers.size());
    for (auto& answer : answers)
        threads.emplace_back([&answer] { answer = ConfigCollector::instance(); });
    for (std::thread& thread : threads)
        thread.join();
    for (const auto& answer : answers) {
        EXPECT_TRUE(answer);
        EXPECT_EQ(answer, answers.front());
    }
}

TEST(ConfigCollector, AnswersBeforeAnyLoad) {
    const auto store = ConfigCollector::instance();
    EXPECT_EQ(pathOfLastLoad(*store), "");
    EXPECT_TRUE(store->getAllpts().empty());
    EXPECT_EQ(store->getFlowHistoryDays(), 0);
    EXPECT_EQ(store->getRefLimit(), 0);
    EXPECT_EQ(store->getCounterMaxCompactsRespNum(12), 0);
    EXPECT_EQ(store->getRenewalPts(12), 0);
    EXPECT_FALSE(store->isT0ForReturnStockPts(12));
    EXPECT_FALSE(store->isSPXCreditStockPts(12));
    EXPECT_FALSE(store->isMainAccountcalcCompactsBydealPts(12));
    EXPECT_FALSE(store->useCounterIpwanPos(12));
    EXPECT_FALSE(store->isNeedMaxAmountPts(12));
    EXPECT_FALSE(store->isShowMaxCanOrder());
}

TEST(ConfigCollector, AMissingFileSetsEveryDefaultWithoutAWord) {
    const TempFolder folder;
    const StandardError caught;
    const auto store = ConfigCollector::instance();
    store->readConfig(folder.path("there is none.ini"));
    EXPECT_EQ(pathOfLastLoad(*store), folder.path("there is none.ini"));
    expectEveryDefault(*store);
    EXPECT_EQ(caught.text(), "");
}

TEST(ConfigCollector, ADirectoryAnEmptyFileAndBinaryFilesSetEveryDefault) {
    const TempFolder folder;
    const StandardError caught;
    const auto store = ConfigCollector::instance();
    const std::string binary("\0\x01\xff\xfe\0[\0]\n\0=\0\n", 13);
    for (const std::string& path : {folder.path(""), folder.write("empty.ini", ""), folder.write("nul.ini", binary),
                                    std::string(), std::string(10000, 'x'), std::string("a\0b", 3)}) {
        store->readConfig(path);
        EXPECT_EQ(pathOfLastLoad(*store), path);
        expectEveryDefault(*store);
    }
    EXPECT_EQ(caught.text(), "");
}

TEST(ConfigCollector, OfARepeatedKeyTheFirstListCounts) {
    const LoadedStore store("[setting]\nneedmaxamount=12,15\nneedmaxamount=16\n");
    EXPECT_EQ(store->getPts("needmaxamount"), (std::vector<int>{12, 15}));
}

TEST(ConfigCollector, ASecondLoadKeepsTheListsOfKeysThatAreGone) {
    LoadedStore store("[setting]\nneedmaxamount=12\nnolockposition=3\n");
    store.load("[setting]\nnolockposition=4\nneedholdmargin=5\n");
    EXPECT_EQ(store->getPts("needmaxamount"), (std::vector<int>{12}));
    EXPECT_EQ(store->getPts("nolockposition"), (std::vector<int>{4}));
    EXPECT_EQ(store->getPts("needholdmargin"), (std::vector<int>{5}));
}

TEST(ConfigCollector, ASecondLoadOverwritesSingleValuesAndTheirDefaultsReturn) {
    LoadedStore store(
        "[setting]\nisshowmaxcanorder=1\nflowhistorydays=30\ncounterMaxCompactsRespNum=12:100;200\n"
        "[HgtSgtPriceDiff]\nprice_diff=0.05\n");
    EXPECT_TRUE(store->isShowMaxCanOrder());
    EXPECT_EQ(store->getFlowHistoryDays(), 30);
    EXPECT_EQ(store->getCounterMaxCompactsRespNum(12), 100);
    EXPECT_EQ(store->getHgtSgtPriceDiff(), "0.05");
    store.load("[other]\nnothing=1\n");
    EXPECT_FALSE(store->isShowMaxCanOrder());
    EXPECT_EQ(store->getFlowHistoryDays(), -1);
    EXPECT_EQ(store->getCounterMaxCompactsRespNum(12), 500);
    EXPECT_EQ(store->getHgtSgtPriceDiff(), "");
}

TEST(ConfigCollector, ALoadTouchesNeitherOverridesNorRunTimeValues) {
    LoadedStore store;
    store->addLocalConfig("needmaxamount", true);
    store->setGadrafClientMode(true);
    store->setUseOrderIdFunction(false);
    store->setAutoSplitOrderAuth(false);
    store->setDelayPushTime(5);
    store->setNeedRemoveExportFile(true);
    store->setHKUseCustRate(true);
    store->setHKRateType(3);
    store->setHideModel("1");
    store->setLocalDiskPathHash("hash");
    store->setLocalInfoFormat("format");
    store->setQeTsConfig("ts");
    store->setSplitPermission({{"basket", 2}});
    store.load("[setting]\nneedmaxamount=\n");
    EXPECT_TRUE(store->isNeedMaxAmountPts(1));
    EXPECT_TRUE(store->isGadrafClientMode());
    EXPECT_FALSE(store->useOrderIdFunction());
    EXPECT_FALSE(store->hasAutoSplitOrderAuth());
    EXPECT_EQ(store->getDelayPushTime(), 5);
    EXPECT_TRUE(store->isNeedRemoveExportFile());
    EXPECT_EQ(store->getHKUseCustRateType(), 3);
    EXPECT_TRUE(store->getHideModel());
    EXPECT_EQ(store->getLocalDiskPathHash(), "hash");
    EXPECT_EQ(store->getLocalInfoFormat(), "format");
    std::string out;
    store->getQeTsConfigStr(out);
    EXPECT_EQ(out, "ts");
    EXPECT_EQ(store->getMaxPermission("basket"), 2);
}

TEST(ConfigCollector, EveryKeyOfTheMainSectionIsInTheSwitchTable) {
    const LoadedStore store("nowhere=1\n[setting]\nrefLimit=30\nmixed=12:1;15:0\nlist=1,x,2\n[other]\nelsewhere=1\n");
    const std::map<std::string, std::vector<int>> expected = {{"refLimit", {30}}, {"mixed", {}}, {"list", {1, 2}}};
    EXPECT_EQ(store->getAllpts(), expected);
    EXPECT_EQ(store.lastComplaints(), tests::kBadValueLine + tests::kBadValueLine);
}

TEST(ConfigCollector, KeysAreMatchedAsWritten) {
    const LoadedStore store(
        "[setting]\nNeedMaxAmount=12\nREFLIMIT=5\netfCashNotIncAvailable=3\n[Setting]\nrefLimit=7\n");
    EXPECT_FALSE(store->isNeedMaxAmountPts(12));
    EXPECT_EQ(store->getRefLimit(), 0);
    EXPECT_TRUE(store->isETFCashNotIncAvailable(3));
}

TEST(ConfigCollector, OverridesAnswerForEveryPlatform) {
    LoadedStore store("[setting]\nneedmaxamount=12\n");
    store->addLocalConfig("needmaxamount", true);
    EXPECT_TRUE(store->isNeedMaxAmountPts(12));
    EXPECT_TRUE(store->isNeedMaxAmountPts(13));
    store->addLocalConfig("needmaxamount", false);
    EXPECT_FALSE(store->isNeedMaxAmountPts(12));
    EXPECT_FALSE(store->isNeedMaxAmountPts(13));
    store->setUseLocalConfig({});
    EXPECT_TRUE(store->isNeedMaxAmountPts(12));
    EXPECT_FALSE(store->isNeedMaxAmountPts(13));
}

TEST(ConfigCollector, AMapOfOverridesReplacesAllThereWere) {
    const auto store = ConfigCollector::instance();
    store->addLocalConfig("needmaxamount", true);
    const std::map<std::string, bool> overrides = {{"nolockposition", true}};
    store->setUseLocalConfig(overrides);
    store->setUseLocalConfig(overrides);
    EXPECT_FALSE(store->isNeedMaxAmountPts(1));
    EXPECT_TRUE(store->isNoLockPositionPts(1));
}

TEST(ConfigCollector, OverridesChangeSwitchesAlone) {
    LoadedStore store("[setting]\nisshowmaxcanorder=1\nrenewalpts=7\n");
    store->setUseLocalConfig({{"isshowmaxcanorder", false}, {"renewalpts", false}});
    EXPECT_TRUE(store->isShowMaxCanOrder());
    EXPECT_EQ(store->getRenewalPts(1), 7);
    EXPECT_FALSE(store->isSomePt("renewalpts", 7));
    EXPECT_EQ(store->getPts("renewalpts"), (std::vector<int>{7}));
}

TEST(ConfigCollector, ALoadHandsItsSwitchesToTheStoreOfTheProcess) {
    const TempFolder folder;
    const std::string path = folder.write("settings.ini", "[setting]\nneedmaxamount=12\nflowhistorydays=5\n");
    const auto other = StoreSlot::build();
    other->readConfig(path);
    EXPECT_FALSE(other->isNeedMaxAmountPts(12));
    EXPECT_EQ(other->getFlowHistoryDays(), 5);
    EXPECT_TRUE(ConfigCollector::instance()->isNeedMaxAmountPts(12));
    EXPECT_EQ(ConfigCollector::instance()->getFlowHistoryDays(), 0);
}

TEST(ConfigCollector, AStoreCanTakeThePlaceOfTheProcesssOne) {
    const TempFolder folder;
    const std::string path = folder.write("settings.ini", "[setting]\nneedmaxamount=12\n");
    const auto original = ConfigCollector::instance();
    const auto other = StoreSlot::build();
    EXPECT_EQ(StoreSlot::exchange(other), original);
    EXPECT_EQ(ConfigCollector::instance(), other);
    other->readConfig(path);
    EXPECT_TRUE(other->isNeedMaxAmountPts(12));
    EXPECT_FALSE(original->isNeedMaxAmountPts(12));
    EXPECT_EQ(StoreSlot::exchange(original), other);
}

TEST(ConfigCollector, AnExceptionOfTheReaderLeavesWhatWasReadBefore) {
    LoadedStore store("[setting]\nisshowmaxcanorder=0\nisshownewcompacts=0\nflowhistorydays=1\n");
    standin::setQueryHook([](const standin::Query& query) {
        if (query.second == "isshownewcompacts" && query.operation == "Configuration::readInt") {
            throw std::runtime_error("the disk is gone");
        }
    });
    EXPECT_THROW(
        store.load("[setting]\nneedmaxamount=9\nisshowmaxcanorder=1\nisshownewcompacts=1\nflowhistorydays=2\n"),
        std::runtime_error);
    standin::setQueryHook({});
    EXPECT_TRUE(store->isNeedMaxAmountPts(9));
    EXPECT_TRUE(store->isShowMaxCanOrder());
    EXPECT_FALSE(store->showNewCompacts());
    EXPECT_EQ(store->getFlowHistoryDays(), 1);
}
