#include <gtest/gtest.h>
#include <log4cxx/level.h>
#include <log4cxx/logger.h>
#include <boost/make_shared.hpp>

#include <locale>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

#include "standin/logsetup.h"
#include "standin/queryhook.h"
#include "tests/config/collectorpeer.h"
#include "tests/support/store.h"
#include "ttplatform/configuration.h"
#include "ttplatform/logging.h"

using tests::LoadedStore;
using ttservice::ConfigCollector;
using ttservice::ConfigCollectorPeer;
using Texts = std::vector<std::string>;
using Groups = std::vector<std::set<std::string>>;

namespace {

std::string fees(const std::string& rows) {
    return "[FUTURE_SUBSCRIBE_PRODUCTS]\n" + rows;
}

std::string combinations(const std::string& rows) {
    return "[specialCombCompacts]\n" + rows;
}

std::string etfBroker(const std::string& value) {
    return "[setting]\netfbrokerclienttag=" + value + "\n";
}

// The usual letters, but with a special upper case for "x".
class OddUpperCase : public std::ctype<char> {
protected:
    char do_toupper(char c) const override { return c == 'x' ? '#' : std::ctype<char>::do_toupper(c); }
};

// Makes the next load fail at the first question for which refuses(query) holds.
template <typename Refuses>
void failLoad(LoadedStore& store, const std::string& settings, Refuses refuses) {
    standin::setQueryHook([refuses](const standin::Query& query) {
        if (refuses(query)) throw std::runtime_error("refused");
    });
    EXPECT_THROW(store.load(settings), std::runtime_error);
    standin::setQueryHook({});
}

}  // namespace

TEST(SubscriptionFees, AreFoundAsWrittenAndInUpperCase) {
    LoadedStore store(fees("ag2012=1.5\nCU=2.25\nrB=0.5\n"));
    EXPECT_EQ(store->getSubFee("ag2012"), 1.5);
    EXPECT_EQ(store->getSubFee("AG2012"), 1.5);
    EXPECT_EQ(store->getSubFee("Ag2012"), 0.0);
    EXPECT_EQ(store->getSubFee("CU"), 2.25);
    EXPECT_EQ(store->getSubFee("cu"), 0.0);
    EXPECT_EQ(store->getSubFee("rB"), 0.5);
    EXPECT_EQ(store->getSubFee("RB"), 0.5);
    EXPECT_EQ(store->getSubFee("rb"), 0.0);
    EXPECT_EQ(store->getSubFee(""), 0.0);
    EXPECT_EQ(store->getSubFee("unknown"), 0.0);
}

TEST(SubscriptionFees, TheUpperCaseFormGoesToTheKeyThatComesFirst) {
    LoadedStore store;
    store.load(fees("ag=1\nAG=2\naG=3\n"));
    EXPECT_EQ(store->getSubFee("AG"), 1.0);  // even before the row written in upper case
    EXPECT_EQ(store->getSubFee("ag"), 1.0);
    EXPECT_EQ(store->getSubFee("aG"), 3.0);
    store.load(fees("AG=2\nag=1\n"));
    EXPECT_EQ(store->getSubFee("AG"), 2.0);
    EXPECT_EQ(store->getSubFee("ag"), 1.0);
}

TEST(SubscriptionFees, ReadAsZeroWhenTheyAreNotNumbers) {
    LoadedStore store(fees("a=abc\nb=\nc=1.5x\nd=1,5\ne=-0.5\nf=2e3\n"));
    for (const char* none : {"a", "b", "c", "d", "A"})
        EXPECT_EQ(store->getSubFee(none), 0.0) << none;
    EXPECT_EQ(store->getSubFee("e"), -0.5);
    EXPECT_EQ(store->getSubFee("f"), 2000.0);
    EXPECT_EQ(ConfigCollectorPeer::subscriptionFees(*store).size(), 12U);  // a fee of zero is entered
}

TEST(SubscriptionFees, TakeUpperCaseFromTheGlobalLocale) {
    const std::locale before = std::locale::global(std::locale(std::locale::classic(), new OddUpperCase));
    LoadedStore store(fees("xa=1.5\n"));
    std::locale::global(before);
    EXPECT_EQ(store->getSubFee("#A"), 1.5);
    EXPECT_EQ(store->getSubFee("XA"), 0.0);
}

TEST(SubscriptionFees, LeaveBytesThatAreNotLettersAlone) {
    LoadedStore store(fees("\xE8\x82\xA1z=1.5\n"));
    EXPECT_EQ(store->getSubFee("\xE8\x82\xA1Z"), 1.5);
}

TEST(SubscriptionFees, AreReplacedByAReload) {
    LoadedStore store(fees("ag=1\ncu=2\n"));
    store.load(fees("cu=3\n"));
    EXPECT_EQ(store->getSubFee("ag"), 0.0);
    EXPECT_EQ(store->getSubFee("AG"), 0.0);
    EXPECT_EQ(store->getSubFee("cu"), 3.0);
    EXPECT_EQ(store->getSubFee("CU"), 3.0);
    store.load("");
    EXPECT_EQ(store->getSubFee("cu"), 0.0);
}

