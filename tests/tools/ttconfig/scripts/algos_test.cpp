// ttconfig algos, and a session's calls of scripts and the catalogue.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "tests/support/tempfile.h"
#include "tests/tools/ttconfig/support/toolrun.h"

namespace {

using nlohmann::json;
using testing::ElementsAre;
using testing::HasSubstr;
using tests::runTool;
using tests::ToolRun;

constexpr const char* kScript = R"(
function getQeAlgoParamConfig() return '{"content": {"name": "own", "b": 1.5, "a": [1]}}' end
function getAlgorithmsHelpParamConfig() return '{"content": 5}' end
function getTwapAlgoParamConfig() return '{"content": {"name": "slices"}}' end
function getJazzAlgoParamConfig() error("no") end
)";

const std::string kSample = std::string(TT_SOURCE_DIR) + "/samples/luaScripts/AlgoParams.lua";

json rowOf(const json& rows, const std::string& function) {
    for (const json& row : rows) {
        if (row.at("function") == function) return row;
    }
    return nullptr;
}

}  // namespace

TEST(Algos, ShowWhatEachFunctionGave) {
    const tests::TempFolder folder;
    const ToolRun run = runTool({"algos", "--script", folder.write("s.lua", kScript), "--rights",
                                 "mdl_alg_vwap,mdl_alg_jazz1", "--format", "json"});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_THAT(run.err, HasSubstr("not every function gave a record; ttconfig script check"));
    const json rows = json::parse(run.out);
    ASSERT_EQ(rows.size(), 9U);
    EXPECT_EQ(
        rows[0],
        json::parse(R"({"function":"getCiticAlgoParamConfig","right":null,"bytes":0,"record":null,"content":null})"));
    EXPECT_EQ(
        rowOf(rows, "getTwapAlgoParamConfig"),
        json::parse(
            R"({"function":"getTwapAlgoParamConfig","right":"mdl_alg_vwap","bytes":31,"record":"slices","content":{"name":"slices"}})"));
    EXPECT_EQ(
        rowOf(rows, "getQeAlgoParamConfig"),
        json::parse(
            R"({"function":"getQeAlgoParamConfig","right":"always","bytes":48,"record":"own","content":{"name":"own","b":1.5,"a":[1]}})"));
    EXPECT_EQ(
        rowOf(rows, "getAlgorithmsHelpParamConfig"),
        json::parse(
            R"({"function":"getAlgorithmsHelpParamConfig","right":"always","bytes":14,"record":null,"content":null})"));
    EXPECT_EQ(
        rowOf(rows, "getJazzAlgoParamConfig"),
        json::parse(
            R"({"function":"getJazzAlgoParamConfig","right":"mdl_alg_jazz1","bytes":0,"record":null,"content":null})"));
}

TEST(Algos, OfTheSampleAreComplete) {
    const ToolRun run = runTool({"algos", "--script", kSample, "--rights",
                                 "mdl_alg_zxzq1,mdl_alg_zxjt1,mdl_alg_genus1,mdl_alg_zsgs1,mdl_alg_jazz1,mdl_alg_twap,"
                                 "mdl_alg_huachuang1"});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(run.lines().size(), 10U);
    EXPECT_THAT(run.out, testing::Not(HasSubstr("none")));
}

TEST(Algos, TakeTheRightsOfThePlatformData) {
    const tests::TempFolder folder;
    const std::string platform = folder.write("p.json", R"({"rights": {"mdl_alg": ["mdl_alg_twap"]}})");
    const ToolRun run = runTool({"algos", "--script", folder.write("s.lua", kScript), "--platform", platform,
                                 "--rights", "mdl_alg_jazz1", "--format", "json"});
    const json rows = json::parse(run.out);
    EXPECT_EQ(rowOf(rows, "getTwapAlgoParamConfig").at("right"), "mdl_alg_twap");
    EXPECT_EQ(rowOf(rows, "getJazzAlgoParamConfig").at("right"), "mdl_alg_jazz1");
    EXPECT_EQ(rowOf(rows, "getZxjtAlgoParamConfig").at("right"), nullptr);
}

TEST(Algos, WarnOfRightsThatOpenNothing) {
    const ToolRun run = runTool({"algos", "--script", kSample, "--rights", "mdl_alg_twapp,mdl_alg_vwap"});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.err, "ttconfig: the right \"mdl_alg_twapp\" opens nothing; did you mean mdl_alg_twap?\n");
}

TEST(Algos, NeedAScript) {
    EXPECT_EQ(runTool({"algos"}).exitCode, 2);
    const ToolRun run = runTool({"algos", "--script", "/nowhere/s.lua"});
    EXPECT_EQ(run.exitCode, 3);
    EXPECT_THAT(run.err, HasSubstr("/nowhere/s.lua"));
}

