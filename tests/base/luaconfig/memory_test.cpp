// An interpreter that runs out of memory at every possible point.

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <limits>
#include <lua.hpp>
#include <new>
#include <string>
#include <vector>

#include "luaconfig/internal/tablescript.h"
#include "luaconfig/luaconfig.h"
#include "standin/logsetup.h"
#include "tests/base/luaconfig/script.h"

using luabase::LuaConfig;
using luabase::LuaConfigPeer;
using luabase::TableScript;
using standin::LogCapture;
using testing::ElementsAre;

namespace {

// The number of allocations that still succeed in an interpreter; -1 means no limit.
long budget = -1;

// The bytes that an interpreter holds, and its limit.
std::size_t held = 0;
std::size_t mostHeld = std::numeric_limits<std::size_t>::max();

void* limited(void*, void* block, std::size_t before, std::size_t wanted) {
    if (wanted == 0) {
        held -= before;
        std::free(block);
        return nullptr;
    }
    if (wanted > before) {
        if (budget == 0 || held - before + wanted > mostHeld) return nullptr;
        if (budget > 0) --budget;
    }
    held += wanted - before;
    return std::realloc(block, wanted);
}

// Loads the script with memory for no allocation, for one, for two and so on until it succeeds. Returns 0, or the
// number of the first failed check.
int loadUntilItSucceeds(const std::string& path) {
    for (long points = 0;; ++points) {
        const LogCapture log;
        LuaConfig config;
        budget = points;
        bool interpreter = true;
        try {
            config.init(path);
        } catch (const std::bad_alloc&) {
            interpreter = false;
        }
        budget = -1;
        if (interpreter != (LuaConfigPeer::interpreter(config) != nullptr)) return 6;
        const std::string answer = config.getConfig("ask", "!");
        if (log.messages().empty()) {  // the load succeeded
            if (answer.size() != 101) return 1;
            if (LuaConfigPeer::results(config) != 3) return 2;
            return points > 300 ? 0 : 3;  // the number of allocations, each of which has failed once
        }
        if (log.messages()[0] != "not enough memory" || log.lines()[0].function != "init") return 4;
        if (!answer.empty() && answer.size() != 101) return 5;
    }
}

// Which standard streams of the process are open.
std::vector<bool> openStreams() {
    return {fcntl(0, F_GETFD) != -1, fcntl(1, F_GETFD) != -1, fcntl(2, F_GETFD) != -1};
}

template <typename Work>
bool isOutOfMemory(const Work& work) {
    try {
        work();
        return false;
    } catch (const std::bad_alloc&) {
        return true;
    }
}

}  // namespace

// Replaces the function of the interpreter's library. Sets no panic function: an uncaught error would end the process,
// and with it the test.
extern "C" lua_State* luaL_newstate() {
    return lua_newstate(limited, nullptr);
}

TEST(LuaConfig, SurvivesAnInterpreterThatCannotBeMade) {
    const LogCapture log;
    LuaConfig config;
    budget = 0;
    EXPECT_THROW(config.init("any.lua"), std::bad_alloc);
    EXPECT_THAT(log.messages(), ElementsAre("not enough memory"));
    EXPECT_EQ(log.lines()[0].function, "init");
    EXPECT_EQ(LuaConfigPeer::interpreter(config), nullptr);
    EXPECT_EQ(config.getConfig("getMarkets"), "");
    EXPECT_EQ(log.lines().size(), 1U);
}

// If creating the handles for the standard streams fails halfway, Lua's io library would close the streams at the end.
TEST(LuaConfig, SurvivesMemoryThatRunsOutWhileTheScriptIsLoaded) {
    const tests::TempFolder folder;
    const std::string path = folder.write(
        "script.lua", "text = string.rep('x', 100) function ask(t) return text .. t end return 1, text, {}");
    const std::vector<bool> streams = openStreams();
    EXPECT_EQ(loadUntilItSucceeds(path), 0);
    EXPECT_EQ(openStreams(), streams);
}