TEST(SubscriptionFees, StayWhenTheirKeysCannotBeListed) {
    LoadedStore store(fees("ag=1\n"));
    failLoad(store, fees("cu=3\n"), [](const standin::Query& query) {
        return query.operation == "Configuration::getProperties" && query.first == "FUTURE_SUBSCRIBE_PRODUCTS";
    });
    EXPECT_EQ(store->getSubFee("ag"), 1.0);
}

TEST(Combinations, ChargeTheMarginOnTheFirstProductOfTheGroup) {
    LoadedStore store(combinations("CZCE=A,B,C;D,E\n"));
    const std::vector<std::pair<std::string, std::string>> rows = {
        {"A", "A"}, {"B", "A"}, {"C", "A"}, {"D", "D"}, {"E", "D"}, {"X", "X"}, {"b", "b"}, {"", ""}, {"CZCE", "CZCE"}};
    for (const auto& [product, first] : rows)
        EXPECT_EQ(store->getSingleMarginProductName(product), first);
    const auto& tables = ConfigCollectorPeer::combinations(*store);
    EXPECT_EQ(tables.groups, (Groups{{"A", "B", "C"}, {"D", "E"}}));
    EXPECT_EQ(tables.products, (Texts{"A", "B", "C", "D", "E"}));
}

TEST(Combinations, AProductOfTwoGroupsKeepsTheFirstAnswer) {
    LoadedStore store(combinations("CZCE=A,B;C,B\n"));
    EXPECT_EQ(store->getSingleMarginProductName("B"), "A");
    EXPECT_EQ(ConfigCollectorPeer::combinations(*store).products, (Texts{"A", "B", "C", "B"}));
    EXPECT_EQ(ConfigCollectorPeer::combinations(*store).groups, (Groups{{"A", "B"}, {"B", "C"}}));
}

TEST(Combinations, OfSeveralExchangesAreInFileOrder) {
    LoadedStore store(combinations("SHFE=z,y\nCZCE=A,y\n"));
    EXPECT_EQ(store->getSingleMarginProductName("y"), "z");
    EXPECT_EQ(ConfigCollectorPeer::combinations(*store).groups, (Groups{{"y", "z"}, {"A", "y"}}));
    EXPECT_EQ(ConfigCollectorPeer::combinations(*store).products, (Texts{"z", "y", "A", "y"}));
}

TEST(Combinations, EmptyGroupsAndEmptyProductsAreTakenAsTheyAre) {
    LoadedStore store(combinations("CZCE=A,,B;;\nSHFE=\n"));
    EXPECT_EQ(store->getSingleMarginProductName(""), "A");
    EXPECT_EQ(store->getSingleMarginProductName("B"), "A");
    EXPECT_EQ(ConfigCollectorPeer::combinations(*store).groups, (Groups{{"", "A", "B"}, {""}, {""}, {""}}));
    EXPECT_EQ(ConfigCollectorPeer::combinations(*store).products, (Texts{"A", "", "B", "", "", ""}));
}

TEST(Combinations, AReloadOnlyAddsToThem) {
    LoadedStore store(combinations("CZCE=A,B\n"));
    store.load(combinations("CZCE=C,B,D\n"));
    EXPECT_EQ(store->getSingleMarginProductName("B"), "A");
    EXPECT_EQ(store->getSingleMarginProductName("D"), "C");
    EXPECT_EQ(ConfigCollectorPeer::combinations(*store).groups, (Groups{{"A", "B"}, {"B", "C", "D"}}));
    EXPECT_EQ(ConfigCollectorPeer::combinations(*store).products, (Texts{"A", "B", "C", "B", "D"}));
    store.load("");
    EXPECT_EQ(store->getSingleMarginProductName("B"), "A");
    store.load(combinations("CZCE=C,B,D\n"));  // the same file again
    EXPECT_EQ(ConfigCollectorPeer::combinations(*store).products, (Texts{"A", "B", "C", "B", "D", "C", "B", "D"}));
}

TEST(Combinations, EachExchangeIsLoggedAsRead) {
    LoadedStore store;
    const standin::LogCapture log;
    store.load(combinations("CZCE=A,B,C;D,E\nSHFE=\nx{0}=;,{1}%s\n"));
    const std::vector<standin::LogLine> lines = log.lines();
    ASSERT_EQ(lines.size(), 3U);
    EXPECT_EQ(lines[0].message, "exchange CZCE products: A,B,C;D,E");
    EXPECT_EQ(lines[1].message, "exchange SHFE products: ");
    EXPECT_EQ(lines[2].message, "exchange x{0} products: ;,{1}%s");
    for (const standin::LogLine& line : lines) {
        EXPECT_EQ(line.level, "INFO");
        EXPECT_EQ(line.logger, "TTStdLogger");
        EXPECT_EQ(line.function, "readSpecialCombCompactsConfig");
        EXPECT_EQ(line.file, "libs/traderbase/base/config/configcollector");
    }
}

