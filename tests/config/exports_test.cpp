// Links the shared library as a client does: everything used here must be exported.

#include <gtest/gtest.h>

#include <regex>
#include <string>

#include "tests/support/store.h"
#include "traderbase/base/config/configcollector.h"
#include "traderbase/base/config/version.h"

using tests::LoadedStore;

TEST(SharedLibrary, LoadsAndAnswersThroughItsExportsAlone) {
    LoadedStore store("[setting]\nneedmaxamount=12\nflowhistorydays=30\ncounterMaxCompactsRespNum=12:7\n");
    EXPECT_TRUE(store->isNeedMaxAmountPts(12));
    EXPECT_FALSE(store->isNeedMaxAmountPts(13));
    EXPECT_EQ(store->getFlowHistoryDays(), 30);
    EXPECT_EQ(store->getCounterMaxCompactsRespNum(12), 7);
    EXPECT_EQ(store->getAllpts().size(), 3U);
    store->addLocalConfig("needmaxamount", false);
    EXPECT_FALSE(store->isNeedMaxAmountPts(12));
    store->setUseOrderIdFunction(false);
    EXPECT_FALSE(store->useOrderIdFunction());
}

TEST(SharedLibrary, HasOneStoreForTheWholeProcess) {
    EXPECT_EQ(ttservice::ConfigCollector::instance(), ttservice::ConfigCollector::instance());
}

TEST(SharedLibrary, SaysItsVersion) {
    const std::string version = ttservice::traderbaseVersion();
    EXPECT_TRUE(std::regex_match(version, std::regex("[0-9]+\\.[0-9]+\\.[0-9]+"))) << version;
    EXPECT_EQ(version, TT_PROJECT_VERSION);
}
