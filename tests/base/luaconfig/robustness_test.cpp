// Scripts that misbehave: each gives a log line and an empty answer, and never ends the process.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <log4cxx/appenderskeleton.h>
#include <log4cxx/logger.h>

#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "luaconfig/luaconfig.h"
#include "standin/logsetup.h"
#include "tests/base/luaconfig/script.h"
#include "ttplatform/logging.h"

using luabase::LuaConfig;
using luabase::LuaConfigPeer;
using standin::LogCapture;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using tests::Script;

namespace {

// Calls back on every line of the standard logger, and so also from inside a script's printLog.
class Listener : public log4cxx::AppenderSkeleton {
public:
    using Callback = std::function<void(const std::string& message)>;
    explicit Listener(Callback callback) : onLine(std::move(callback)) {}

    void close() override {}
    bool requiresLayout() const override { return false; }
    // Bypasses the base class, which holds a lock and drops lines logged from inside another line.
    void doAppend(const log4cxx::spi::LoggingEventPtr& event, log4cxx::helpers::Pool&) override {
        onLine(event->getRenderedMessage());
    }

protected:
    void append(const log4cxx::spi::LoggingEventPtr&, log4cxx::helpers::Pool&) override {}

private:
    Callback onLine;
};

class Listening {
public:
    explicit Listening(Listener::Callback callback) : listener(std::make_shared<Listener>(std::move(callback))) {
        g_TTStdLogger->addAppender(listener);
    }
    Listening(const Listening&) = delete;
    Listening& operator=(const Listening&) = delete;
    ~Listening() { g_TTStdLogger->removeAppender(listener); }

private:
    log4cxx::AppenderPtr listener;
};

}  // namespace

TEST(LuaConfig, SurvivesMetatablesOfTheGlobals) {
    const std::tuple<const char*, const char*> rows[] = {
        {"setmetatable(_G, {__index = function(_, name) error('no ' .. name, 0) end})", "no missing"},
        {"setmetatable(_G, {__index = function(_, name) error({}) end})", "(error object is a table value)"},
        {"setmetatable(_G, {__index = function() return nil end})", "attempt to call a nil value"},
        {"setmetatable(_G, {__index = _G})", "loop in gettable"},
        {"local function again(t, name) return t[name .. 'x'] end setmetatable(_G, {__index = again})",
         "stack overflow"},
        {"setmetatable(_G, {__index = coroutine.wrap(function() while true do coroutine.yield(nil) end end)})",
         "attempt to call a nil value"},
    };
    for (const auto& [source, message] : rows) {
        const LogCapture log;
        Script script(std::string("function good() return 'ok' end ") + source);
        EXPECT_THAT(log.messages(), IsEmpty()) << source;
        EXPECT_EQ(script->getConfig("missing"), "") << source;
        ASSERT_THAT(log.messages(), SizeIs(1)) << source;
        EXPECT_THAT(log.messages()[0], HasSubstr(message)) << source;
        EXPECT_EQ(script->getConfig("good"), "ok") << source;
        EXPECT_EQ(LuaConfigPeer::results(*script), 0) << source;
    }
}

TEST(LuaConfig, AnswersFromTheGlobalsMetatable) {
    Script script("setmetatable(_G, {__index = function(_, name) return function() return 'made ' .. name end end})");
    EXPECT_EQ(script->getConfig("anything"), "made anything");
}

// Scripts may protect their globals against new names, but must still get printLog.
TEST(LuaConfig, RegistersPrintLogPastGuardedGlobals) {
    for (const char* guard : {"__newindex = function(_, name) error('no new ' .. name, 0) end",
                              "__index = function(_, name) error('no ' .. name, 0) end", "__newindex = function() end",
                              "__metatable = false"}) {
        const LogCapture log;
        Script script(std::string("function speak() printLog('spoken') return 'ok' end setmetatable(_G, {") + guard +
                      "})");
        EXPECT_EQ(script->getConfig("speak"), "ok") << guard;
        EXPECT_THAT(log.messages(), ElementsAre("spoken")) << guard;
    }
}

TEST(LuaConfig, TakesItsOwnPrintLogOverTheScripts) {
    const LogCapture log;
    Script script(R"(
        function printLog(text) error("the script's own") end
        function speak() printLog("spoken") return "ok" end
        function replace() printLog = function() end collectgarbage() return speak() end
        function remove() printLog = nil collectgarbage() return "gone" end
    )");
    EXPECT_EQ(script->getConfig("speak"), "ok");
    EXPECT_THAT(log.messages(), ElementsAre("spoken"));
    EXPECT_EQ(script->getConfig("replace"), "ok");
    EXPECT_EQ(script->getConfig("remove"), "gone");
    EXPECT_EQ(script->getConfig("printLog", "x"), "");
    EXPECT_THAT(log.messages(), ElementsAre("spoken", "attempt to call a nil value"));
}

