// Links the shared library as a client does: the trade unit functions must be exported and use the client's store.

#include <gtest/gtest.h>

#include <string>
#include <utility>

#include <standin/platformdata.h>

#include "tests/support/store.h"
#include "traderbase/base/config/tradeunit.h"

TEST(SharedLibrary, AnswersEveryTradeUnitQuestion) {
    standin::PlatformData data;
    data.addStockType(100016, "SZ", "123001");
    data.addNewRulesBond("SZ", "123001");
    data.setBondRule("SZ", "123001", 1, {30, 2});
    data.addInstrument("HGT", "00700", {{2001, 500}});
    standin::PlatformData::install(std::move(data));
    const auto sell = static_cast<EOperationType>(1);

    EXPECT_TRUE(ttservice::isBuyOpt(static_cast<EOperationType>(1152)));
    EXPECT_EQ(ttservice::getStockUnit("SZ", "123001"), "张");
    EXPECT_EQ(ttservice::getStockTradeUnit("HGT", "00700"), 500);
    EXPECT_EQ(ttservice::getTradeMinUnit("SZ", "123001"), 10);
    EXPECT_EQ(ttservice::getUiMinUnit("SZ", "123001", true), 10);

    const tests::LoadedStore store("[setting]\nszusenewbondrules=1\n");
    EXPECT_EQ(ttservice::getTradeMinUnit("SZ", "123001"), 30);
    EXPECT_EQ(ttservice::getTradeMinUnit("SZ", "123001", sell), 2);
    EXPECT_EQ(ttservice::getUiMinUnit("SZ", "123001", true), 30);
    EXPECT_EQ(ttservice::getUiMinUnit("SZ", "123001", true, sell), 30);
}
