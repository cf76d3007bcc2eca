#include "traderbase/base/config/contractinfo.h"

#include <gtest/gtest.h>
#include <boost/make_shared.hpp>

#include <string>
#include <type_traits>
#include <vector>

#include "standin/logsetup.h"
#include "tests/config/collectorpeer.h"
#include "tests/support/allocations.h"
#include "tests/support/store.h"
#include "traderbase/base/config/internal/store/storeslot.h"
#include "ttplatform/configuration.h"

using tests::LoadedStore;
using ttservice::ConfigCollector;
using ttservice::ConfigCollectorPeer;
using ttservice::ContractInfo;
using ttservice::internal::StoreSlot;
using Texts = std::vector<std::string>;

namespace {

std::string contracts(const std::string& records, const std::string& types = "") {
    return "[setting]\nalgomultcontractsetting=" + records + "\nalgocontracttypes=" + types + "\n";
}

Texts keysOf(const ConfigCollector& store) {
    Texts keys;
    for (const auto& [key, record] : store.getAllContractInfo())
        keys.push_back(key);
    return keys;
}

Texts keysOf(const std::vector<boost::shared_ptr<ContractInfo>>& records) {
    Texts keys;
    for (const auto& record : records)
        keys.push_back(record->productId + (record->isCredit ? "_credit" : "_stock"));
    return keys;
}

void expectFields(const ContractInfo& record, const ContractInfo& expected) {
    EXPECT_EQ(record.productId, expected.productId);
    EXPECT_EQ(record.textValue, expected.textValue);
    EXPECT_EQ(record.doubleValue, expected.doubleValue);
    EXPECT_EQ(record.longValue, expected.longValue);
    EXPECT_EQ(record.intValue, expected.intValue);
    EXPECT_EQ(record.isCredit, expected.isCredit);
}

// The members in their order.
ContractInfo info(int intValue, double doubleValue, std::int64_t longValue, std::string productId,
                  std::string textValue, bool isCredit) {
    return {intValue, doubleValue, longValue, std::move(productId), std::move(textValue), isCredit};
}

}  // namespace

TEST(ContractInfo, StartsEmpty) {
    expectFields(ContractInfo(), info(0, 0.0, 0, "", "", false));
    static_assert(std::is_same_v<decltype(ContractInfo::intValue), int> && sizeof(int) == 4);
    static_assert(std::is_same_v<decltype(ContractInfo::longValue), std::int64_t>);
    static_assert(std::is_same_v<decltype(ContractInfo::doubleValue), double>);
}

TEST(ContractInfo, FiveFieldsFillTheRecordOfTheirKindOfAccount) {
    LoadedStore store(contracts("P1:x,1.5,7,3,1"));
    EXPECT_EQ(keysOf(*store), (Texts{"P1_credit"}));
    const auto record = store->getContractInfo("P1", true);
    ASSERT_TRUE(record);
    expectFields(*record, info(3, 1.5, 7, "P1", "x", true));
    EXPECT_FALSE(store->getContractInfo("P1", false));
    EXPECT_FALSE(store->getContractInfo("p1", true));
    EXPECT_FALSE(store->getContractInfo("P1_credit", true));
    EXPECT_FALSE(store->getContractInfo("", true));
}

TEST(ContractInfo, StockAndCreditRecordsOfOneProductAreKeptApart) {
    LoadedStore store(contracts("P1:label,0.5,100000,2,0;P1:label,0.3,50000,2,1"));
    EXPECT_EQ(keysOf(*store), (Texts{"P1_credit", "P1_stock"}));
    expectFields(*store->getContractInfo("P1", false), info(2, 0.5, 100000, "P1", "label", false));
    expectFields(*store->getContractInfo("P1", true), info(2, 0.3, 50000, "P1", "label", true));
}

TEST(ContractInfo, AWrongNumberOfFieldsStillMakesADefaultStockRecord) {
    for (const char* records : {"P1:x,1.5,7", "P1:x,1,2,,3,0", "P1:x,1,2,3,1,", "P1:", "P1:x", "P1:,,,", "P1:1;2"}) {
        StoreSlot::exchange(StoreSlot::build());
        LoadedStore store(contracts(records));
        EXPECT_EQ(keysOf(*store), (Texts{"P1_stock"})) << records;
        const auto record = store->getContractInfo("P1", false);
        ASSERT_TRUE(record) << records;
        expectFields(*record, info(0, 0.0, 0, "P1", "", false));
    }
}

