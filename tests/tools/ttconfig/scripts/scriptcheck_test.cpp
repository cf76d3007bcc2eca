// ttconfig script check.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <nlohmann/json.hpp>
#include <string>
#include <tuple>
#include <vector>

#include "tests/support/sanitizers.h"
#include "tests/support/tempfile.h"
#include "tests/tools/ttconfig/support/toolrun.h"
#include "traderbase/base/config/internal/scripts/jsonobject.h"
#include "traderbase/base/config/internal/scripts/vendorblocks.h"

namespace {

using nlohmann::json;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::SizeIs;
using testing::StartsWith;
using tests::runTool;
using tests::ToolRun;

const std::string kSamples = std::string(TT_SOURCE_DIR) + "/samples/luaScripts/";

constexpr const char* kGoodTimes = R"(
function getMarkets() return '{"A": 1, "B": 1}' end
function getMarketTradeDuration(market) return '{"93000": 50, "150000": 49}' end
)";

class ScriptFile {
public:
    explicit ScriptFile(const std::string& source) : path(folder.write("s.lua", source)) {}

    ToolRun check(std::vector<std::string> options = {}) const {
        options.insert(options.begin(), {"script", "check", path});
        return runTool(options);
    }

    // The findings without the leading path.
    std::vector<std::string> findings() const {
        const ToolRun run = check();
        EXPECT_EQ(run.exitCode, 1) << run.err;
        std::vector<std::string> lines = run.lines();
        for (std::string& line : lines) {
            EXPECT_THAT(line, StartsWith(path + ":"));
            line.erase(0, path.size() + 1);
        }
        return lines;
    }

    tests::TempFolder folder;
    std::string path;
};

}  // namespace

TEST(ScriptCheck, FindsNothingInTheSamples) {
    const ToolRun times = runTool({"script", "check", kSamples + "MarketTime.lua"});
    EXPECT_EQ(times.exitCode, 0) << times.out;
    EXPECT_EQ(times.out, kSamples + "MarketTime.lua: no findings in 18 markets\n");
    EXPECT_EQ(times.err, "");
    const ToolRun algorithms = runTool({"script", "check", kSamples + "AlgoParams.lua"});
    EXPECT_EQ(algorithms.exitCode, 0) << algorithms.out;
    EXPECT_EQ(algorithms.out, kSamples + "AlgoParams.lua: no findings in 9 algorithm functions\n");
}

TEST(ScriptCheck, RefusesAFileThatCannotBeRead) {
    const tests::TempFolder folder;
    for (const std::string& path : {folder.path("missing.lua"), folder.path(""), std::string()}) {
        const ToolRun run = runTool({"script", "check", path});
        EXPECT_EQ(run.exitCode, 3) << path;
        EXPECT_EQ(run.out, "");
        EXPECT_THAT(run.err, StartsWith("ttconfig: script " + path + ": "));
    }
}

TEST(ScriptCheck, NeedsAFileAndASensibleTimeLimit) {
    for (const std::vector<std::string>& words : {std::vector<std::string>{"script"},
                                                  {"script", "check"},
                                                  {"script", "check", "x.lua", "--timeout", "0"},
                                                  {"script", "check", "x.lua", "--timeout", "soon"},
                                                  {"script", "check", "x.lua", "y.lua"}}) {
        EXPECT_EQ(runTool(words).exitCode, 2);
    }
}

TEST(ScriptCheck, ReportsTheLineOfALuaError) {
    const std::tuple<const char*, const char*> rows[] = {
        {"\nfunction bad( return end", "2: script: <name> or '...' expected near 'return'"},
        {"\n\nlocal x = nothing.field", "3: script: attempt to index global 'nothing' (a nil value)"},
        {"printLog('x')",
         "1: script: attempt to call global 'printLog' (a nil value); printLog is there when the script has run to its "
         "end"},
        {"function getMarkets()\n return '{\"A\": 1}' end\nfunction getMarketTradeDuration(market)\n error('no ' .. "
         "market) end",
         "4: getMarketTradeDuration(\"A\"): no A"},
    };
    for (const auto& [source, finding] : rows)
        EXPECT_THAT(ScriptFile(source).findings(), ElementsAre(finding)) << source;
}