TEST(ScriptCalls, AnswerInASession) {
    const tests::TempFolder folder;
    const std::string script = folder.write("s.lua", std::string(kScript) + "function echo(t) return t or 'none' end");
    const auto request = [](const std::string& call, const json& args) {
        return json{{"call", call}, {"args", args}}.dump();
    };
    const std::pair<std::string, const char*> rows[] = {
        {request("LuaConfig.new", json::array()), R"({"ok":1})"},
        {request("LuaConfig.getConfig", {1, "echo"}), R"({"ok":""})"},
        {request("LuaConfig.init", {1, script}), R"({"ok":null})"},
        {request("LuaConfig.getConfig", {1, "echo"}), R"({"ok":"none"})"},
        {request("LuaConfig.getConfig", {1, "echo", "text"}), R"({"ok":"text"})"},
        {request("LuaConfig.new", json::array()), R"({"ok":2})"},
        {request("LuaConfig.delete", {1}), R"({"ok":null})"},
        {request("LuaConfig.delete", {1}), R"({"error":"there is no LuaConfig 1"})"},
        {request("LuaConfig.init", {1, script}), R"({"error":"there is no LuaConfig 1"})"},
        {request("LuaConfig.getConfig", {3, "echo"}), R"({"error":"there is no LuaConfig 3"})"},
        {request("LuaConfig.new", json::array()), R"({"ok":3})"},
        {request("AlgorithmParamConfig.getAlgoritmsParams", json::array()), R"({"ok":[]})"},
        {request("AlgorithmParamConfig.initAlgoParams", {script}), R"({"ok":null})"},
        {request("AlgorithmParamConfig.getAlgoritmsParams", json::array()),
         R"({"ok":[{"@":1,"name":"own","content":{"name":"own","b":1.5,"a":[1]}}]})"},
        {request("AlgorithmParamConfig.getAlgoParam", {"own"}),
         R"({"ok":{"@":1,"name":"own","content":{"name":"own","b":1.5,"a":[1]}}})"},
        {request("AlgorithmParamConfig.getAlgoParam", {"other"}), R"({"ok":null})"},
        {request("AlgorithmParamConfig.getQeAlgoHelpStr", json::array()), R"({"ok":"{\"content\": 5}"})"},
        {request("AlgorithmParamConfig.getCiticOriginalStr", json::array()), R"({"ok":""})"},
        {request("AlgorithmParamConfig.readCiticConfig", {R"({"content": {"name": "own"}})"}), R"({"ok":null})"},
        {request("AlgorithmParamConfig.getCiticOriginalStr", json::array()),
         R"({"ok":"{\"content\": {\"name\": \"own\"}}"})"},
        {request("AlgorithmParamConfig.pushAlgoVec", {nullptr}), R"({"ok":null})"},
        {request("AlgorithmParamConfig.pushAlgoVec", {{{"@", 1}}}), R"({"ok":null})"},
        {request("AlgorithmParamConfig.pushAlgoVec", {{{"content", {{"name", "new"}}}}}), R"({"ok":null})"},
        {request("AlgorithmParamConfig.getAlgoritmsParams", json::array()),
         R"({"ok":[{"@":1,"name":"own","content":{"name":"own","b":1.5,"a":[1]}},{"@":2,"name":"own","content":{"name":"own"}},null,{"@":1,"name":"own","content":{"name":"own","b":1.5,"a":[1]}},{"@":3,"name":"new","content":{"name":"new"}}]})"},
        {request("AlgorithmParamConfig.initMarketTime", json::array()), R"({"ok":null})"},
        {request("AlgorithmParamConfig.getMarketTimeMap", json::array()), R"({"ok":{}})"},
        {request("initMarketTradingTime", {{{"M", R"({"93000": 50, "150000": 54})"}}}), R"({"ok":null})"},
        {request("getTradingTime", {"M"}), R"({"ok":[[34200,54000]]})"},
        {request("initMarketTradingTime", json::array()), R"({"ok":null})"},
        {request("initMarketTradingTime", {script}), R"({"ok":null})"},
        {request("getTradingTime", {"M"}), R"({"ok":[[34200,54000]]})"},
        {request("getSecondFromGMT", {-1}), R"({"ok":28799})"},
    };
    std::string input;
    for (const auto& row : rows)
        input += row.first + "\n";
    const ToolRun run = runTool({"session", "-C", folder.path("")}, input);
    EXPECT_EQ(run.exitCode, 0);
    const std::vector<std::string> answers = run.lines();
    ASSERT_EQ(answers.size(), std::size(rows));
    for (std::size_t at = 0; at < answers.size(); ++at)
        EXPECT_EQ(answers[at], rows[at].second) << rows[at].first;
}