TEST(ContractInfo, WithoutExactlyOneColonThereIsNoRecord) {
    LoadedStore store;
    for (const char* records : {"P1", "P1:a:b", "P1::x,1,2,3,0", "", ";", ";;;", "P1;P2:a:b"}) {
        store.load(contracts(records));
        EXPECT_EQ(keysOf(*store), Texts()) << records;
    }
}

TEST(ContractInfo, EmptyRecordsAreSkippedAndTheOthersCount) {
    LoadedStore store(contracts(";P1:x,1,2,3,0;;bad;P2:x,1,2,3,1;"));
    EXPECT_EQ(keysOf(*store), (Texts{"P1_stock", "P2_credit"}));
}

TEST(ContractInfo, AnEmptyProductIdIsAProductIdToo) {
    LoadedStore store(contracts(":x,1,2,3,0"));
    EXPECT_EQ(keysOf(*store), (Texts{"_stock"}));
    EXPECT_TRUE(store->getContractInfo("", false));
}

TEST(ContractInfo, TheFifthFieldIsCreditExactlyWhenItReadsAsOne) {
    LoadedStore store;
    for (const char* yes : {"1", "+1", "01", "1x", "1.9"}) {
        store.load(contracts(std::string(yes) + ":x,1,2,3," + yes));
        EXPECT_TRUE(store->getContractInfo(yes, true)) << yes;
        EXPECT_FALSE(store->getContractInfo(yes, false)) << yes;
    }
    for (const char* no : {"2", "yes", "0", "-1", "11", "true", "x1"}) {
        store.load(contracts(std::string(no) + ":x,1,2,3," + no));
        EXPECT_FALSE(store->getContractInfo(no, true)) << no;
        EXPECT_TRUE(store->getContractInfo(no, false)) << no;
    }
    store.load(contracts("none:x,1,2,3,"));
    EXPECT_TRUE(store->getContractInfo("none", false));
}

TEST(ContractInfo, NumbersAreReadLoosely) {
    struct Row {
        std::string fields;
        double doubleValue;
        std::int64_t longValue;
        int intValue;
    };
    const std::vector<Row> rows = {
        {"t,0.5,100000,2,0", 0.5, 100000, 2},
        {"t,-2.5e3,-9000000000,-7,0", -2500.0, -9000000000, -7},
        {"t,1.5abc,12cd,34ef,0", 1.5, 12, 34},
        {"t,abc,abc,abc,0", 0.0, 0, 0},
        {"t,,,,0", 0.0, 0, 0},
        {"t, 1.5, 12, 34,0", 1.5, 12, 34},
        {"t,7,1.9,2.9,0", 7.0, 1, 2},
        {"t,.5,9223372036854775807,2147483647,0", 0.5, 9223372036854775807, 2147483647},
    };
    LoadedStore store;
    for (const Row& row : rows) {
        store.load(contracts("P1:" + row.fields));
        const auto record = store->getContractInfo("P1", false);
        ASSERT_TRUE(record) << row.fields;
        expectFields(*record, info(row.intValue, row.doubleValue, row.longValue, "P1", "t", false));
    }
}

TEST(ContractInfo, TextIsKeptAsItStands) {
    LoadedStore store(contracts(" P1 :  a label\xE8\x82\xA1 ,1,2,3,0"));
    const auto record = store->getContractInfo("P1 ", false);  // blanks around a value are not part of it
    ASSERT_TRUE(record);
    EXPECT_EQ(record->productId, "P1 ");
    EXPECT_EQ(record->textValue, "  a label\xE8\x82\xA1 ");
}

TEST(ContractInfo, TheLaterRecordOfOneKeyCounts) {
    LoadedStore store(contracts("P1:a,1,1,1,0;P1:c,3,3,3,1;P1:b,2,2,2,0"));
    expectFields(*store->getContractInfo("P1", false), info(2, 2.0, 2, "P1", "b", false));
    expectFields(*store->getContractInfo("P1", true), info(3, 3.0, 3, "P1", "c", true));
}

