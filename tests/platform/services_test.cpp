#include <gmock/gmock.h>

#include <atomic>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "standin/platformdata.h"
#include "standin/queryhook.h"
#include "tests/platform/countedallocations.h"
#include "ttplatform/configuration.h"
#include "ttplatform/instruments.h"
#include "ttplatform/rights.h"
#include "ttplatform/stocktypecenter.h"
#include "ttplatform/tradercenter.h"

namespace {

using testing::ElementsAre;

const std::string kNone;
const std::string kSh = "SH";
const std::string kSz = "SZ";
const std::string kCode = "600000";
const std::string kBond = "123001";

EOperationType operation(int number) {
    return static_cast<EOperationType>(number);
}
EBondTradeType tradeType(int number) {
    return static_cast<EBondTradeType>(number);
}

standin::PlatformData sampleData() {
    standin::PlatformData data;
    data.setMarketNumber("SH", 1);
    data.addStockType(100003, "SH", "600000");
    data.addBaseType(1172, "SH", "688*");
    data.addInstrument("SH", "600000", {{2001, 100}});
    data.setBondRule("SZ", "123001", 4, {10, 1});
    data.addNewRulesBond("SZ", "12*");
    data.setBondTradeType(57, 4);
    data.addTechBoardCdr("SH", "689*");
    data.addIssueAdditional("SH", "730*");
    data.addFirstMarketTest("SGX", "*");
    data.addSecondMarketTest("LSE", "V*");
    data.addRight("mdl_alg", "mdl_alg_twap");
    return data;
}

TEST(Services, WithoutDataEveryServiceAnswersNo) {
    const IDataCenter& center = TraderCenter::instance().getDataCenter();
    EXPECT_FALSE(StockTypeCenter::instance().isTypedStock(100003, kSh, kCode));
    EXPECT_EQ(StockTypeCenter::instance().getMarketEnumFromString(kSh), -1);
    EXPECT_FALSE(ttservice::isTypedStock(1172, kSh, kCode, kNone));
    EXPECT_FALSE(ttservice::isNewRulesBond(kSz, kBond, OPT_INVALID, BOND_TRADE_ORDINARY));
    EXPECT_EQ(ttservice::getBondTradeType(operation(57)), BOND_TRADE_ORDINARY);
    EXPECT_EQ(ttservice::getBondTradeType(OPT_INVALID), 1);
    EXPECT_FALSE(ttservice::isTechBoardCDRCode(kSh, kCode));
    EXPECT_FALSE(ttservice::isIssueAdditionalStock(kSh, kCode));
    EXPECT_FALSE(ttservice::testAuth("mdl_alg", "mdl_alg_twap"));
    EXPECT_FALSE(center.getInstrument(kSh, kCode));
    EXPECT_FALSE(center.getBondRule(kSz, kBond, BOND_TRADE_ORDINARY));
    EXPECT_FALSE(center.passesFirstMarketTest(kSh, kCode));
    EXPECT_FALSE(center.passesSecondMarketTest(kSh, kCode));
}

TEST(Services, AnswerFromTheInstalledData) {
    standin::PlatformData::install(sampleData());
    const IDataCenter& center = TraderCenter::instance().getDataCenter();
    EXPECT_TRUE(StockTypeCenter::instance().isTypedStock(100003, kSh, kCode));
    EXPECT_EQ(StockTypeCenter::instance().getMarketEnumFromString(kSh), 1);
    EXPECT_TRUE(ttservice::isTypedStock(1172, kSh, "688001", kNone));
    // Each service has its own table: entries of one are unknown to another.
    EXPECT_FALSE(ttservice::isTypedStock(100003, kSh, kCode, kNone));
    EXPECT_FALSE(StockTypeCenter::instance().isTypedStock(1172, kSh, "688001"));
    // The operation and the trade type do not matter.
    EXPECT_TRUE(ttservice::isNewRulesBond(kSz, kBond, OPT_INVALID, BOND_TRADE_ORDINARY));
    EXPECT_TRUE(ttservice::isNewRulesBond(kSz, kBond, operation(30), tradeType(5)));
    EXPECT_EQ(ttservice::getBondTradeType(operation(57)), 4);
    EXPECT_EQ(ttservice::getBondTradeType(operation(58)), 1);
    EXPECT_TRUE(ttservice::isTechBoardCDRCode(kSh, "689009"));
    EXPECT_TRUE(ttservice::isIssueAdditionalStock(kSh, "730001"));
    EXPECT_TRUE(ttservice::testAuth("mdl_alg", "mdl_alg_twap"));
    EXPECT_FALSE(ttservice::testAuth("mdl_alg", "mdl_alg_vwap"));
    EXPECT_FALSE(ttservice::testAuth("other", "mdl_alg_twap"));
    ASSERT_TRUE(center.getInstrument(kSh, kCode));
    EXPECT_EQ(center.getInstrument(kSh, kCode)->getInt(2001), 100);
    EXPECT_EQ(center.getInstrument(kSh, kCode)->getInt(2009), 0);
    ASSERT_TRUE(center.getBondRule(kSz, kBond, tradeType(4)));
    EXPECT_EQ(center.getBondRule(kSz, kBond, tradeType(4))->sellMinUnit, 1);
    EXPECT_FALSE(center.getBondRule(kSz, kBond, BOND_TRADE_ORDINARY));
    EXPECT_TRUE(center.passesFirstMarketTest("SGX", "CN"));
    EXPECT_FALSE(center.passesFirstMarketTest("LSE", "VOD"));
    EXPECT_TRUE(center.passesSecondMarketTest("LSE", "VOD"));
    EXPECT_FALSE(center.passesSecondMarketTest("LSE", "BP"));
}

TEST(Services, SingletonsAreOne) {
    EXPECT_EQ(&StockTypeCenter::instance(), &StockTypeCenter::instance());
    EXPECT_EQ(&TraderCenter::instance(), &TraderCenter::instance());
    EXPECT_EQ(&TraderCenter::instance().getDataCenter(), &TraderCenter::instance().getDataCenter());
}

TEST(Services, RecordsHandedOutOutliveTheData) {
    standin::PlatformData::install(sampleData());
    const auto record = TraderCenter::instance().getDataCenter().getInstrument(kSh, kCode);
    standin::PlatformData::install(standin::PlatformData());
    standin::PlatformData::install(standin::PlatformData());
    EXPECT_EQ(record->getInt(2001), 100);
}

bool askEverything() {
    const IDataCenter& center = TraderCenter::instance().getDataCenter();
    bool any = StockTypeCenter::instance().isTypedStock(100003, kSh, kCode);
    any |= StockTypeCenter::instance().getMarketEnumFromString(kSh) > 0;
    any |= ttservice::isTypedStock(1172, kSh, kCode, kNone);
    any |= ttservice::isNewRulesBond(kSz, kBond, OPT_INVALID, BOND_TRADE_ORDINARY);
    any |= ttservice::getBondTradeType(operation(57)) == 4;
    any |= ttservice::isTechBoardCDRCode(kSh, kCode);
    any |= ttservice::isIssueAdditionalStock(kSh, kCode);
    any |= ttservice::testAuth(kSh, kCode);
    any |= center.getInstrument(kSh, kCode) && center.getInstrument(kSh, kCode)->getInt(2001) == 100;
    any |= center.getBondRule(kSz, kBond, tradeType(4)) != nullptr;
    any |= center.passesFirstMarketTest(kSh, kCode);
    any |= center.passesSecondMarketTest(kSh, kCode);
    return any;
}

TEST(Services, NoQueryAllocates) {
    standin::PlatformData::install(sampleData());
    ASSERT_TRUE(askEverything());
    const long before = tests::allocationCount();
    const bool answered = askEverything();
    EXPECT_EQ(tests::allocationCount() - before, 0);
    EXPECT_TRUE(answered);
    // Make sure that the counting itself works.
    const std::string longText(100, 'x');
    EXPECT_GT(tests::allocationCount() - before, 0);
}

TEST(Services, AnyThreadMayAsk) {
    standin::PlatformData::install(sampleData());
    std::atomic<int> answered{0};
    std::vector<std::thread> threads;
    for (int thread = 0; thread < 4; ++thread) {
        threads.emplace_back([&answered] {
            for (int round = 0; round < 2000; ++round)
                answered += askEverything() ? 1 : 0;
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(answered, 8000);
}

TEST(QueryHook, SeesEveryQuestionInOrderUntilItIsTakenAway) {
    std::vector<std::string> seen;
    standin::setQueryHook([&seen](const standin::Query& query) {
        seen.push_back(std::string(query.operation) + " " + std::to_string(query.number) + " " +
                       std::string(query.first) + " " + std::string(query.second));
    });
    askEverything();
    utils::Configuration configuration;
    configuration.parse("none.ini");
    configuration.getProperties("s");
    configuration.read("s", "k");
    configuration.readInt("s", "i", 1);
    configuration.readDouble("s", "d", 1);
    standin::setQueryHook({});
    askEverything();
    EXPECT_THAT(
        seen,
        ElementsAre("StockTypeCenter::isTypedStock 100003 SH 600000", "StockTypeCenter::getMarketEnumFromString 0 SH ",
                    "ttservice::isTypedStock 1172 SH 600000", "ttservice::isNewRulesBond -1 SZ 123001",
                    "ttservice::getBondTradeType 57  ", "ttservice::isTechBoardCDRCode 0 SH 600000",
                    "ttservice::isIssueAdditionalStock 0 SH 600000", "ttservice::testAuth 0 SH 600000",
                    "IDataCenter::getInstrument 0 SH 600000", "IDataCenter::getBondRule 4 SZ 123001",
                    "IDataCenter::passesFirstMarketTest 0 SH 600000", "IDataCenter::passesSecondMarketTest 0 SH 600000",
                    "Configuration::parse 0 none.ini ", "Configuration::getProperties 0 s ",
                    "Configuration::read 0 s k", "Configuration::readInt 0 s i", "Configuration::readDouble 0 s d"));
}

TEST(QueryHook, WhatItThrowsReachesTheCaller) {
    standin::setQueryHook([](const standin::Query& query) {
        if (query.operation == "ttservice::testAuth") throw std::runtime_error("no rights service");
    });
    EXPECT_THROW(ttservice::testAuth("mdl_alg", "mdl_alg_twap"), std::runtime_error);
    EXPECT_FALSE(ttservice::isTechBoardCDRCode(kSh, kCode));
    standin::setQueryHook({});
    EXPECT_FALSE(ttservice::testAuth("mdl_alg", "mdl_alg_twap"));
}

}  // namespace