TEST(LuaConfig, SurvivesScriptsThatTakeTheGlobalsAway) {
    const LogCapture log;
    Script empty("setfenv(0, {})");
    EXPECT_EQ(empty->getConfig("tostring", "x"), "");
    Script cleared("local g = _G for name in pairs(g) do g[name] = nil end");
    EXPECT_EQ(cleared->getConfig("tostring", "x"), "");
    Script registry("local r = debug.getregistry() for key in pairs(r) do r[key] = nil end");
    EXPECT_EQ(registry->getConfig("tostring", "x"), "x");
    EXPECT_THAT(log.messages(), SizeIs(2));
}

TEST(LuaConfig, EndsRunawayRecursionWithAnError) {
    const std::tuple<const char*, const char*> rows[] = {
        {"local function down() return 1 + down() end down()", "stack overflow"},
        {"local function down() return tostring(pcall(down)) end error(down(), 0)", "true"},
        {"local t = setmetatable({}, {}) getmetatable(t).__index = function(t, k) return t[k] end local x = t[1]",
         "stack overflow"},
        {"local function down() coroutine.wrap(down)() end down()", "C stack overflow"},
        {"local function down(e) error(e) end error(tostring(select(2, xpcall(error, down))), 0)", ""},
        {"local s = string.rep('(', 10000) .. string.rep(')', 10000) error(select(2, loadstring('return ' .. s)), 0)",
         "chunk has too many syntax levels"},
        {"local function down(a) return (string.gsub('a', 'a', down)) end down()", "C stack overflow"},
        {"local function sorter(a, b) table.sort({3, 2, 1}, sorter) end sorter()", "C stack overflow"},
    };
    for (const auto& [source, message] : rows) {
        const LogCapture log;
        Script script(std::string("function fails() ") + source + " end function good() return 'ok' end");
        EXPECT_EQ(script->getConfig("fails"), "") << source;
        ASSERT_THAT(log.messages(), SizeIs(1)) << source;
        EXPECT_THAT(log.messages()[0], HasSubstr(message)) << source;
        EXPECT_EQ(script->getConfig("good"), "ok") << source;
        Script failing(source);  // the same at the top level
        EXPECT_THAT(log.messages(), SizeIs(2)) << source;
        EXPECT_EQ(LuaConfigPeer::results(*failing), 0) << source;
    }
}

TEST(LuaConfig, SurvivesCoroutines) {
    const LogCapture log;
    Script script(R"(
        local inner = coroutine.wrap(function(text)
            while true do text = coroutine.yield("co " .. text) end
        end)
        function next(text) return inner(text) end
        function speak() return coroutine.wrap(function() printLog("from inside") return "ok" end)() end
        function fails() return coroutine.wrap(function() error("inside", 0) end)() end
        function yields() coroutine.yield("x") end
        resumed = coroutine.create(function() end)
        coroutine.resume(resumed)
        function dead() error(select(2, coroutine.resume(resumed)), 0) end
    )");
    EXPECT_EQ(script->getConfig("next", "1"), "co 1");
    EXPECT_EQ(script->getConfig("next", "2"), "co 2");
    EXPECT_EQ(script->getConfig("speak"), "ok");
    EXPECT_EQ(script->getConfig("fails"), "");
    EXPECT_EQ(script->getConfig("yields"), "");
    EXPECT_EQ(script->getConfig("dead"), "");
    EXPECT_THAT(log.messages(),
                ElementsAre("from inside", EndsWith("inside"), "attempt to yield across metamethod/C-call boundary",
                            "cannot resume dead coroutine"));
}

TEST(LuaConfig, SurvivesErrorsOfTheCollector) {
    const LogCapture log;
    Script script(R"(
        function fails()
            getmetatable(newproxy(true)).__gc = function() error("collected", 0) end
            collectgarbage()
        end
        getmetatable(newproxy(true)).__gc = function() error("at the end") end
        left = newproxy(true)
        getmetatable(left).__gc = function() left = newproxy(left) error("again") end
        function good() return "ok" end
    )");
    script->getConfig("fails");
    EXPECT_EQ(script->getConfig("good"), "ok");
    EXPECT_EQ(LuaConfigPeer::results(*script), 0);
}

TEST(LuaConfig, SurvivesHooksThatRaise) {
    const LogCapture log;
    Script script("function good() return 'ok' end debug.sethook(function() error('hooked', 0) end, 'crl', 1)");
    EXPECT_EQ(script->getConfig("good"), "");
    EXPECT_THAT(log.messages(), testing::Each(EndsWith("hooked")));
    EXPECT_FALSE(log.messages().empty());
}