TEST(ContractInfo, AMalformedRecordReplacesTheStockRecordAndNoOther) {
    LoadedStore store(contracts("P1:a,1,1,1,0;P1:c,3,3,3,1;P1:b,2"));
    expectFields(*store->getContractInfo("P1", false), info(0, 0.0, 0, "P1", "", false));
    expectFields(*store->getContractInfo("P1", true), info(3, 3.0, 3, "P1", "c", true));
}

TEST(ContractInfo, TheKindOfAccountChoosesAmongAllRecords) {
    LoadedStore store(contracts("b:x,1,2,3,0;a:x,1,2,3,1;P:x,1,2,3,0;P1:x,1,2,3,0;B:x,1,2,3,1;b:x,1,2,3,1;bad:x"));
    EXPECT_EQ(keysOf(store->getContractInfo(3)), (Texts{"B_credit", "a_credit", "b_credit"}));
    // In the order of the keys, not of the product IDs: "1" comes before "_".
    EXPECT_EQ(keysOf(store->getContractInfo(2)), (Texts{"P1_stock", "P_stock", "b_stock", "bad_stock"}));
    for (const int kind : {1, 0, 4, -2, -3, 23, 2147483647})
        EXPECT_TRUE(store->getContractInfo(kind).empty()) << kind;
}

TEST(ContractInfo, RecordsAreSharedAndTheTableIsCopied) {
    LoadedStore store(contracts("P1:x,1,2,3,0"));
    const auto record = store->getContractInfo("P1", false);
    EXPECT_EQ(record, store->getContractInfo("P1", false));
    EXPECT_EQ(record, store->getContractInfo(2).front());
    auto all = store->getAllContractInfo();
    EXPECT_EQ(all.at("P1_stock"), record);
    all.clear();
    EXPECT_EQ(keysOf(*store), (Texts{"P1_stock"}));
}

TEST(ContractInfo, IsEmptyBeforeAnyLoad) {
    LoadedStore store;
    EXPECT_TRUE(store->getAllContractInfo().empty());
    EXPECT_TRUE(store->getContractInfo(2).empty());
    EXPECT_TRUE(store->getContractInfo(3).empty());
    EXPECT_FALSE(store->getContractInfo("P1", false));
    EXPECT_EQ(store->getProductIdbyAlgoName("TWAP", false), "");
    EXPECT_EQ(store->getProductIdbyAlgoName("TWAP", true), "");
    EXPECT_FALSE(store->isHttpProductID("P1"));
    EXPECT_FALSE(store->isHttpProductID(""));
}

TEST(ContractTypes, PointToTheProductForEachKindOfAccountThatHasItsRecord) {
    LoadedStore store(contracts("P1:x,1,2,3,0;P2:x,1,2,3,1;P3:x,1,2,3,0;P3:x,1,2,3,1", "P1:TWAP|VWAP;P2:POV;P3:ICE"));
    struct Row {
        std::string type, stock, credit;
    };
    const std::vector<Row> rows = {{"TWAP", "P1", ""}, {"VWAP", "P1", ""}, {"POV", "", "P2"}, {"ICE", "P3", "P3"},
                                   {"vwap", "", ""},   {"P1", "", ""},     {"", "", ""}};
    for (const Row& row : rows) {
        EXPECT_EQ(store->getProductIdbyAlgoName(row.type, false), row.stock) << row.type;
        EXPECT_EQ(store->getProductIdbyAlgoName(row.type, true), row.credit) << row.type;
    }
}

TEST(ContractTypes, AreNotIndexedWithoutARecord) {
    LoadedStore store(contracts("P1:x,1,2,3,0", "P2:TWAP;P1:VWAP;p1:POV"));
    const auto& catalogue = ConfigCollectorPeer::contracts(*store);
    EXPECT_EQ(catalogue.stockProductByType, (std::map<std::string, std::string>{{"VWAP", "P1"}}));
    EXPECT_TRUE(catalogue.creditProductByType.empty());
}