TEST(Combinations, AreReadInSilenceWhenTheLogWantsNoInfo) {
    LoadedStore store;
    const standin::LogCapture log;
    g_TTStdLogger->setLevel(log4cxx::Level::getWarn());
    store.load(combinations("CZCE=A,B\n"));
    g_TTStdLogger->setLevel(nullptr);
    EXPECT_TRUE(log.messages().empty());
    EXPECT_EQ(store->getSingleMarginProductName("B"), "A");
}

TEST(Combinations, AreReadWithoutALoggerToo) {
    ASSERT_FALSE(g_TTStdLogger);
    LoadedStore store(combinations("CZCE=A,B\n"));
    EXPECT_EQ(store->getSingleMarginProductName("B"), "A");
}

TEST(EtfBrokerClient, HasATagAndQueryTimes) {
    struct Row {
        std::string value, tag;
        Texts times;
    };
    const std::vector<Row> rows = {
        {"T1:1000,1400", "T1", {"1000", "1400"}},
        {"T2:", "T2", {""}},
        {"T3:0930", "T3", {"0930"}},
        {"T4:,0930,,", "T4", {"", "0930", "", ""}},
        {":0930", "", {"0930"}},
        {"T5:0930:1500,1600:x", "T5", {"0930"}},
        {"T6::0930", "T6", {""}},
        {"a b:1 , 2", "a b", {"1 ", " 2"}},
    };
    LoadedStore store;
    for (const Row& row : rows) {
        store.load(etfBroker(row.value));
        EXPECT_EQ(store->getETFBrokerCLientTag(), row.tag) << row.value;
        EXPECT_EQ(store->getETFBrokerCLientQueryTimes(), row.times) << row.value;
    }
}

TEST(EtfBrokerClient, IsEmptyUntilALoadNamesIt) {
    LoadedStore store;
    EXPECT_EQ(store->getETFBrokerCLientTag(), "");
    EXPECT_TRUE(store->getETFBrokerCLientQueryTimes().empty());
    for (const std::string& settings : {etfBroker("T1"), etfBroker(""), std::string()}) {
        store.load(settings);
        EXPECT_EQ(store->getETFBrokerCLientTag(), "") << settings;
        EXPECT_TRUE(store->getETFBrokerCLientQueryTimes().empty()) << settings;
    }
}

TEST(EtfBrokerClient, IsKeptByAReloadWithoutAColonAndReplacedByAnyOther) {
    LoadedStore store(etfBroker("T1:1000,1400"));
    for (const std::string& settings : {etfBroker("T2"), etfBroker(""), etfBroker("1000,1400"), std::string()}) {
        store.load(settings);
        EXPECT_EQ(store->getETFBrokerCLientTag(), "T1") << settings;
        EXPECT_EQ(store->getETFBrokerCLientQueryTimes(), (Texts{"1000", "1400"})) << settings;
    }
    const Texts kept = store->getETFBrokerCLientQueryTimes();
    store.load(etfBroker("T2:0930"));
    EXPECT_EQ(store->getETFBrokerCLientTag(), "T2");
    EXPECT_EQ(store->getETFBrokerCLientQueryTimes(), (Texts{"0930"}));
    EXPECT_EQ(kept, (Texts{"1000", "1400"}));  // a copy
}

TEST(EtfBrokerClient, ItsTagIsThePlatformWhoseCounterIsAsked) {
    LoadedStore store;
    for (const int platform : {-5, 0, 5})
        EXPECT_FALSE(store->isCanQueryETFFromCounter(platform));
    struct Row {
        std::string value;
        int platform;
        bool answer;
    };
    const std::vector<Row> rows = {
        {"5:1000", 5, true},
        {"5:1000", 6, false},
        {"5:1000", -5, false},
        {"-5:1000", -5, true},
        {"05:1000", 5, false},
        {"+5:1000", 5, false},
        {"0:", 0, true},
        {"-0:", 0, false},
        {"5 :1000", 5, false},
        {":1000", 0, false},
        {"-2147483648:", -2147483647 - 1, true},
        {"2147483647:", 2147483647, true},
    };
    for (const Row& row : rows) {
        store.load(etfBroker(row.value));
        EXPECT_EQ(store->isCanQueryETFFromCounter(row.platform), row.answer) << row.value << ", " << row.platform;
    }
}

TEST(SpecialProducts, TheReadersReportNoBadValue) {
    ConfigCollector& store = *ConfigCollector::instance();  // created first, as it may log by itself
    const standin::LogCapture log;
    const tests::StandardError errors;
    const tests::TempFolder folder;
    const auto settings = boost::make_shared<utils::Configuration>();
    settings->parse(folder.write("a.ini", fees("a=b\n") + combinations("X=,;\n") + etfBroker("x")));
    ConfigCollectorPeer::readSubfeeProductConfig(store, settings);
    ConfigCollectorPeer::readETFBrokerCLientTag(store, settings);
    EXPECT_TRUE(log.messages().empty());
    ConfigCollectorPeer::readSpecialCombCompactsConfig(store, settings);
    EXPECT_EQ(log.messages(), (Texts{"exchange X products: ,;"}));
    EXPECT_EQ(errors.text(), "");
}