// A lost answer must not be used to fill a table.
TEST(LuaConfig, TellsTablesOfMemoryThatRanOutWhileTheScriptWasLoaded) {
    const tests::TempFolder folder;
    const std::string path = folder.write("script.lua", "function ask(t) return 'the answer to ' .. t end");
    long refused = 0;
    for (bool complete = false; !complete; ++refused) {
        LuaConfig config;
        budget = refused;
        complete = !isOutOfMemory([&] { TableScript::init(config, path); });
        budget = -1;
        if (complete) {
            EXPECT_EQ(TableScript::getConfig(config, "ask", "!"), "the answer to !");
        } else if (LuaConfigPeer::interpreter(config) != nullptr) {
            EXPECT_THROW(TableScript::getConfig(config, "ask", "!"), std::bad_alloc) << refused;
        }
    }
    EXPECT_GT(refused, 300);
}

TEST(LuaConfig, TellsTablesOfMemoryThatRunsOutDuringACall) {
    const tests::TempFolder folder;
    const std::string path = folder.write("script.lua",
                                          "function ask(t) return table.concat({t, t .. t, t}) end "
                                          "function fail() error('an error of its own') end");
    LogCapture log;
    LuaConfig config;
    TableScript::init(config, path);
    long refused = 0;
    for (bool complete = false; !complete; ++refused) {
        const std::string argument = "argument " + std::to_string(refused) + ", ";
        std::string answer;
        log.clear();
        budget = refused;
        complete = !isOutOfMemory([&] { answer = TableScript::getConfig(config, "ask", argument); });
        budget = -1;
        EXPECT_EQ(answer, complete ? argument + argument + argument + argument : "") << refused;
        EXPECT_EQ(log.messages().size(), complete ? 0U : 1U) << refused;
    }
    EXPECT_GT(refused, 5);
    EXPECT_EQ(TableScript::getConfig(config, "fail"), "");
    EXPECT_EQ(TableScript::getConfig(config, "missing"), "");
}

// The process itself has memory then, and the only remedy is to fix the script.
TEST(LuaConfig, TakesAScriptThatTakesAllMemoryForOneThatFails) {
    const tests::TempFolder folder;
    const std::string eat = "local all = {} for i = 1, 1e9 do all[i] = string.rep('x', 100000) .. i end";
    mostHeld = std::size_t{100} << 20;
    {
        const LogCapture log;
        LuaConfig config;
        TableScript::init(config,
                          folder.write("calls.lua", "function ask(t) return t end function eat() " + eat + " end"));
        EXPECT_EQ(TableScript::getConfig(config, "eat"), "");
        EXPECT_THAT(log.messages(), ElementsAre("not enough memory"));
    }
    {
        const LogCapture log;
        LuaConfig config;
        TableScript::init(config, folder.write("top.lua", "function ask(t) return t end " + eat));
        EXPECT_EQ(TableScript::getConfig(config, "missing"), "");
        ASSERT_FALSE(log.messages().empty());
        EXPECT_EQ(log.messages()[0], "not enough memory");
    }
    mostHeld = std::numeric_limits<std::size_t>::max();
    EXPECT_EQ(held, 0U);
}

TEST(LuaConfig, SurvivesMemoryThatRunsOutDuringACall) {
    const tests::TempFolder folder;
    const std::string path = folder.write("script.lua",
                                          "function ask(t) local all = {} for i = 1, 20 do all[i] = t .. i end "
                                          "return table.concat(all) end return unpack({}, 1, 40)");
    LuaConfig config;
    budget = -1;
    config.init(path);
    const std::string expected = config.getConfig("ask", "a");
    EXPECT_EQ(expected.size(), 51U);
    long points = 0;
    for (bool complete = false; !complete; ++points) {
        const LogCapture log;
        const std::string argument = "argument " + std::to_string(points);
        budget = points;
        complete = !config.getConfig("ask", argument).empty();
        if (!complete) {
            ASSERT_THAT(log.messages(), ElementsAre("not enough memory")) << points;
            EXPECT_EQ(log.lines()[0].function, "getConfig");
        }
        budget = -1;
        EXPECT_EQ(LuaConfigPeer::results(config), 40) << points;
        EXPECT_EQ(config.getConfig("ask", "a"), expected) << points;
    }
    EXPECT_GT(points, 20);
}