TEST(ContractTypes, MayStandBeforeTheRecordsInTheFile) {
    LoadedStore store("[setting]\nalgocontracttypes=P1:TWAP\nalgomultcontractsetting=P1:x,1,2,3,0\n");
    EXPECT_EQ(store->getProductIdbyAlgoName("TWAP", false), "P1");
}

TEST(ContractTypes, OfADefaultRecordCountAsWell) {
    LoadedStore store(contracts("P1:x,1", "P1:TWAP"));
    EXPECT_EQ(store->getProductIdbyAlgoName("TWAP", false), "P1");
}

TEST(ContractTypes, WithoutExactlyOneColonAreSkipped) {
    LoadedStore store(contracts("P1:x,1,2,3,0", "P1;P1:A:B;;P1::C;P1:D;"));
    EXPECT_EQ(ConfigCollectorPeer::contracts(*store).stockProductByType,
              (std::map<std::string, std::string>{{"D", "P1"}}));
}

TEST(ContractTypes, TheLaterEntryOfATypeCounts) {
    LoadedStore store(contracts("P1:x,1,2,3,0;P2:x,1,2,3,0;P2:x,1,2,3,1", "P1:TWAP|VWAP;P2:VWAP"));
    EXPECT_EQ(store->getProductIdbyAlgoName("TWAP", false), "P1");
    EXPECT_EQ(store->getProductIdbyAlgoName("VWAP", false), "P2");
    EXPECT_EQ(store->getProductIdbyAlgoName("VWAP", true), "P2");
}

TEST(ContractTypes, AnEmptyPieceIsATypeWithAnEmptyName) {
    for (const char* types : {"P1:", "P1:|TWAP", "P1:TWAP|", "P1:TWAP||VWAP"}) {
        StoreSlot::exchange(StoreSlot::build());
        LoadedStore store(contracts("P1:x,1,2,3,0", types));
        EXPECT_EQ(store->getProductIdbyAlgoName("", false), "P1") << types;
        EXPECT_EQ(store->getProductIdbyAlgoName("", true), "") << types;
    }
}

TEST(ContractTypes, AnUnknownNameIsEnteredWithAnEmptyProduct) {
    LoadedStore store(contracts("P1:x,1,2,3,0", "P1:TWAP"));
    const auto& catalogue = ConfigCollectorPeer::contracts(*store);
    EXPECT_EQ(store->getProductIdbyAlgoName("POV", false), "");
    EXPECT_EQ(catalogue.stockProductByType, (std::map<std::string, std::string>{{"POV", ""}, {"TWAP", "P1"}}));
    EXPECT_TRUE(catalogue.creditProductByType.empty());
    EXPECT_EQ(store->getProductIdbyAlgoName("POV", true), "");
    EXPECT_EQ(catalogue.creditProductByType, (std::map<std::string, std::string>{{"POV", ""}}));
    EXPECT_EQ(store->getProductIdbyAlgoName("POV", false), "");
    store.load(contracts("", "P1:POV"));
    EXPECT_EQ(store->getProductIdbyAlgoName("POV", false), "P1");
}

TEST(HttpProducts, AreMatchedByteForByte) {
    LoadedStore store("[setting]\nalgohttpproductid=P1,,P2,P1, P3,\n");
    for (const char* listed : {"P1", "P2", " P3"})
        EXPECT_TRUE(store->isHttpProductID(listed)) << listed;
    for (const char* other : {"p1", "P3", "P", "P11", "", "P1,", "P1,,P2"})
        EXPECT_FALSE(store->isHttpProductID(other)) << other;
}

TEST(HttpProducts, AreReplacedByAReload) {
    LoadedStore store("[setting]\nalgohttpproductid=P1,P2\n");
    store.load("[setting]\nalgohttpproductid=P2,P3\n");
    EXPECT_FALSE(store->isHttpProductID("P1"));
    EXPECT_TRUE(store->isHttpProductID("P2"));
    EXPECT_TRUE(store->isHttpProductID("P3"));
    for (const char* settings : {"[setting]\nalgohttpproductid=\n", "[setting]\n", ""}) {
        store.load("[setting]\nalgohttpproductid=P1\n");
        store.load(settings);
        EXPECT_FALSE(store->isHttpProductID("P1")) << settings;
    }
}