TEST(LuaConfig, KeepsExceptionsOfTheHostAwayFromScripts) {
    const LogCapture log;
    Script script("function speak() printLog('x') return 'ok' end");
    const std::function<void()> throwers[] = {[] { throw std::runtime_error("x"); }, [] { throw 5; },
                                              [] { throw std::bad_alloc(); }};
    for (const auto& thrower : throwers) {
        const Listening listening([&](const std::string&) { thrower(); });
        EXPECT_EQ(script->getConfig("speak"), "ok");
        EXPECT_EQ(script->getConfig("missing"), "");
        EXPECT_NO_THROW(luabase::printLog("x"));
        EXPECT_EQ(LuaConfigPeer::results(*script), 0);
    }
}

TEST(LuaConfig, AnswersCallsThatComeBackFromPrintLog) {
    const LogCapture log;
    Script script(R"(
        function outer() printLog("ask") return "outer after " .. seen end
        function inner(text) seen = text return "inner " .. text end
        function broken() error("inner error", 0) end
    )");
    std::vector<std::string> answers;
    const Listening listening([&](const std::string& message) {
        if (message != "ask") return;
        answers.push_back(script->getConfig("inner", "one"));
        answers.push_back(script->getConfig("broken"));
        answers.push_back(script->getConfig("inner", "two"));
    });
    EXPECT_EQ(script->getConfig("outer"), "outer after two");
    EXPECT_THAT(answers, ElementsAre("inner one", "", "inner two"));
    EXPECT_EQ(LuaConfigPeer::results(*script), 0);
}

TEST(LuaConfig, AnswersCallsThatComeBackFromACoroutine) {
    const LogCapture log;
    Script script(R"(
        function outer() return coroutine.wrap(function() printLog("ask") return "outer after " .. seen end)() end
        function inner(text) seen = text error(text, 0) end
    )");
    const Listening listening([&](const std::string& message) {
        if (message == "ask") script->getConfig("inner", "inside");
    });
    EXPECT_EQ(script->getConfig("outer"), "outer after inside");
    EXPECT_EQ(LuaConfigPeer::results(*script), 0);
}

TEST(LuaConfig, EndsCallsThatComeBackForEver) {
    const LogCapture log;
    Script script("function ask() printLog('again') return 'ok' end");
    int calls = 0;
    const Listening listening([&](const std::string& message) {
        if (message != "again") return;
        ++calls;
        script->getConfig("ask");
    });
    EXPECT_EQ(script->getConfig("ask"), "ok");  // the innermost call fails, all others return
    EXPECT_GT(calls, 10);
    EXPECT_LT(calls, 250);
    EXPECT_EQ(LuaConfigPeer::results(*script), 0);
}

TEST(LuaConfig, BearsAnInitFromInsideACall) {
    const LogCapture log;
    const tests::TempFolder folder;
    const std::string path = folder.write("new.lua", "function ask() return 'new' end");
    for (const bool fails : {false, true}) {
        Script script(fails ? "function ask() printLog('again') error('old', 0) end"
                            : "function ask() printLog('again') return 'old' end");
        lua_State* const before = LuaConfigPeer::interpreter(*script);
        const Listening listening([&](const std::string& message) {
            if (message == "again") script->init(path);
        });
        EXPECT_EQ(script->getConfig("ask"), fails ? "" : "old");
        EXPECT_EQ(log.messages().back(), fails ? "old" : "again");
        EXPECT_EQ(lua_gettop(before), 0);
        EXPECT_EQ(script->getConfig("ask"), "new");
        EXPECT_EQ(LuaConfigPeer::results(*script), 0);
        lua_close(before);  // init() abandoned it without closing it
    }
}

TEST(LuaConfig, BearsAnswersAndArgumentsOfAnySize) {
    const LogCapture log;
    Script script(R"(
        function large(size) return string.rep("x", tonumber(size)) end
        function long() error(string.rep("e", 1000000), 0) end
        function many() return unpack({}, 1, 7000) end
        function toomany() return unpack({}, 1, 1000000) end
        function echo(text) return text end
    )");
    EXPECT_EQ(script->getConfig("large", "10000000").size(), 10000000U);
    EXPECT_EQ(script->getConfig("long"), "");
    EXPECT_EQ(log.messages().back().size(), 1000000U);
    EXPECT_EQ(script->getConfig("many"), "");
    EXPECT_EQ(script->getConfig("toomany"), "");
    EXPECT_THAT(log.messages().back(), HasSubstr("too many results to unpack"));
    EXPECT_EQ(script->getConfig(std::string(1000000, 'n')), "");
    EXPECT_EQ(script->getConfig("echo", std::string(1000000, 'a')).size(), 1000000U);
    EXPECT_EQ(LuaConfigPeer::results(*script), 0);
}
