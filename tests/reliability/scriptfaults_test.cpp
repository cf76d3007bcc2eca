// Scripts that return anything but what was asked for: the catalogues take what is usable, report the rest, and go on
// answering.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <iterator>
#include <map>
#include <string>

#include "standin/logsetup.h"
#include "tests/base/luaconfig/script.h"
#include "tests/support/clientfolder.h"
#include "traderbase/base/config/algorithmparamconfig.h"
#include "traderbase/base/config/configcollector.h"

using standin::LogCapture;
using testing::IsEmpty;
using testing::SizeIs;
using tests::ClientFolder;
using tests::Script;
using tests::TempFolder;
using ttservice::AlgorithmParamConfig;
using ttservice::ConfigCollector;

namespace {

constexpr const char* kSessions = R"({\"93000\":50,\"113000\":49})";

// Everything that a Lua function can raise.
const char* const kErrorObjects[] = {
    "nil",
    "true",
    "5",
    "0/0",
    "'a text'",
    "'%d %s {0} {}'",
    "'a\\0b'",
    "{}",
    "setmetatable({}, {__tostring = function() error('again') end})",
    "setmetatable({}, {__tostring = function() return {} end, __index = function() error('and again') end})",
    "print",
    "function() end",
    "coroutine.create(function() end)",
    "newproxy(true)",
    "io.stdout",
};

// A client whose singletons already exist, so that the log captures no lines from their construction.
struct Client {
    ClientFolder folder;
    boost::shared_ptr<ConfigCollector> store = ConfigCollector::instance();
    boost::shared_ptr<AlgorithmParamConfig> catalogue = AlgorithmParamConfig::instance();
};

// What may happen to the sessions of the previous script. They stay if the new script names no markets.
enum class Former { Stay, Go, Either };

// Loads the script's sessions, then those of a valid script.
void expectSurvived(const std::string& script, Former former = Former::Either) {
    const TempFolder folder;
    const std::string path = folder.write("script.lua", script);
    const auto store = ConfigCollector::instance();
    store->initMarketTradingTime(std::map<std::string, std::string>{{"AMEX", R"({"100000":50,"110000":49})"}});
    EXPECT_NO_THROW(store->initMarketTradingTime(path)) << script.substr(0, 200);
    if (former != Former::Either) {
        EXPECT_THAT(store->getTradingTime("AMEX"), SizeIs(former == Former::Stay ? 1 : 0)) << script.substr(0, 200);
    }
    // A valid script is still accepted.
    store->initMarketTradingTime(
        folder.write("sound.lua", std::string("function getMarkets() return '{\"SZSE\":1}' end\n") +
                                      "function getMarketTradeDuration() return \"" + kSessions + "\" end"));
    EXPECT_THAT(store->getTradingTime("SZSE"), SizeIs(1)) << script.substr(0, 200);
    EXPECT_THAT(store->getTradingTime("SSE"), IsEmpty());
}

std::string bothRaise(const std::string& object) {
    return "function getMarkets() error(" + object + ", 0) end";
}

std::string durationRaises(const std::string& object) {
    return "function getMarkets() return '{\"SSE\":1,\"SZSE\":1}' end\nfunction getMarketTradeDuration(market) if "
           "market == "
           "'SSE' then error(" +
           object + ", 0) end return \"" + kSessions + "\" end";
}

// Lua source that repeats a text this many times.
std::string repeated(const std::string& text, int times) {
    return "string.rep('" + text + "', " + std::to_string(times) + ")";
}

constexpr int kMillion = 1000000;

}  // namespace

TEST(ScriptFaults, ErrorObjectsOfEveryTypeAreOneLineAndNoAnswer) {
    const Client client;
    for (const char* object : kErrorObjects) {
        const LogCapture log;
        expectSurvived(bothRaise(object), Former::Stay);
        EXPECT_THAT(log.lines(), SizeIs(1)) << object;
    }
    for (const char* object : kErrorObjects) {
        const LogCapture log;
        expectSurvived(durationRaises(object), Former::Go);
        EXPECT_THAT(log.lines(), SizeIs(1)) << object;
    }
    for (const char* object : kErrorObjects) {  // at the script's own top level
        const LogCapture log;
        expectSurvived(std::string("error(") + object + ", 0)", Former::Stay);
        EXPECT_THAT(log.lines(), SizeIs(2)) << object;  // the second line: getMarkets is missing
    }
}