TEST(ContractReload, AddsRecordsReplacesThoseOfTheSameKeyAndKeepsTheOthers) {
    LoadedStore store(contracts("P1:a,1,1,1,0;P2:a,1,1,1,0"));
    store.load(contracts("P2:b,2,2,2,0;P3:c,3,3,3,1"));
    EXPECT_EQ(keysOf(*store), (Texts{"P1_stock", "P2_stock", "P3_credit"}));
    EXPECT_EQ(store->getContractInfo("P1", false)->textValue, "a");
    EXPECT_EQ(store->getContractInfo("P2", false)->textValue, "b");
    store.load("");
    EXPECT_EQ(keysOf(*store), (Texts{"P1_stock", "P2_stock", "P3_credit"}));
    store.load(contracts("P1:c,4,4,4,1"));
    EXPECT_EQ(keysOf(*store), (Texts{"P1_credit", "P1_stock", "P2_stock", "P3_credit"}));
}

TEST(ContractReload, AddsTypesReplacesThoseOfTheSameNameAndKeepsTheOthers) {
    LoadedStore store(contracts("P1:a,1,1,1,0;P2:a,1,1,1,0", "P1:TWAP|VWAP"));
    store.load(contracts("", "P2:VWAP|POV"));
    EXPECT_EQ(store->getProductIdbyAlgoName("TWAP", false), "P1");
    EXPECT_EQ(store->getProductIdbyAlgoName("VWAP", false), "P2");
    EXPECT_EQ(store->getProductIdbyAlgoName("POV", false), "P2");
    store.load("");
    EXPECT_EQ(store->getProductIdbyAlgoName("POV", false), "P2");
    // A type is indexed for the records that exist when it is loaded, not for later ones.
    store.load(contracts("P1:a,1,1,1,1"));
    EXPECT_EQ(store->getProductIdbyAlgoName("TWAP", true), "");
    store.load(contracts("", "P1:TWAP"));
    EXPECT_EQ(store->getProductIdbyAlgoName("TWAP", true), "P1");
}

TEST(ContractReload, LeavesRecordsThatWereHandedOutAlone) {
    LoadedStore store(contracts("P1:a,1.5,7,3,0"));
    const auto before = store->getContractInfo("P1", false);
    const auto kept = store->getContractInfo(2);
    store.load(contracts("P1:b,2.5,8,4,0"));
    expectFields(*before, info(3, 1.5, 7, "P1", "a", false));
    EXPECT_EQ(kept.front(), before);
    const auto after = store->getContractInfo("P1", false);
    EXPECT_NE(after, before);
    expectFields(*after, info(4, 2.5, 8, "P1", "b", false));
}

TEST(ContractInfo, TheReaderReportsNothing) {
    ConfigCollector& store = *ConfigCollector::instance();  // created first, as it may log by itself
    const standin::LogCapture log;
    const tests::StandardError errors;
    const tests::TempFolder folder;
    const auto settings = boost::make_shared<utils::Configuration>();
    settings->parse(folder.write("a.ini", contracts("P1;P2:x,1;P3:a,b,c,d,e;;P4:a:b", "P9:A;P1;P2:A:B")));
    ConfigCollectorPeer::readContractInfoConfig(store, settings);
    EXPECT_EQ(keysOf(store), (Texts{"P2_stock", "P3_stock"}));
    EXPECT_TRUE(log.messages().empty());
    EXPECT_EQ(errors.text(), "");
}

TEST(ContractInfo, LookUpsTakeNothingFromTheHeap) {
    const std::string product = "a product ID that is much too long for any small text buffer";
    LoadedStore store(contracts(product + ":x,1,2,3,0") + "algohttpproductid=" + product + "\n");
    const tests::Allocations allocations;
    const bool found = store->getContractInfo(product, false) && !store->getContractInfo(product, true) &&
                       store->isHttpProductID(product);
    EXPECT_EQ(allocations.made(), 0);
    EXPECT_TRUE(found);
}
