#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <map>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "standin/logsetup.h"
#include "tests/support/clientfolder.h"
#include "tests/support/tempfile.h"
#include "traderbase/base/config/configcollector.h"

using standin::LogCapture;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Pair;
using tests::ClientFolder;
using ttservice::ConfigCollector;

namespace {

using Sessions = std::vector<std::pair<int, int>>;

constexpr const char* kStocks = R"({"93000": 50, "113000": 49, "130000": 50, "150000": 49})";
const Sessions kStockSessions = {{34200, 41400}, {46800, 54000}};

// A store that knows one market, to show whether a call changes the table.
boost::shared_ptr<ConfigCollector> storeWithOneMarket() {
    auto store = ConfigCollector::instance();
    store->initMarketTradingTime(std::map<std::string, std::string>{{"KEPT", kStocks}});
    EXPECT_EQ(store->getTradingTime("KEPT"), kStockSessions);
    return store;
}

}  // namespace

TEST(TradingTime, IsReadFromTheClientsScriptWhenTheStoreIsBuilt) {
    const ClientFolder folder(R"(
        function getMarkets() return '{"SSE": 1, "SHFE": 0, "NEVER": "x"}' end
        local texts = {
            SSE = '{"93000": 50, "113000": 49, "130000": 50, "150000": 49}',
            SHFE = '{"210000": 50, "23000": 49, "90000": 50, "101500": 49}',
            NEVER = '{"93000": 12}',
        }
        function getMarketTradeDuration(market) return texts[market] end
    )");
    const LogCapture log;
    const auto store = ConfigCollector::instance();
    EXPECT_EQ(store->getTradingTime("SSE"), kStockSessions);
    EXPECT_EQ(store->getTradingTime("SHFE"), (Sessions{{32400, 36900}, {75600, 86400}}));
    EXPECT_THAT(store->getTradingTime("NEVER"), IsEmpty());
    EXPECT_THAT(store->getTradingTime("sse"), IsEmpty());
    EXPECT_THAT(store->getTradingTime(""), IsEmpty());
    EXPECT_THAT(log.messages(), IsEmpty());
}

TEST(TradingTime, IsEmptyWithoutAScript) {
    const ClientFolder folder;
    const LogCapture log;
    EXPECT_THAT(ConfigCollector::instance()->getTradingTime("SSE"), IsEmpty());
    ASSERT_EQ(log.lines().size(), 2U);  // the script is missing, and then its function
    EXPECT_THAT(log.messages()[0], HasSubstr("cannot open ../luaScripts/MarketTime.lua"));
    EXPECT_EQ(log.lines()[0].function, "init");
    EXPECT_EQ(log.messages()[1], "attempt to call a nil value");
    EXPECT_EQ(log.lines()[1].function, "getConfig");
}

TEST(TradingTime, IsReadAnewFromTheScriptThatIsNamed) {
    const ClientFolder clientFolder;
    const auto store = storeWithOneMarket();
    const tests::TempFolder folder;
    const std::string path = folder.write("other.lua", R"(
        function getMarkets() return '{"CFFEX": 1}' end
        function getMarketTradeDuration(market) return '{"93000": 50, "150000": 54}' end
    )");
    store->initMarketTradingTime(path);
    EXPECT_EQ(store->getTradingTime("CFFEX"), (Sessions{{34200, 54000}}));
    EXPECT_THAT(store->getTradingTime("KEPT"), IsEmpty());
}

TEST(TradingTime, AsksTheScriptForEachMarketInItsOrder) {
    const ClientFolder clientFolder;
    const auto store = ConfigCollector::instance();
    const tests::TempFolder folder;
    const std::string path = folder.write("order.lua", R"(
        local asked = 0
        function getMarkets(...)
            if select("#", ...) ~= 0 then error("an argument too many") end
            return "{ Z: 1, 'A': {}, \"M\": [], A: 3 }"
        end
        function getMarketTradeDuration(...)
            asked = asked + 1
            printLog(select("#", ...) .. " " .. (...) .. " " .. asked)
            return '{"' .. asked .. '0000": 50}'
        end
    )");
    const LogCapture log;
    store->initMarketTradingTime(path);
    EXPECT_THAT(log.messages(), ElementsAre("1 Z 1", "1 A 2", "1 M 3", "1 A 4"));
    EXPECT_EQ(store->getTradingTime("Z"), (Sessions{{3600, 86400}}));
    EXPECT_EQ(store->getTradingTime("A"), (Sessions{{14400, 86400}}));  // named twice: its last answer
    EXPECT_EQ(store->getTradingTime("M"), (Sessions{{10800, 86400}}));
}

