#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "tests/support/store.h"
#include "traderbase/base/config/configcollector.h"

using tests::LoadedStore;
using ttservice::ConfigCollector;

namespace {

struct FlagRow {
    std::string key;
    std::function<bool(const ConfigCollector&)> answer;
};

const std::vector<FlagRow>& flags() {
    static const std::vector<FlagRow> rows = {
        {"isshowmaxcanorder", [](const ConfigCollector& store) { return store.isShowMaxCanOrder(); }},
        {"isshownewcompacts", [](const ConfigCollector& store) { return store.showNewCompacts(); }},
        {"useregistrules", [](const ConfigCollector& store) { return store.useRegistRules(); }},
        {"useregistiporules", [](const ConfigCollector& store) { return store.useRegistIPORules(); }},
        {"shusenewbondrules", [](const ConfigCollector& store) { return store.useNewBondRules("SH"); }},
        {"shusenewbondrules", [](const ConfigCollector& store) { return store.useNewShangHaiLoanRules(); }},
        {"szusenewbondrules", [](const ConfigCollector& store) { return store.useNewBondRules("SZ"); }},
        {"userglobalref", [](const ConfigCollector& store) { return store.useGlobalRef(); }},
        {"useSplitPageOfStkCompact", [](const ConfigCollector& store) { return store.useSplitPageOfStkCompact(); }},
        {"creditCompactDeferT3", [](const ConfigCollector& store) { return store.isCreditCompactDeferT3(); }},
    };
    return rows;
}

std::string setting(const std::string& key, const std::string& value) {
    return "[setting]\n" + key + "=" + value + "\n";
}

}  // namespace

TEST(ScalarSettings, AFlagIsTrueExactlyWhenItReadsAsOne) {
    LoadedStore store;
    for (const FlagRow& row : flags()) {
        for (const char* yes : {"1", "+1", "01", " 1 "}) {
            store.load(setting(row.key, yes));
            EXPECT_TRUE(row.answer(*store)) << row.key << "=" << yes;
        }
        for (const char* no : {"2", "0", "-1", "10", "", "yes", "true", "1.0", "1 1", "4294967297"}) {
            store.load(setting(row.key, no));
            EXPECT_FALSE(row.answer(*store)) << row.key << "=" << no;
        }
        store.load(setting(row.key, "1"));
        store.load("[other]\n" + row.key + "=1\n");
        EXPECT_FALSE(row.answer(*store)) << row.key << " missing";
    }
}

TEST(ScalarSettings, EachFlagHasItsOwnKey) {
    LoadedStore store;
    for (const FlagRow& row : flags()) {
        store.load(setting(row.key, "1"));
        for (const FlagRow& other : flags()) {
            EXPECT_EQ(other.answer(*store), other.key == row.key) << row.key << " against " << other.key;
        }
    }
}

TEST(ScalarSettings, NumbersAndTheirDefaults) {
    LoadedStore store("[setting]\nrefLimit=1000\nflowhistorydays=30\n");
    EXPECT_EQ(store->getRefLimit(), 1000);
    EXPECT_EQ(store->getFlowHistoryDays(), 30);
    for (const char* none : {"", "x", "1.5", "2147483648", "1,2"}) {
        store.load("[setting]\nrefLimit=" + std::string(none) + "\nflowhistorydays=" + std::string(none) + "\n");
        EXPECT_EQ(store->getRefLimit(), 0) << none;
        EXPECT_EQ(store->getFlowHistoryDays(), -1) << none;
    }
    store.load("[setting]\nrefLimit=-7\nflowhistorydays=0\n");
    EXPECT_EQ(store->getRefLimit(), -7);
    EXPECT_EQ(store->getFlowHistoryDays(), 0);
    store.load("");
    EXPECT_EQ(store->getRefLimit(), 0);
    EXPECT_EQ(store->getFlowHistoryDays(), -1);
}

TEST(ScalarSettings, ThePriceDifferenceIsTextOfItsOwnSection) {
    LoadedStore store("[setting]\nprice_diff=1\n[HgtSgtPriceDiff]\nprice_diff=0.05 ; not a comment\n");
    EXPECT_EQ(store->getHgtSgtPriceDiff(), "0.05 ; not a comment");
    store.load("[setting]\nprice_diff=1\n");
    EXPECT_EQ(store->getHgtSgtPriceDiff(), "");
}

TEST(ScalarSettings, TheShanghaiLoanRulesAreTheShanghaiBondRules) {
    LoadedStore store("[setting]\nshusenewbondrules=1\nusernewshanghailoanrules=0\n");
    EXPECT_TRUE(store->useNewShangHaiLoanRules());
    store.load("[setting]\nshusenewbondrules=0\nusernewshanghailoanrules=1\n");
    EXPECT_FALSE(store->useNewShangHaiLoanRules());
}

TEST(ScalarSettings, TheBondRulesKnowTwoMarketsWrittenExactly) {
    const LoadedStore store("[setting]\nshusenewbondrules=1\nszusenewbondrules=1\n");
    EXPECT_TRUE(store->useNewBondRules("SH"));
    EXPECT_TRUE(store->useNewBondRules("SZ"));
    for (const char* market : {"sh", "sz", "SSE", "SZSE", "SHO", "", " SH", "S", "Sh"}) {
        EXPECT_FALSE(store->useNewBondRules(market)) << market;
    }
}