TEST(ScriptCheck, ReportsMissingFunctions) {
    EXPECT_THAT(ScriptFile("x = 5").findings(),
                ElementsAre(" script: defines none of the functions that the client calls: neither getMarkets and "
                            "getMarketTradeDuration nor any vendor's"));
    EXPECT_THAT(ScriptFile("function getMarkets() return '{\"A\": 1}' end").findings(),
                ElementsAre(" getMarketTradeDuration: the function is missing"));
    EXPECT_THAT(ScriptFile("function getMarketTradeDuration() return '{}' end").findings(),
                ElementsAre(" getMarkets: the function is missing"));
    const auto findings =
        ScriptFile("function getQeAlgoParamConfig() return '{\"content\": {}}' end getZsgsAlgoParamConfig = 5")
            .findings();
    EXPECT_THAT(findings, SizeIs(8));
    EXPECT_THAT(findings, testing::Contains(" getHuachuangAlgoParams: the function is missing"));
    EXPECT_THAT(findings, testing::Contains(" getZsgsAlgoParamConfig: the function is missing"));
}

TEST(ScriptCheck, ReportsWhatIsWrongWithAnswers) {
    EXPECT_THAT(
        ScriptFile(R"(
        function getMarkets() return '{"A": 1, "B": 1, "A": 2, "C": 1, "D": 1, "E": 1}' end
        local texts = { A = '{"9:30": 50}', B = {}, C = '[50]', D = '{"93000": 50, "150000": 49}' }
        function getMarketTradeDuration(market) return texts[market] end
    )")
            .findings(),
        ElementsAre(" getMarkets: market \"A\" is listed twice",
                    " market \"A\": \"9:30\" is no clock time HHMMSS; it counts as 00:00:09",
                    " market \"A\": the session that opens at 00:00:09 never closes; it counts as open until midnight",
                    " getMarketTradeDuration(\"B\"): answers no text but a table value",
                    " market \"C\": the answer is no JSON object",
                    " getMarketTradeDuration(\"E\"): answers no text but a nil value"));
    EXPECT_THAT(ScriptFile("function getMarkets() return 5 end function getMarketTradeDuration() end").findings(),
                ElementsAre(" getMarkets: answers no text but a number value"));
}

TEST(ScriptCheck, ShowsWhatTheScriptPrintsBesideTheAnswer) {
    const ScriptFile script(std::string(kGoodTimes) + R"(
        print("printed at the start")
        io.write("written\n")
        local given = getMarkets
        function getMarkets() printLog("logged \255") print("printed later") return given() end
    )");
    const ToolRun run = script.check();
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.out, script.path + ": no findings in 2 markets\n");
    EXPECT_THAT(run.err, HasSubstr("printLog: logged \xEF\xBF\xBD\n"));
    for (const char* text : {"printed at the start\n", "written\n", "printed later\n"})
        EXPECT_THAT(run.err, HasSubstr(text));
}

TEST(ScriptCheck, EndsAScriptThatNeverReturns) {
    const std::tuple<std::string, const char*> rows[] = {
        {"while true do end", " running the script: did not return within 0.3 seconds"},
        {"debug.sethook() string.find(string.rep('a', 40), string.rep('.-', 40) .. 'b')",
         " running the script: did not return within 0.3 seconds"},
        {std::string(kGoodTimes) + "function getMarkets() repeat until false end",
         " getMarkets: did not return within 0.3 seconds"},
        {std::string(kGoodTimes) +
             "function getMarketTradeDuration(m) while m == 'B' do pcall(error) end return '{}' end",
         " getMarketTradeDuration(\"B\"): did not return within 0.3 seconds"},
        {"os.execute('sleep 60')", " running the script: did not return within 0.3 seconds"},
    };
    for (const auto& [source, finding] : rows) {
        const auto start = std::chrono::steady_clock::now();
        const ScriptFile script(source);
        const ToolRun run = script.check({"--timeout", "0.3"});
        EXPECT_EQ(run.exitCode, 1) << source;
        EXPECT_EQ(run.out, script.path + ":" + finding + "\n");
        EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
    }
}

