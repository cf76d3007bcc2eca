#include "luaconfig/luaconfig.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <log4cxx/logger.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstring>
#include <string>
#include <tuple>
#include <type_traits>
#include <vector>

#include "standin/logsetup.h"
#include "tests/base/luaconfig/script.h"
#include "tests/support/commalocale.h"
#include "ttplatform/logging.h"

using luabase::LuaConfig;
using luabase::LuaConfigPeer;
using standin::LogCapture;
using standin::LogLine;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using tests::Script;

namespace {

constexpr const char* kNilCall = "attempt to call a nil value";

void expectLine(const LogLine& line, const std::string& function, const std::string& message) {
    EXPECT_EQ(line.level, "ERROR");
    EXPECT_EQ(line.logger, g_TTStdLogger->getName());
    EXPECT_EQ(line.file, "base/src/luaconfig/luaconfig");
    EXPECT_EQ(line.function, function);
    EXPECT_EQ(line.message, message);
}

// Expects exactly this one log line.
void expectOneLine(const LogCapture& log, const std::string& function, const std::string& message) {
    const std::vector<LogLine> lines = log.lines();
    ASSERT_EQ(lines.size(), 1U) << testing::PrintToString(log.messages());
    expectLine(lines[0], function, message);
}

}  // namespace

TEST(LuaConfig, AnswersWhatTheFunctionsOfItsScriptReturn) {
    const LogCapture log;
    Script script(R"(
        prefix = "<"
        function greeting() return "hello" end
        function echo(text) return prefix .. text .. ">" end
        function count(...) return select("#", ...) end
    )");
    EXPECT_EQ(script->getConfig("greeting"), "hello");
    EXPECT_EQ(script->getConfig("echo", "a b"), "<a b>");
    EXPECT_EQ(script->getConfig("echo", ""), "<>");
    EXPECT_EQ(script->getConfig("count"), "0");
    EXPECT_EQ(script->getConfig("count", ""), "1");
    EXPECT_THAT(log.messages(), IsEmpty());
}

TEST(LuaConfig, GivesScriptsTheStandardLibraries) {
    Script script(R"(function libraries()
        return type(string.format) .. type(table.concat) .. type(math.floor) .. type(io.open) .. type(os.time)
            .. type(debug.traceback) .. type(coroutine.create) .. type(require) .. _VERSION
    end)");
    EXPECT_EQ(script->getConfig("libraries"),
              "functionfunctionfunctionfunctionfunctionfunctionfunctionfunctionLua 5.1");
}

TEST(LuaConfig, CallsWhateverGlobalCanBeCalled) {
    Script script(R"(
        t = setmetatable({}, {__call = function(self, text) return "called " .. (text or "without") end})
        shout = string.upper
    )");
    EXPECT_EQ(script->getConfig("t"), "called without");
    EXPECT_EQ(script->getConfig("t", "x"), "called x");
    EXPECT_EQ(script->getConfig("shout", "loud"), "LOUD");
    EXPECT_EQ(script->getConfig("tostring", "library functions too"), "library functions too");
}

TEST(LuaConfig, AnswersNumbersInDecimal) {
    const std::tuple<const char*, const char*> rows[] = {
        {"5", "5"},
        {"-5", "-5"},
        {"0", "0"},
        {"1.5", "1.5"},
        {"0.1", "0.1"},
        {"1/3", "0.33333333333333"},
        {"2^31", "2147483648"},
        {"2^53", "9.007199254741e+15"},
        {"1e15", "1e+15"},
        {"1e14", "1e+14"},
        {"123456789012", "123456789012"},
        {"1e300", "1e+300"},
        {"1e-5", "1e-05"},
        {"math.huge", "inf"},
        {"-math.huge", "-inf"},
    };
    for (const auto& [number, text] : rows) {
        Script script(std::string("function number() return ") + number + " end function text() return tostring(" +
                      number + ") end");
        EXPECT_EQ(script->getConfig("number"), text);
        EXPECT_EQ(script->getConfig("number"), script->getConfig("text"));  // formatted by the interpreter
    }
}

TEST(LuaConfig, WritesNumbersWithAPointUnderEveryLocale) {
    Script script("function half() return 0.5 end  function fails() error(2.5, 0) end");
    const tests::CommaLocale locale;
    if (!locale.isSet()) GTEST_SKIP() << "no locale with a decimal comma can be made here";
    EXPECT_EQ(script->getConfig("half"), "0.5");
    const LogCapture log;
    EXPECT_EQ(script->getConfig("fails"), "");
    EXPECT_THAT(log.messages(), ElementsAre("2.5"));
}