TEST(PerPlatformSettings, MissingKeysAnswerTheBuiltInDefaults) {
    const LoadedStore store("[setting]\n");
    for (const int platform : {-3, 0, 12}) {
        EXPECT_TRUE(store->isT0ForReturnStockPts(platform));
        EXPECT_FALSE(store->isSPXCreditStockPts(platform));
        EXPECT_TRUE(store->isMainAccountcalcCompactsBydealPts(platform));
        EXPECT_EQ(store->getRenewalPts(platform), 0);
        EXPECT_EQ(store->getCounterMaxCompactsRespNum(platform), 500);
        EXPECT_TRUE(store->useCounterIpwanPos(platform));
    }
    EXPECT_EQ(store.lastComplaints(), "");
}

TEST(PerPlatformSettings, FlagsByPlatformAndTheirDefault) {
    const std::vector<std::pair<std::string, bool (ConfigCollector::*)(int) const>> rows = {
        {"ist0forreturnstock", &ConfigCollector::isT0ForReturnStockPts},
        {"isspxcreditmodules", &ConfigCollector::isSPXCreditStockPts},
        {"mainaccountcalculatorcompactsbydeal", &ConfigCollector::isMainAccountcalcCompactsBydealPts},
    };
    LoadedStore store;
    for (const auto& row : rows) {
        const std::string& key = row.first;
        const auto answer = [&](int platform) { return ((*store).*row.second)(platform); };
        store.load(setting(key, "12:1;15:0;1"));
        EXPECT_TRUE(answer(12)) << key;
        EXPECT_FALSE(answer(15)) << key;
        EXPECT_TRUE(answer(16)) << key;
        store.load(setting(key, "12:1;0"));
        EXPECT_TRUE(answer(12)) << key;
        EXPECT_FALSE(answer(15)) << key;
        store.load(setting(key, "15:1"));
        EXPECT_FALSE(answer(12)) << key << ": entries of the load before are gone, its default is not";
        EXPECT_TRUE(answer(15)) << key;
        store.load(setting(key, "abc:1;1"));
        EXPECT_TRUE(answer(0)) << key;
        EXPECT_EQ(store.lastComplaints(), tests::kBadValueLine + tests::kBadValueLine)
            << key << ": one for the bad item, one for the value that is no list of platforms";
    }
}

TEST(PerPlatformSettings, PlatformsWithoutADefaultOnTheFirstLoadLeaveFalse) {
    const LoadedStore store(
        "[setting]\nist0forreturnstock=12:1\ncounterMaxCompactsRespNum=12:100\nusecounteripwanpos=12:1\n");
    EXPECT_TRUE(store->isT0ForReturnStockPts(12));
    EXPECT_FALSE(store->isT0ForReturnStockPts(13));
    EXPECT_EQ(store->getCounterMaxCompactsRespNum(13), 0);
    EXPECT_FALSE(store->useCounterIpwanPos(13));
}

TEST(PerPlatformSettings, AnEmptyItemAtTheEndResetsTheDefault) {
    LoadedStore store("[setting]\nist0forreturnstock=12:1;0;\n");
    EXPECT_TRUE(store->isT0ForReturnStockPts(13));
    store.load("[setting]\nist0forreturnstock=12:0;;0\n");
    EXPECT_FALSE(store->isT0ForReturnStockPts(13));
}

TEST(PerPlatformSettings, NumbersByPlatform) {
    LoadedStore store("[setting]\ncounterMaxCompactsRespNum=12:100;200\nrenewalpts=-5:3;7:-1\n");
    EXPECT_EQ(store->getCounterMaxCompactsRespNum(12), 100);
    EXPECT_EQ(store->getCounterMaxCompactsRespNum(13), 200);
    EXPECT_EQ(store->getRenewalPts(-5), 3);
    EXPECT_EQ(store->getRenewalPts(7), -1);
    EXPECT_EQ(store->getRenewalPts(8), 0);
    store.load("");
    EXPECT_EQ(store->getCounterMaxCompactsRespNum(12), 500);
    EXPECT_EQ(store->getRenewalPts(7), 0);
}

TEST(PerPlatformSettings, TheIpwanPositionIsAnyNumberButZero) {
    LoadedStore store("[setting]\nusecounteripwanpos=0\n");
    EXPECT_FALSE(store->useCounterIpwanPos(7));
    store.load("[setting]\nusecounteripwanpos=7:1;0\n");
    EXPECT_TRUE(store->useCounterIpwanPos(7));
    EXPECT_FALSE(store->useCounterIpwanPos(8));
    store.load("[setting]\nusecounteripwanpos=7:-2;8:0;5\n");
    EXPECT_TRUE(store->useCounterIpwanPos(7));
    EXPECT_FALSE(store->useCounterIpwanPos(8));
    EXPECT_TRUE(store->useCounterIpwanPos(9));
}

TEST(PerPlatformSettings, TheSm3TableIsReadForItsComplaintsAlone) {
    LoadedStore store("[setting]\nsm3platformids=12:1;15:0;1\n");
    EXPECT_EQ(store.lastComplaints(), tests::kBadValueLine);  // the switch table sees one bad piece
    store.load("[setting]\nsm3platformids=12\n");
    EXPECT_EQ(store.lastComplaints(), "");
    store.load("[setting]\nsm3platformids=x:1;12:y\n");
    EXPECT_EQ(store.lastComplaints(), tests::kBadValueLine + tests::kBadValueLine + tests::kBadValueLine);
}

TEST(FixedAnswers, NoSettingChangesThem) {
    const LoadedStore store("[setting]\nisneeduseetfonecode=0\nquoteradress=here\n");
    EXPECT_TRUE(store->getUseNewIPOFrozenCalcMethod());
    EXPECT_TRUE(store->isNeedUseETFOneCode());
    EXPECT_EQ(store->getQuoterAdress(), "");
    for (const int platform : {-1, 0, 12})
        EXPECT_TRUE(store->isCrtFundTransferUseCreditDetail(platform));
}
