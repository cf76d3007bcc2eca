// ttconfig sessions.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <string>
#include <tuple>
#include <vector>

#include "tests/support/tempfile.h"
#include "tests/tools/ttconfig/support/toolrun.h"

namespace {

using nlohmann::json;
using testing::HasSubstr;
using tests::runTool;
using tests::ToolRun;

constexpr const char* kTimes = R"(
function getMarkets() return '{"SH": 1, "NIGHT": 1, "NEVER": 1, "SH": 2}' end
local texts = {
    SH = '{"93000": 50, "113000": 49, "130000": 50, "150000": 49}',
    NIGHT = '{"210000": 50, "23000": 49}',
    NEVER = '{}',
}
function getMarketTradeDuration(market) return texts[market] end
)";

// A folder with the client's script in its place, and another script.
class Client {
public:
    Client() {
        folder.write("luaScripts/MarketTime.lua", kTimes);
        folder.write("bin/empty", "");
        other = folder.write("other.lua",
                             "function getMarkets() return '{\"X\": 1}' end "
                             "function getMarketTradeDuration() return '{\"100000\": 50, \"110000\": 54}' end");
    }

    ToolRun sessions(std::vector<std::string> words) const {
        words.insert(words.begin(), {"sessions", "-C", folder.path("bin")});
        return runTool(words);
    }

    tests::TempFolder folder;
    std::string other;
};

}  // namespace

TEST(Sessions, ShowAllMarketsInTheOrderOfTheScript) {
    const ToolRun run = Client().sessions({});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(run.out,
              "market  sessions\n"
              "SH      09:30:00-11:30:00, 13:00:00-15:00:00\n"
              "NIGHT   21:00:00-24:00:00\n"
              "NEVER   none\n");
}

TEST(Sessions, ShowOnlyTheNamedMarkets) {
    const Client client;
    EXPECT_EQ(client.sessions({"NEVER", "SH"}).out,
              "market  sessions\n"
              "NEVER   none\n"
              "SH      09:30:00-11:30:00, 13:00:00-15:00:00\n");
    const ToolRun run = client.sessions({"NIGHTS"});
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_EQ(run.out, "");
    EXPECT_THAT(run.err, HasSubstr("../luaScripts/MarketTime.lua lists no market \"NIGHTS\"; did you mean NIGHT?"));
}

TEST(Sessions, BeginWithTheirStartAndEndBeforeTheirEnd) {
    const Client client;
    const std::tuple<const char*, bool, bool> rows[] = {
        {"09:29:59", false, false}, {"09:30:00", true, false}, {"11:29:59", true, false},  {"11:30:00", false, false},
        {"12:00", false, false},    {"13:00:00", true, false}, {"15:00:00", false, false}, {"20:59:59", false, false},
        {"21:00:00", false, true},  {"23:59:59", false, true}, {"00:00:00", false, false}, {"02:00:00", false, false},
    };
    for (const auto& [time, day, night] : rows) {
        const ToolRun run = client.sessions({"--at", time, "--format", "json"});
        EXPECT_EQ(
            json::parse(run.out),
            json::array(
                {json{{"market", "SH"}, {"open", day}, {"sessions", json::parse("[[34200,41400],[46800,54000]]")}},
                 json{{"market", "NIGHT"}, {"open", night}, {"sessions", json::parse("[[75600,86400]]")}},
                 json{{"market", "NEVER"}, {"open", false}, {"sessions", json::array()}}}))
            << time;
    }
    EXPECT_EQ(client.sessions({"--at", "10:00:00", "SH", "NIGHT"}).out,
              "market  open    sessions\n"
              "SH      open    09:30:00-11:30:00, 13:00:00-15:00:00\n"
              "NIGHT   closed  21:00:00-24:00:00\n");
}

TEST(Sessions, RefuseTextsThatAreNotTimes) {
    const Client client;
    for (const char* time : {"930", "9:30", "24:00:00", "noon", ""}) {
        const ToolRun run = client.sessions({"--at", time});
        EXPECT_EQ(run.exitCode, 2) << time;
        EXPECT_EQ(run.out, "");
    }
}

TEST(Sessions, ComeFromTheNamedScript) {
    const Client client;
    const ToolRun run = client.sessions({"--script", client.other});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.out, "market  sessions\nX       10:00:00-11:00:00\n");
    EXPECT_EQ(client.sessions({"--script", client.other, "SH"}).exitCode, 2);
}

TEST(Sessions, NeedAScript) {
    const tests::TempFolder folder;
    for (const std::vector<std::string>& words : {std::vector<std::string>{"sessions", "-C", folder.path("")},
                                                  {"sessions", "--script", folder.path("none.lua")}}) {
        const ToolRun run = runTool(words);
        EXPECT_EQ(run.exitCode, 3);
        EXPECT_EQ(run.out, "");
        EXPECT_THAT(run.err, HasSubstr("no such file"));
    }
}

TEST(Sessions, AreEmptyForAScriptThatListsNoMarkets) {
    const tests::TempFolder folder;
    for (const char* source : {"", "this is no Lua", "function getMarkets() return '[1]' end"}) {
        const ToolRun run = runTool({"sessions", "--script", folder.write("s.lua", source)});
        EXPECT_EQ(run.exitCode, 0);
        EXPECT_EQ(run.out, "market  sessions\n");
        EXPECT_THAT(run.err, HasSubstr("lists no markets; ttconfig script check tells why"));
    }
}