TEST(ScriptCheck, SurvivesAScriptThatEndsTheProcess) {
    EXPECT_THAT(ScriptFile("os.exit(0)").findings(),
                ElementsAre(" running the script: ends the process, with exit code 0"));
    EXPECT_THAT(ScriptFile(std::string(kGoodTimes) + "function getMarkets() os.exit(7) end").findings(),
                ElementsAre(" getMarkets: ends the process, with exit code 7"));
    if (tests::kUnderSanitizer) GTEST_SKIP() << "a sanitizer ends the process in its own way";
    // a pattern on which the interpreter recurses until its stack overflows
    EXPECT_THAT(ScriptFile("string.find(string.rep('a', 300000), string.rep('a?', 300000))").findings(),
                ElementsAre(StartsWith(" running the script: brings the process down: ")));
}

TEST(ScriptCheck, KeepsWhatWasFoundBeforeTheEnd) {
    const ScriptFile script(R"(
        function getMarkets() return '{"A": 1, "A": 1, "B": 1}' end
        function getMarketTradeDuration(market) if market == "B" then while true do end end return "x" end
    )");
    const ToolRun run = script.check({"--timeout", "0.3"});
    EXPECT_THAT(run.lines(),
                ElementsAre(HasSubstr("market \"A\" is listed twice"), HasSubstr("market \"A\": the answer is no"),
                            HasSubstr("getMarketTradeDuration(\"B\"): did not return")));
}

TEST(ScriptCheck, AnswersJsonToo) {
    const ScriptFile script("function getMarkets()\nerror('x')\nend\nfunction getMarketTradeDuration() end");
    const ToolRun run = script.check({"--format", "json"});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(json::parse(run.out),
              (json{{"file", script.path},
                    {"findings", json::array({json{{"where", "getMarkets"}, {"line", 2}, {"message", "x"}}})},
                    {"markets", 0}}));
}

TEST(ScriptCheck, FindsTheFileInTheEnteredDirectory) {
    const ScriptFile script(std::string(kGoodTimes) + "assert(io.open('s.lua'))");
    const ToolRun run = runTool({"script", "check", "-C", script.folder.path(""), "s.lua"});
    EXPECT_EQ(run.exitCode, 0) << run.out << run.err;
    EXPECT_EQ(run.out, "s.lua: no findings in 2 markets\n");
}

// The page for script authors: its examples work as described, and it names every function.
TEST(ScriptPage, HasExamplesThatAreClean) {
    const std::string page = tests::fileText(std::string(TT_SOURCE_DIR) + "/docs/scripts.md");
    int examples = 0;
    for (std::size_t at = page.find("```lua\n"); at != std::string::npos; at = page.find("```lua\n", at + 1)) {
        const std::size_t start = at + 7;
        const ScriptFile script(page.substr(start, page.find("```", start) - start));
        const ToolRun run = script.check();
        EXPECT_EQ(run.exitCode, 0) << run.out << run.err;
        ++examples;
        if (examples > 1) continue;
        EXPECT_EQ(runTool({"sessions", "--script", script.path}).out,
                  "market  sessions\n"
                  "SH      09:30:00-11:30:00, 13:00:00-15:00:00\n"
                  "SHFE    09:00:00-15:00:00, 21:00:00-24:00:00\n");
    }
    EXPECT_EQ(examples, 2);
}

TEST(ScriptPage, NamesEveryVendorsFunctionAndRight) {
    const std::string page = tests::fileText(std::string(TT_SOURCE_DIR) + "/docs/scripts.md");
    std::size_t last = 0;
    for (const auto& block : ttservice::internal::kVendorBlocks) {
        std::string right = block.product == nullptr ? "none: always" : "`" + std::string(block.product) + "`";
        if (block.alternative != nullptr) right += " or `" + std::string(block.alternative) + "`";
        const std::size_t row = page.find("| " + right + " | `" + block.function + "` |\n", last);
        EXPECT_NE(row, std::string::npos) << block.function;
        last = row == std::string::npos ? last : row;  // in the order of the blocks
    }
    EXPECT_THAT(page, HasSubstr(std::to_string(ttservice::internal::kDeepestJson) + " levels deep"));
}
