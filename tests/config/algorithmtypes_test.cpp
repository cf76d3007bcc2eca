#include <gtest/gtest.h>
#include <boost/make_shared.hpp>

#include <set>
#include <string>
#include <utility>
#include <vector>

#include "standin/logsetup.h"
#include "tests/config/collectorpeer.h"
#include "tests/support/store.h"
#include "ttplatform/configuration.h"

using tests::LoadedStore;
using ttservice::ConfigCollector;
using ttservice::ConfigCollectorPeer;
using Types = std::set<std::string>;
using Strategies = std::vector<std::pair<std::string, std::string>>;
using Texts = std::vector<std::string>;

namespace {

std::string setting(const std::string& key, const std::string& value) {
    return "[setting]\n" + key + "=" + value + "\n";
}

}  // namespace

TEST(AlgorithmTypes, AreSeparatedBySemicolonsAndEmptyPiecesCount) {
    struct Row {
        std::string value;
        Types types;
    };
    const std::vector<Row> rows = {
        {"A;B;A", {"A", "B"}}, {"A;;B", {"", "A", "B"}}, {"A;B;", {"", "A", "B"}},   {";A", {"", "A"}}, {";", {""}},
        {"A,B", {"A,B"}},      {"A; B", {" B", "A"}},    {"b;B;a", {"B", "a", "b"}}, {"", {}},
    };
    LoadedStore store;
    for (const Row& row : rows) {
        store.load(setting("samrtalgotypes", row.value));
        EXPECT_EQ(store->getAlgoTypes(), row.types) << row.value;
        EXPECT_TRUE(store->getBuySellHideAlgoTypes().empty()) << row.value;
    }
}

TEST(AlgorithmTypes, WithHiddenBuySellAreSeparatedByCommasInstead) {
    struct Row {
        std::string value;
        Types types;
    };
    const std::vector<Row> rows = {
        {"A;B", {"A;B"}}, {"A,B,A", {"A", "B"}}, {"A,,B", {"", "A", "B"}}, {"A,", {"", "A"}}, {",", {""}}, {"", {}},
    };
    LoadedStore store;
    for (const Row& row : rows) {
        store.load(setting("algotypedisablebuysell", row.value));
        EXPECT_EQ(store->getBuySellHideAlgoTypes(), row.types) << row.value;
        EXPECT_TRUE(store->getAlgoTypes().empty()) << row.value;
    }
}

TEST(AlgorithmTypes, TheKeyOfTheSmartOnesIsSpelledAsItIs) {
    LoadedStore store(setting("smartalgotypes", "A"));
    EXPECT_TRUE(store->getAlgoTypes().empty());
}

TEST(AlgorithmTypes, AreReplacedByAReload) {
    LoadedStore store("[setting]\nsamrtalgotypes=A;B\nalgotypedisablebuysell=C,D\n");
    const Types kept = store->getAlgoTypes();
    store.load("[setting]\nsamrtalgotypes=B;E\nalgotypedisablebuysell=D,F\n");
    EXPECT_EQ(store->getAlgoTypes(), (Types{"B", "E"}));
    EXPECT_EQ(store->getBuySellHideAlgoTypes(), (Types{"D", "F"}));
    EXPECT_EQ(kept, (Types{"A", "B"}));  // a copy
    store.load("[setting]\n");
    EXPECT_TRUE(store->getAlgoTypes().empty());
    EXPECT_TRUE(store->getBuySellHideAlgoTypes().empty());
}

TEST(T0Strategies, ArePairsInTheOrderWritten) {
    struct Row {
        std::string value;
        Strategies strategies;
    };
    const std::vector<Row> rows = {
        {"S1:Name1;bad;S2:Name2:extra;S3:Name3", {{"S1", "Name1"}, {"S3", "Name3"}}},
        {"S2:b;S1:a;S2:b", {{"S2", "b"}, {"S1", "a"}, {"S2", "b"}}},
        {"S1:", {{"S1", ""}}},
        {":Name1", {{"", "Name1"}}},
        {":", {{"", ""}}},
        {";S1:a;;", {{"S1", "a"}}},
        {"S1:a,b", {{"S1", "a,b"}}},
        {"S1", {}},
        {"", {}},
    };
    LoadedStore store;
    for (const Row& row : rows) {
        store.load(setting("t0algotypes", row.value));
        EXPECT_EQ(store->getT0Strategy(), row.strategies) << row.value;
    }
}

TEST(T0Strategies, AreEmptiedByAReloadWithoutTheKey) {
    LoadedStore store(setting("t0algotypes", "S1:Name1;S2:Name2"));
    const Strategies kept = store->getT0Strategy();
    store.load(setting("t0algotypes", "S3:Name3"));
    EXPECT_EQ(store->getT0Strategy(), (Strategies{{"S3", "Name3"}}));
    store.load("[setting]\n");
    EXPECT_TRUE(store->getT0Strategy().empty());
    EXPECT_EQ(kept, (Strategies{{"S1", "Name1"}, {"S2", "Name2"}}));  // a copy
}

TEST(NotQueryAlgoPerm, IsTrueForAListedPlatformDespiteTheName) {
    LoadedStore store(setting("notqueryalgopermission", "7,12"));
    EXPECT_TRUE(store->isQueryAlgoPerm(7));
    EXPECT_TRUE(store->isQueryAlgoPerm(12));
    EXPECT_FALSE(store->isQueryAlgoPerm(8));
    store.load("");
    EXPECT_TRUE(store->isQueryAlgoPerm(7));  // kept, like any list whose key is gone
}

TEST(NotQueryAlgoPerm, KeysOfTheSectionAreKeptAndAnswerNothing) {
    LoadedStore store("[notqueryalgopermission]\n15=1\n7=\nx=y\n");
    EXPECT_EQ(ConfigCollectorPeer::notQueryAlgoPermKeys(*store), (Texts{"15", "7", "x"}));
    EXPECT_FALSE(store->isQueryAlgoPerm(15));
    store.load("[notqueryalgopermission]\n8=1\n");
    EXPECT_EQ(ConfigCollectorPeer::notQueryAlgoPermKeys(*store), (Texts{"8"}));
    store.load("");
    EXPECT_TRUE(ConfigCollectorPeer::notQueryAlgoPermKeys(*store).empty());
}

TEST(AlgorithmTypes, TheReadersReportNothing) {
    ConfigCollector& store = *ConfigCollector::instance();  // created first, as it may log by itself
    const standin::LogCapture log;
    const tests::StandardError errors;
    const tests::TempFolder folder;
    const auto settings = boost::make_shared<utils::Configuration>();
    settings->parse(
        folder.write("a.ini", "[setting]\nsamrtalgotypes=;;A\nalgotypedisablebuysell=,,\nt0algotypes=bad;S:a:b\n"));
    ConfigCollectorPeer::readAlgoTypesConfig(store, settings);
    ConfigCollectorPeer::readT0StrategyConfig(store, settings);
    ConfigCollectorPeer::readNotQueryAlgoPerm(store, settings);
    EXPECT_EQ(store.getAlgoTypes(), (Types{"", "A"}));
    EXPECT_TRUE(log.messages().empty());
    EXPECT_EQ(errors.text(), "");
}

TEST(AlgorithmTypes, AreEmptyBeforeAnyLoad) {
    const LoadedStore store;
    EXPECT_TRUE(store->getAlgoTypes().empty());
    EXPECT_TRUE(store->getBuySellHideAlgoTypes().empty());
    EXPECT_TRUE(store->getT0Strategy().empty());
}
