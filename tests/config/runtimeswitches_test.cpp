#include <gtest/gtest.h>

#include <string>

#include <log4cxx/level.h>
#include <ttplatform/logging.h>

#include "standin/logsetup.h"
#include "traderbase/base/config/configcollector.h"

using ttservice::ConfigCollector;

TEST(RuntimeSwitches, AnswersBeforeTheFirstSet) {
    const auto store = ConfigCollector::instance();
    EXPECT_TRUE(store->hasAutoSplitOrderAuth());
    EXPECT_EQ(store->getDelayPushTime(), 30);
    EXPECT_FALSE(store->isNeedDelayPushExternOrder());
    EXPECT_FALSE(store->isNeedRemoveExportFile());
    EXPECT_FALSE(store->isGadrafClientMode());
    EXPECT_TRUE(store->isNeedCalcAccountDetail());
    EXPECT_TRUE(store->useOrderIdFunction());
    EXPECT_EQ(store->getHKUseCustRateType(), -1);
    EXPECT_FALSE(store->getHideModel());
    EXPECT_EQ(store->getLocalDiskPathHash(), "");
    EXPECT_EQ(store->getLocalInfoFormat(), "");
    std::string out = "something before";
    store->getQeTsConfigStr(out);
    EXPECT_EQ(out, "");
}

TEST(RuntimeSwitches, WhatIsSetIsAnswered) {
    const auto store = ConfigCollector::instance();
    for (const bool value : {false, true, false}) {
        store->setAutoSplitOrderAuth(value);
        EXPECT_EQ(store->hasAutoSplitOrderAuth(), value);
        store->setNeedDelayPushExternOrder(value);
        EXPECT_EQ(store->isNeedDelayPushExternOrder(), value);
        store->setNeedRemoveExportFile(value);
        EXPECT_EQ(store->isNeedRemoveExportFile(), value);
        store->setGadrafClientMode(value);
        EXPECT_EQ(store->isGadrafClientMode(), value);
        store->setUseOrderIdFunction(value);
        EXPECT_EQ(store->useOrderIdFunction(), value);
    }
    store->setDelayPushTime(-5);
    EXPECT_EQ(store->getDelayPushTime(), -5);
    store->setLocalDiskPathHash("a b");
    EXPECT_EQ(store->getLocalDiskPathHash(), "a b");
    store->setLocalInfoFormat("{0}%s");
    EXPECT_EQ(store->getLocalInfoFormat(), "{0}%s");
    store->setQeTsConfig("ts");
    std::string out;
    store->getQeTsConfigStr(out);
    EXPECT_EQ(out, "ts");
}

TEST(RuntimeSwitches, TheAccountDetailCalculationStaysOff) {
    const auto store = ConfigCollector::instance();
    store->setNoNeedCalcAccountDetail();
    EXPECT_FALSE(store->isNeedCalcAccountDetail());
    store->setNoNeedCalcAccountDetail();
    EXPECT_FALSE(store->isNeedCalcAccountDetail());
}

TEST(RuntimeSwitches, TheRateTypeCountsOnlyWhileTheCustomerRateIsUsed) {
    const auto store = ConfigCollector::instance();
    store->setHKRateType(4);
    EXPECT_EQ(store->getHKUseCustRateType(), -1);
    store->setHKUseCustRate(true);
    EXPECT_EQ(store->getHKUseCustRateType(), 4);
    store->setHKRateType(0);
    EXPECT_EQ(store->getHKUseCustRateType(), 0);
    store->setHKUseCustRate(false);
    EXPECT_EQ(store->getHKUseCustRateType(), -1);
}

TEST(RuntimeSwitches, TheHideModelKnowsTwoTexts) {
    const auto store = ConfigCollector::instance();
    for (const char* other : {"01", "true", "", "x", "2", " 1"}) {
        store->setHideModel("1");
        store->setHideModel(other);
        EXPECT_TRUE(store->getHideModel()) << other;
        store->setHideModel("0");
        store->setHideModel(other);
        EXPECT_FALSE(store->getHideModel()) << other;
    }
}

TEST(RuntimeSwitches, TheOrderIdFunctionIsLogged) {
    const auto store = ConfigCollector::instance();
    const standin::LogCapture log;
    store->setUseOrderIdFunction(true);
    store->setUseOrderIdFunction(false);
    ASSERT_EQ(log.lines().size(), 2U);
    EXPECT_EQ(log.lines()[0].message, "set use order id fuction, isUse: true");
    EXPECT_EQ(log.lines()[1].message, "set use order id fuction, isUse: false");
    for (const standin::LogLine& line : log.lines()) {
        EXPECT_EQ(line.level, "INFO");
        EXPECT_EQ(line.function, "setUseOrderIdFunction");
        EXPECT_EQ(line.file, "libs/traderbase/base/config/configcollector");
    }
}

TEST(RuntimeSwitches, WithoutALoggerOrTheLevelNothingIsLogged) {
    const auto store = ConfigCollector::instance();
    store->setUseOrderIdFunction(false);  // must not crash without a logger
    EXPECT_FALSE(store->useOrderIdFunction());
    const standin::LogCapture log;
    g_TTStdLogger->setLevel(log4cxx::Level::getWarn());
    store->setUseOrderIdFunction(true);
    EXPECT_TRUE(log.lines().empty());
    EXPECT_TRUE(store->useOrderIdFunction());
}