TEST(LuaConfig, AnswersTheTextBeforeTheFirstNul) {
    Script script(R"(
        function half() return "before\0after" end
        function none() return "\0after" end
        function length(text) return #text end
    )");
    EXPECT_EQ(script->getConfig("half"), "before");
    EXPECT_EQ(script->getConfig("none"), "");
    EXPECT_EQ(script->getConfig("length", std::string("ab\0cd", 5)), "2");  // arguments are passed whole
}

TEST(LuaConfig, KeepsEveryOtherByte) {
    Script script("function echo(text) return text end");
    std::string every;
    for (int byte = 1; byte < 256; ++byte)
        every += static_cast<char>(byte);
    EXPECT_EQ(script->getConfig("echo", every), every);
    const std::string large(5000000, 'x');
    EXPECT_EQ(script->getConfig("echo", large), large);
}

TEST(LuaConfig, AnswersNothingForResultsThatAreNoText) {
    const LogCapture log;
    Script script(R"(
        function nothing() end
        function null() return nil end
        function yes() return true end
        function no() return false end
        function list() return {} end
        function named() return setmetatable({}, {__tostring = function() return "text" end}) end
        function code() return print end
        function thread() return coroutine.create(function() end) end
        function handle() return io.stdout end
        function several() return nil, "second" end
    )");
    for (const char* function :
         {"nothing", "null", "yes", "no", "list", "named", "code", "thread", "handle", "several"}) {
        EXPECT_EQ(script->getConfig(function), "") << function;
        EXPECT_EQ(script->getConfig(function, "argument"), "") << function;
    }
    EXPECT_THAT(log.messages(), IsEmpty());
    EXPECT_EQ(LuaConfigPeer::results(*script), 0);
}

TEST(LuaConfig, TakesTheFirstOfSeveralResults) {
    Script script("function both() return 'first', 'second' end");
    EXPECT_EQ(script->getConfig("both"), "first");
    EXPECT_EQ(LuaConfigPeer::results(*script), 0);
}

TEST(LuaConfig, LeavesEveryResultOfTheScriptOnTheStack) {
    const std::tuple<const char*, int> rows[] = {
        {"", 0},
        {"return", 0},
        {"return 1", 1},
        {"return 'a', nil, {}, false", 4},
        {"return unpack({}, 1, 7990)", 7990},
    };
    for (const auto& [source, results] : rows) {
        Script script(std::string("function echo(text) return text end ") + source);
        EXPECT_EQ(LuaConfigPeer::results(*script), results) << source;
        EXPECT_EQ(script->getConfig("echo", "still answering"), "still answering") << source;
        EXPECT_EQ(script->getConfig("missing"), "") << source;
        EXPECT_EQ(LuaConfigPeer::results(*script), results) << source;
    }
}

TEST(LuaConfig, LogsAMissingFunctionAsLuaReportsIt) {
    const LogCapture log;
    Script script("value = 5");
    EXPECT_EQ(script->getConfig("missing"), "");
    expectOneLine(log, "getConfig", kNilCall);
    EXPECT_EQ(script->getConfig("missing", "argument"), "");
    EXPECT_EQ(script->getConfig("value"), "");
    EXPECT_EQ(script->getConfig(""), "");
    EXPECT_THAT(log.messages(), ElementsAre(kNilCall, kNilCall, "attempt to call a number value", kNilCall));
    EXPECT_EQ(LuaConfigPeer::results(*script), 0);
}

TEST(LuaConfig, LogsAnErrorInAFunctionWithItsPlace) {
    const LogCapture log;
    Script script("function fails(text)\n  error('no ' .. (text or 'reason'))\nend\nfunction good() return 'ok' end");
    EXPECT_EQ(script->getConfig("fails"), "");
    expectOneLine(log, "getConfig", script.where() + ":2: no reason");
    EXPECT_EQ(script->getConfig("fails", "luck"), "");
    EXPECT_EQ(log.messages().back(), script.where() + ":2: no luck");
    EXPECT_EQ(script->getConfig("good"), "ok");
    EXPECT_EQ(log.lines().size(), 2U);
    EXPECT_EQ(LuaConfigPeer::results(*script), 0);
}

TEST(LuaConfig, LogsAScriptThatIsMissing) {
    const tests::TempFolder folder;
    const LogCapture log;
    LuaConfig config;
    const std::string path = folder.path("missing.lua");
    config.init(path);
    const std::string reason = "cannot open " + path + ": " + std::strerror(ENOENT);
    expectOneLine(log, "init", reason);
    EXPECT_NE(LuaConfigPeer::interpreter(config), nullptr);
    EXPECT_EQ(LuaConfigPeer::results(config), 0);
    EXPECT_EQ(config.getConfig("getMarkets"), "");
    EXPECT_EQ(config.getConfig("tostring", "the libraries are there"), "the libraries are there");
    EXPECT_EQ(config.getConfig("printLog", "but printLog is not"), "");
    EXPECT_THAT(log.messages(), ElementsAre(reason, kNilCall, kNilCall));
}