TEST(ScriptFaults, DeepRecursionIsAnError) {
    const Client client;
    for (const char* body :
         {"local function down() return 1 + down() end return down()",
          "local function down(t) return tostring(setmetatable({}, {__tostring = down})) end return down()",
          "local function down() return coroutine.wrap(down)() end return down()"}) {
        const LogCapture log;
        expectSurvived(std::string("function getMarkets() ") + body + " end", Former::Stay);
        EXPECT_THAT(log.lines(), SizeIs(1)) << body;
    }
}

TEST(ScriptFaults, AnswersOfEveryTypeAreTaken) {
    const Client client;
    const LogCapture log;
    for (const char* object : kErrorObjects) {
        expectSurvived(std::string("function getMarkets() return ") + object + " end", Former::Stay);
        expectSurvived(
            std::string("function getMarkets() return '{\"SSE\":1}' end function getMarketTradeDuration() return ") +
                object + " end",
            Former::Go);
    }
    expectSurvived("function getMarkets() end", Former::Stay);
    expectSurvived("function getMarkets() return unpack({}, 1, 5000) end", Former::Stay);
}

TEST(ScriptFaults, AMillionByteAnswerIsTakenWhole) {
    const Client client;
    const LogCapture log;
    const TempFolder folder;
    const auto store = ConfigCollector::instance();
    // A market whose name is a million bytes, and a duration text of more than a million.
    store->initMarketTradingTime(folder.write(
        "long.lua", "local name = " + repeated("M", kMillion) +
                        "\nfunction getMarkets() return '{\"' .. name .. '\":1,\"SSE\":1}' end\n"
                        "function getMarketTradeDuration() return '{\"note\":\"' .. name .. '\",\"93000\":50,"
                        "\"113000\":49}' end"));
    EXPECT_THAT(store->getTradingTime(std::string(kMillion, 'M')), SizeIs(1));
    EXPECT_THAT(store->getTradingTime("SSE"), SizeIs(1));
    // Also a million bytes of blanks, of digits, and of garbage.
    for (const char* text : {" ", "7", "x", "\\\\", "\\\"", ","})
        expectSurvived("function getMarkets() return " + repeated(text, kMillion) + " end", Former::Stay);
    expectSurvived("function getMarkets() return '{\"SSE\":1}' end function getMarketTradeDuration() return '{\"' .. " +
                   repeated("7", kMillion) + " .. '\":50}' end");
}

TEST(ScriptFaults, AnAnswerEndsAtItsFirstNul) {
    const Client client;
    const LogCapture log;
    const TempFolder folder;
    const auto store = ConfigCollector::instance();
    store->initMarketTradingTime(
        folder.write("nul.lua", std::string("function getMarkets() return '{\"SSE\":1}\\0{\"SZSE\":1}' end\n") +
                                    "function getMarketTradeDuration() return \"" + kSessions + "\\0 and more\" end"));
    EXPECT_THAT(store->getTradingTime("SSE"), SizeIs(1));
    EXPECT_THAT(store->getTradingTime("SZSE"), IsEmpty());
    expectSurvived("function getMarkets() return '\\0' end");
    expectSurvived("function getMarkets() return '{\"SS\\0E\":1}' end");
    expectSurvived("function getMarkets() return '{\"SS\\\\u0000E\":1}' end");
    expectSurvived("function getMarkets() return " + repeated("\\0", kMillion) + " end");
}

// The answer quotes the very words in which the parser reports a lack of memory.
TEST(ScriptFaults, AnAnswerThatMentionsMemoryIsAnOrdinaryText) {
    const Client client;
    const LogCapture log;
    for (const char* text :
         {"{caught exception from within JSON parser: std::bad_alloc", "{std::bad_alloc", "std::bad_alloc",
          "caught exception from within JSON parser: std::bad_alloc", "{x:std::bad_alloc"}) {
        expectSurvived(std::string("function getMarkets() return '") + text + "' end", Former::Stay);
        expectSurvived(std::string("function getMarkets() return '{\"SSE\":1}' end function getMarketTradeDuration() "
                                   "return '") +
                       text + "' end");
    }
}

