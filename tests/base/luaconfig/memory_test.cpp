// An interpreter that runs out of memory, at every single point where it could.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <lua.hpp>
#include <string>

#include "luaconfig/luaconfig.h"
#include "standin/logsetup.h"
#include "tests/base/luaconfig/script.h"
#include "tests/support/sanitizers.h"

#if TT_ADDRESS_SANITIZER
#include <sanitizer/lsan_interface.h>
// What luabind has begun when Lua's error jumps over it is lost; that is its business.
using LeaksAllowed = __lsan::ScopedDisabler;
#else
struct LeaksAllowed {
    LeaksAllowed() {}
};
#endif

using luabase::LuaConfig;
using luabase::LuaConfigPeer;
using standin::LogCapture;
using testing::ElementsAre;

namespace {

// How many more times an interpreter gets memory before there is no more; -1: for ever.
long budget = -1;

void* limited(void*, void* block, std::size_t before, std::size_t wanted) {
    if (wanted == 0) {
        std::free(block);
        return nullptr;
    }
    if (wanted > before) {
        if (budget == 0) return nullptr;
        if (budget > 0) --budget;
    }
    return std::realloc(block, wanted);
}

// Loads the script with memory for no request, for one, for two and so on until that is enough. Answers 0, or the
// number of the first check that failed.
int loadUntilItSucceeds(const std::string& path) {
    const LeaksAllowed leaksAllowed;
    for (long points = 0;; ++points) {
        const LogCapture log;
        LuaConfig config;
        budget = points;
        config.init(path);
        budget = -1;
        const std::string answer = config.getConfig("ask", "!");
        if (log.messages().empty()) {  // it was enough
            if (answer.size() != 101) return 1;
            if (LuaConfigPeer::results(config) != 3) return 2;
            return points > 300 ? 0 : 3;  // so many requests there are, and each was refused once
        }
        if (log.messages()[0] != "not enough memory" || log.lines()[0].function != "init") return 4;
        if (!answer.empty() && answer.size() != 101) return 5;
    }
}

}  // namespace

// Stands in for the one in the interpreter's library. There is no panic function: an error that nothing catches would
// end the process, and the test with it.
extern "C" lua_State* luaL_newstate() {
    return lua_newstate(limited, nullptr);
}

TEST(LuaConfig, SurvivesAnInterpreterThatCannotBeMade) {
    const LogCapture log;
    LuaConfig config;
    budget = 0;
    config.init("any.lua");
    EXPECT_THAT(log.messages(), ElementsAre("not enough memory"));
    EXPECT_EQ(log.lines()[0].function, "init");
    EXPECT_EQ(LuaConfigPeer::interpreter(config), nullptr);
    EXPECT_EQ(config.getConfig("getMarkets"), "");
    EXPECT_EQ(log.lines().size(), 1U);
}

// Lua's io library, cut short while it takes over the standard streams, closes them in the end. So this is tried in a
// process of its own, which tells by its exit code alone: 0, or what was wrong.
TEST(LuaConfig, SurvivesMemoryThatRunsOutWhileTheScriptIsLoaded) {
    const tests::TempFolder folder;
    const std::string path = folder.write(
        "script.lua", "text = string.rep('x', 100) function ask(t) return text .. t end return 1, text, {}");
    EXPECT_EXIT(std::_Exit(loadUntilItSucceeds(path)), testing::ExitedWithCode(0), "");
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