TEST(LuaConfig, LogsAScriptThatCannotBeRead) {
    const tests::TempFolder folder;
    const LogCapture log;
    LuaConfig config;
    config.init(folder.path(""));
    ASSERT_EQ(log.lines().size(), 1U);
    EXPECT_THAT(log.messages()[0], HasSubstr("cannot read"));
    EXPECT_EQ(LuaConfigPeer::results(config), 0);
}

// No process ever writes to this pipe.
TEST(LuaConfig, DoesNotWaitForAPipe) {
    const tests::TempFolder folder;
    const std::string path = folder.path("pipe");
    ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
    const LogCapture log;
    LuaConfig config;
    config.init(path);
    expectOneLine(log, "init", "cannot open " + path + ": not a regular file");
    EXPECT_EQ(LuaConfigPeer::results(config), 0);
    EXPECT_EQ(config.getConfig("tostring", "the libraries are there"), "the libraries are there");
    EXPECT_EQ(config.getConfig("getMarkets"), "");
}

TEST(LuaConfig, TakesADeviceForTheScriptThatItHolds) {
    const LogCapture log;
    LuaConfig empty;
    empty.init("/dev/null");
    EXPECT_EQ(empty.getConfig("printLog", "the script ran"), "");
    EXPECT_THAT(log.messages(), ElementsAre("the script ran"));
    LuaConfig endless;
    endless.init("/dev/zero");
    ASSERT_EQ(log.messages().size(), 2U);
    EXPECT_THAT(log.messages()[1], HasSubstr("unexpected symbol"));
}

TEST(LuaConfig, LogsAScriptWithASyntaxError) {
    const LogCapture log;
    Script script("function good() return 'ok' end\nfunction bad( return 'x' end\n");
    expectOneLine(log, "init", script.where() + ":2: <name> or '...' expected near 'return'");
    EXPECT_EQ(script->getConfig("good"), "");  // no part of it ran
    EXPECT_EQ(script->getConfig("printLog", "x"), "");
    EXPECT_EQ(LuaConfigPeer::results(*script), 0);
}

TEST(LuaConfig, KeepsWhatAFailingScriptHadDefined) {
    const LogCapture log;
    Script script("function good() return 'ok' end\nerror('stop')\nfunction late() return 'late' end");
    expectOneLine(log, "init", script.where() + ":2: stop");
    EXPECT_EQ(script->getConfig("good"), "ok");
    EXPECT_EQ(script->getConfig("late"), "");
    EXPECT_EQ(script->getConfig("printLog", "x"), "");
    EXPECT_THAT(log.messages(), ElementsAre(EndsWith("stop"), kNilCall, kNilCall));
    EXPECT_EQ(LuaConfigPeer::results(*script), 0);
}

TEST(LuaConfig, DefinesPrintLogOnlyAfterTheScriptRan) {
    const LogCapture log;
    Script early("printLog('too early')");
    expectOneLine(log, "init", early.where() + ":1: attempt to call global 'printLog' (a nil value)");
    EXPECT_EQ(early->getConfig("printLog", "and still not"), "");
    EXPECT_EQ(log.messages().back(), kNilCall);

    Script late("defined = type(printLog)  function state() return defined .. ' ' .. type(printLog) end");
    EXPECT_EQ(late->getConfig("state"), "nil function");
}

TEST(LuaConfig, WritesWhatFunctionsPrintToTheLog) {
    const LogCapture log;
    Script script("function speak(text) printLog(text) return 'spoken' end");
    EXPECT_THAT(log.messages(), IsEmpty());
    EXPECT_EQ(script->getConfig("speak", "100% {0} %1% \xE8\x82\xA1 \n"), "spoken");
    expectOneLine(log, "luabase::printLog", "100% {0} %1% \xE8\x82\xA1 \n");
    EXPECT_EQ(script->getConfig("printLog", "directly"), "");
    EXPECT_EQ(log.messages().back(), "directly");
}

TEST(LuaConfig, PrintsTextsAndNothingElse) {
    for (const char* arguments : {"5", "nil", "true", "{}", "print", "", "'one', 'two'"}) {
        Script script(std::string("function speak() printLog(") + arguments + ") return 'spoken' end");
        const LogCapture log;
        EXPECT_EQ(script->getConfig("speak"), "") << arguments;
        expectOneLine(log, "getConfig", "No matching overload found, candidates:\nvoid printLog(std::string)");
    }
}