TEST(ScriptFaults, JsonThatIsNestedAMillionDeepIsRefused) {
    const Client client;
    const std::string openings[] = {"{\\\"a\\\":", "[", "{", "(", "{\\\"a\\\":[", "Date(", "[[["};
    const LogCapture log;
    for (const std::string& opening : openings) {
        const std::string deep = "string.rep(\"" + opening + "\", 1000000)";
        expectSurvived("function getMarkets() return " + deep + " end", Former::Stay);
        expectSurvived("function getMarkets() return '{\"SSE\":' .. " + deep + " end", Former::Stay);
        expectSurvived(
            "function getMarkets() return '{\"SSE\":1}' end function getMarketTradeDuration() return '{\"1\":' .. " +
            deep + " end");
    }
    expectSurvived(
        "function getMarkets() return string.rep('{\"a\":', 1000000) .. '1' .. string.rep('}', 1000000) end");
}

// --- vendors' answers, through the block that needs no right

namespace {

// The catalogue after a script whose two functions that need no right return the value of this expression.
struct Vendors {
    explicit Vendors(const std::string& expression)
        : script("function getQeAlgoParamConfig() return " + expression +
                 " end function getAlgorithmsHelpParamConfig() return '{\"content\":{\"name\":\"help\"}}' end") {
        catalogue.initAlgoParams(*script);
    }

    std::string text() const {
        std::string out;
        catalogue.getQeAlgOriginalStr(out);
        return out;
    }

    Script script;
    AlgorithmParamConfig catalogue{*AlgorithmParamConfig::instance()};
};

}  // namespace

TEST(ScriptFaults, VendorAnswersThatAreNotDescriptionsLoseOnlyTheirRecord) {
    const Client client;
    const std::pair<std::string, std::size_t> rows[] = {
        {"string.rep('{\"content\":', 1000000)", 11000000U},
        {"string.rep('[', 1000000)", 1000000U},
        {"'{\"content\":' .. string.rep('{\"a\":[', 500000)", 3000011U},
        {"string.rep('x', 1000000)", 1000000U},
        {"'{\"content\":5}'", 13U},
        {"'\\0{\"content\":{}}'", 0U},
        {"'{\"content\":{\"name\":5}}'", 22U},
    };
    for (const auto& [expression, size] : rows) {
        const LogCapture log;
        const Vendors vendors(expression);
        EXPECT_EQ(vendors.text().size(), size) << expression;
        EXPECT_THAT(vendors.catalogue.getAlgoritmsParams(), SizeIs(1)) << expression;
        EXPECT_NE(vendors.catalogue.getAlgoParam("help"), nullptr) << expression;
        ASSERT_THAT(log.messages(), SizeIs(1)) << expression;
        EXPECT_EQ(log.messages()[0], "getAlgorithmsParams error.");
    }
}

TEST(ScriptFaults, VendorErrorsOfEveryTypeLoseOnlyTheirRecord) {
    const Client client;
    for (const char* object : kErrorObjects) {
        const LogCapture log;
        const Vendors vendors(std::string("error(") + object + ", 0)");
        EXPECT_EQ(vendors.text(), "") << object;
        EXPECT_NE(vendors.catalogue.getAlgoParam("help"), nullptr) << object;
        EXPECT_THAT(log.messages(), SizeIs(2)) << object;  // the script's error, and an empty text without a record
    }
}

TEST(ScriptFaults, AMillionByteVendorAnswerBecomesARecord) {
    const Client client;
    const LogCapture log;
    const Vendors vendors("'{\"content\":{\"name\":\"large\",\"note\":\"' .. string.rep('n', 1000000) .. '\"}}'");
    EXPECT_GT(vendors.text().size(), 1000000U);
    EXPECT_NE(vendors.catalogue.getAlgoParam("large"), nullptr);
    EXPECT_THAT(log.messages(), IsEmpty());
}