TEST(TradingTime, StaysWhenTheScriptNamesNoMarkets) {
    const ClientFolder clientFolder;
    const auto store = storeWithOneMarket();
    const tests::TempFolder folder;
    const std::tuple<const char*, int> rows[] = {
        // script, lines logged by the script runtime; the store itself adds none
        {"function getMarkets() return '' end", 0},
        {"function getMarkets() return nil end", 0},
        {"function getMarkets() return '{}' end", 0},
        {"function getMarkets() error('x') end", 1},
        {"", 1},
        {"this is no Lua", 2},
        {"function getMarkets() return 'not JSON' end", 0},
        {"function getMarkets() return '[\"SSE\"]' end", 0},
        {"function getMarkets() return '{\"SSE\": ' end", 0},
        {"function getMarkets() return 5 end", 0},
        {"function getMarkets() return string.rep('[', 1000000) end", 0},
        {"function getMarkets() return string.rep('{\"a\":', 1000000) end", 0},
    };
    for (const auto& [script, lines] : rows) {
        const LogCapture log;
        EXPECT_NO_THROW(store->initMarketTradingTime(folder.write("script.lua", script))) << script;
        EXPECT_EQ(log.lines().size(), static_cast<std::size_t>(lines)) << script;
        EXPECT_EQ(store->getTradingTime("KEPT"), kStockSessions) << script;
    }
    EXPECT_NO_THROW(store->initMarketTradingTime(folder.path("missing.lua")));
    EXPECT_EQ(store->getTradingTime("KEPT"), kStockSessions);
}

TEST(TradingTime, LeavesOutMarketsWhoseFunctionFails) {
    const ClientFolder clientFolder;
    const auto store = storeWithOneMarket();
    const tests::TempFolder folder;
    const LogCapture log;
    store->initMarketTradingTime(folder.write("script.lua", R"(
        function getMarkets() return '{"A": 1, "FAILS": 1, "NIL": 1, "BROKEN": 1, "LIST": 1, "DEEP": 1, "B": 1}' end
        function getMarketTradeDuration(market)
            if market == "FAILS" then error("no times", 0) end
            if market == "NIL" then return nil end
            if market == "BROKEN" then return '{"93000": 50' end
            if market == "LIST" then return '[50]' end
            if market == "DEEP" then return string.rep("[", 1000000) end
            return '{"93000": 50, "113000": 49, "130000": 50, "150000": 49}'
        end
    )"));
    for (const char* market : {"A", "B"})
        EXPECT_EQ(store->getTradingTime(market), kStockSessions);
    for (const char* market : {"FAILS", "NIL", "BROKEN", "LIST", "DEEP", "KEPT"})
        EXPECT_THAT(store->getTradingTime(market), IsEmpty()) << market;
    EXPECT_THAT(log.messages(), ElementsAre("no times"));
}

TEST(TradingTime, IsBuiltFromTexts) {
    const ClientFolder clientFolder;
    const auto store = storeWithOneMarket();
    using Texts = std::map<std::string, std::string>;
    store->initMarketTradingTime(Texts{});
    EXPECT_EQ(store->getTradingTime("KEPT"), kStockSessions);  // no texts: unchanged
    store->initMarketTradingTime(Texts{{"NEW", R"({"93000": 50})"}, {"BROKEN", "{"}});
    EXPECT_EQ(store->getTradingTime("NEW"), (Sessions{{34200, 86400}}));
    EXPECT_THAT(store->getTradingTime("KEPT"), IsEmpty());
    EXPECT_THAT(store->getTradingTime("BROKEN"), IsEmpty());
    store->initMarketTradingTime(Texts{{"BROKEN", "{"}});
    EXPECT_THAT(store->getTradingTime("NEW"), IsEmpty());  // rebuilt as an empty list
}

TEST(TradingTime, ReadsTheClientsScriptAgainWhenNoneIsNamed) {
    const ClientFolder folder(R"(
        function getMarkets() return '{"SSE": 1}' end
        function getMarketTradeDuration() return '{"93000": 50}' end
    )");
    const auto store = storeWithOneMarket();
    store->initMarketTradingTime();
    EXPECT_EQ(store->getTradingTime("SSE"), (Sessions{{34200, 86400}}));
    EXPECT_THAT(store->getTradingTime("KEPT"), IsEmpty());
}

TEST(TradingTime, AnswersCopies) {
    const ClientFolder clientFolder;
    const auto store = storeWithOneMarket();
    Sessions sessions = store->getTradingTime("KEPT");
    sessions.clear();
    EXPECT_EQ(store->getTradingTime("KEPT"), kStockSessions);
}

TEST(TradingTime, IsNotTouchedByALoad) {
    const ClientFolder clientFolder;
    const auto store = storeWithOneMarket();
    store->readConfig("missing.ini");
    EXPECT_EQ(store->getTradingTime("KEPT"), kStockSessions);
}

TEST(TradingTime, CountsSecondsOfTheDayInTheEighthZone) {
    const std::tuple<int, int> rows[] = {
        {0, 28800},
        {86399, 115199},
        {-1, 28799},
        {86400, 28800},
        {-86399, -57599},
        {-86400, 28800},
        {57600, 86400},
        {1700000000, 1700000000 % 86400 + 28800},
        {std::numeric_limits<int>::max(), 11647 + 28800},
        {std::numeric_limits<int>::min(), -11648 + 28800},
    };
    for (const auto& [timeStamp, second] : rows)
        EXPECT_EQ(ConfigCollector::getSecondFromGMT(timeStamp), second) << timeStamp;
}