TEST(LuaConfig, LogsTextsAsTheyStand) {
    const LogCapture log;
    Script script("function fails(text) error(text, 0) end");
    const std::vector<std::string> texts = {"100%",   "%s%d%n", "%1% %2%", "%",        "%%",
                                            "{0} {}", "{",      "a\nb",    "\xFF\xFE", ""};
    for (const std::string& text : texts) {
        EXPECT_EQ(script->getConfig("fails", text), "");
        luabase::printLog(text);
    }
    const std::vector<LogLine> lines = log.lines();
    ASSERT_EQ(lines.size(), 2 * texts.size());
    for (std::size_t at = 0; at < texts.size(); ++at) {
        expectLine(lines[2 * at], "getConfig", texts[at]);
        expectLine(lines[2 * at + 1], "luabase::printLog", texts[at]);
    }
}

TEST(LuaConfig, DescribesErrorsThatAreNoText) {
    const std::tuple<const char*, const char*> rows[] = {
        {"error()", "(error object is a nil value)"},
        {"error(nil)", "(error object is a nil value)"},
        {"error(false)", "(error object is a boolean value)"},
        {"error({})", "(error object is a table value)"},
        {"error(setmetatable({}, {__tostring = error}))", "(error object is a table value)"},
        {"error(print)", "(error object is a function value)"},
        {"error(io.stdout)", "(error object is a userdata value)"},
        {"error(coroutine.create(function() end))", "(error object is a thread value)"},
        {"error(42, 0)", "42"},
        {"error('text', 0)", "text"},
    };
    for (const auto& [statement, message] : rows) {
        const LogCapture log;
        Script failing(statement);
        expectOneLine(log, "init", message);
        EXPECT_EQ(LuaConfigPeer::results(*failing), 0);
        Script script(std::string("function fails() ") + statement + " end");
        EXPECT_EQ(script->getConfig("fails"), "");
        EXPECT_EQ(log.messages().back(), message);
        EXPECT_EQ(LuaConfigPeer::results(*script), 0);
    }
}

TEST(LuaConfig, IsSilentWithoutALogger) {
    ASSERT_EQ(g_TTStdLogger, nullptr);
    Script broken("this is no Lua");
    Script script("function fails() error('x') end function good() printLog('x') return 'ok' end");
    EXPECT_EQ(script->getConfig("fails"), "");
    EXPECT_EQ(script->getConfig("missing"), "");
    EXPECT_EQ(script->getConfig("good"), "ok");
    luabase::printLog("x");
}

TEST(LuaConfig, IsSilentWhenTheLoggerWantsNoErrors) {
    const LogCapture log;
    const log4cxx::LevelPtr before = g_TTStdLogger->getLevel();
    g_TTStdLogger->setLevel(log4cxx::Level::getFatal());
    Script broken("this is no Lua");
    Script script("function fails() error('x') end function good() printLog('x') return 'ok' end");
    EXPECT_EQ(script->getConfig("fails"), "");
    EXPECT_EQ(script->getConfig("good"), "ok");
    luabase::printLog("x");
    EXPECT_THAT(log.messages(), IsEmpty());
    g_TTStdLogger->setLevel(log4cxx::Level::getError());
    luabase::printLog("wanted");
    EXPECT_THAT(log.messages(), ElementsAre("wanted"));
    g_TTStdLogger->setLevel(before);
}

TEST(LuaConfig, AnswersNothingBeforeInit) {
    const LogCapture log;
    LuaConfig config;
    EXPECT_EQ(config.getConfig("getMarkets"), "");
    EXPECT_EQ(config.getConfig("getMarketTradeDuration", "SSE"), "");
    EXPECT_EQ(LuaConfigPeer::interpreter(config), nullptr);
    EXPECT_THAT(log.messages(), IsEmpty());
}

TEST(LuaConfig, KeepsInstancesApart) {
    Script one("name = 'one' function who() return name end function rename(text) name = text return name end");
    Script other("name = 'other' function who() return name end");
    EXPECT_EQ(one->getConfig("rename", "new"), "new");
    EXPECT_EQ(one->getConfig("who"), "new");
    EXPECT_EQ(other->getConfig("who"), "other");
}

TEST(LuaConfig, IsNeverCopied) {
    EXPECT_FALSE(std::is_copy_constructible_v<LuaConfig>);
    EXPECT_FALSE(std::is_copy_assignable_v<LuaConfig>);
    EXPECT_FALSE(std::is_move_constructible_v<LuaConfig>);
}
