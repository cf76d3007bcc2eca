#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <cstddef>
#include <fstream>
#include <string>
#include <thread>
#include <vector>

#include "luaconfig/luaconfig.h"
#include "standin/logsetup.h"
#include "tests/base/luaconfig/script.h"
#include "tests/support/sanitizers.h"

using luabase::LuaConfig;
using luabase::LuaConfigPeer;
using standin::LogCapture;
using tests::Script;

namespace {

// Under a sanitizer, each round takes about twenty times as long, so run a twentieth of them.
constexpr int kShare = tests::kUnderSanitizer ? 20 : 1;

// The memory in use by the process, in bytes; 0 if the system does not report it or a sanitizer delays freeing it.
std::size_t memoryInUse() {
    std::size_t pages = 0;
    std::size_t resident = 0;
    if (tests::kUnderSanitizer || !(std::ifstream("/proc/self/statm") >> pages >> resident)) return 0;
    return resident * 4096;
}

constexpr std::size_t kSlack = std::size_t{2} << 20;

template <typename Round>
void expectNoGrowth(int rounds, const Round& round) {
    for (int warm = 0; warm < rounds / 10; ++warm)
        round();
    const std::size_t before = memoryInUse();
    for (int done = 0; done < rounds; ++done)
        round();
    EXPECT_LE(memoryInUse(), before + kSlack);
}

}  // namespace

TEST(LuaConfigStress, LifetimesLeaveNothingBehind) {
    const tests::TempFolder folder;
    const std::string good =
        folder.write("good.lua", "function ask(text) return '<' .. text .. '>' end return {}, 'x'");
    const std::string broken = folder.write("broken.lua", "t = {} error(t)");
    expectNoGrowth(10000 / kShare, [&] {
        LuaConfig config;
        config.init(good);
        ASSERT_EQ(config.getConfig("ask", "x"), "<x>");
        LuaConfig other;
        other.init(broken);
        ASSERT_EQ(other.getConfig("ask"), "");
    });
}

TEST(LuaConfigStress, CallsLeaveNothingBehind) {
    Script script(R"(
        local calls = 0
        function constant() return "always the same" end
        function fresh(text) calls = calls + 1 return text .. calls end
        function fails(text) error(text) end
        function count() return calls end
    )");
    // Constant answers first: they allocate nothing in the script, so they do not trigger the garbage collector.
    expectNoGrowth(100000 / kShare, [&] { ASSERT_EQ(script->getConfig("constant"), "always the same"); });
    expectNoGrowth(100000 / kShare, [&] { ASSERT_FALSE(script->getConfig("fresh", "text ").empty()); });
    expectNoGrowth(100000 / kShare, [&] { ASSERT_EQ(script->getConfig("missing"), ""); });
    expectNoGrowth(100000 / kShare, [&] { ASSERT_EQ(script->getConfig("fails", "reason"), ""); });
    EXPECT_EQ(script->getConfig("count"), std::to_string(100000 / kShare + 100000 / kShare / 10));
    EXPECT_EQ(LuaConfigPeer::results(*script), 0);
}

TEST(LuaConfigStress, ThreadsShareAnInstance) {
    const LogCapture log;
    Script script(R"(
        local running, calls = false, 0
        function ask(text)
            if running then error("two at once") end
            running = true
            for i = 1, 100 do calls = calls + 1 end
            if text == "7 7" then printLog("seven") end
            running = false
            return "<" .. text .. ">"
        end
        function count() return calls end
    )");
    constexpr int kThreads = 8;
    constexpr int kCalls = 2000 / kShare;
    std::atomic<int> wrong{0};
    std::vector<std::thread> threads;
    threads.reserve(kThreads);
    for (int thread = 0; thread < kThreads; ++thread) {
        threads.emplace_back([&, thread] {
            for (int call = 0; call < kCalls; ++call) {
                const std::string text = std::to_string(thread) + " " + std::to_string(call);
                if (script->getConfig("ask", text) != "<" + text + ">") ++wrong;
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(wrong, 0);
    EXPECT_EQ(script->getConfig("count"), std::to_string(kThreads * kCalls * 100));
    EXPECT_THAT(log.messages(), testing::ElementsAre("seven"));
}

TEST(LuaConfigStress, ThreadsUseInstancesOfTheirOwn) {
    const LogCapture log;
    const tests::TempFolder folder;
    const std::string path = folder.write("script.lua", "function ask(text) printLog(text) return text end");
    constexpr int kThreads = 8;
    constexpr int kRounds = 200 / kShare;
    std::vector<std::thread> threads;
    threads.reserve(kThreads);
    for (int thread = 0; thread < kThreads; ++thread) {
        threads.emplace_back([&, thread] {
            for (int round = 0; round < kRounds; ++round) {
                LuaConfig config;
                config.init(path);
                EXPECT_EQ(config.getConfig("ask", std::to_string(thread)), std::to_string(thread));
                EXPECT_EQ(config.getConfig("missing"), "");
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(log.lines().size(), static_cast<std::size_t>(2 * kThreads * kRounds));
}
