// `ttconfig check --format sarif`: the structure that programs rely on.

#include <gmock/gmock.h>

#include <nlohmann/json.hpp>
#include <string>

#include "tests/support/tempfile.h"
#include "tests/tools/ttconfig/support/toolrun.h"
#include "ttconfig/findings/rules.h"

namespace {

using nlohmann::json;
using testing::StartsWith;
using tests::runTool;
using tests::TempFolder;
using ttconfig::kRules;

json sarifOf(const std::vector<std::string>& words) {
    std::vector<std::string> all = {"check", "--format", "sarif"};
    all.insert(all.end(), words.begin(), words.end());
    return json::parse(runTool(all).out);
}

TEST(Sarif, NamesTheToolAndItsRules) {
    const TempFolder folder;
    const json log = sarifOf({folder.write("a.ini", "[setting]\n")});
    EXPECT_EQ(log["version"], "2.1.0");
    ASSERT_EQ(log["runs"].size(), 1U);
    const json& run = log["runs"][0];
    EXPECT_EQ(run["columnKind"], "utf16CodeUnits");
    EXPECT_TRUE(run["results"].is_array());
    EXPECT_TRUE(run["results"].empty());
    EXPECT_EQ(run["invocations"], json::parse(R"([{"executionSuccessful": true}])"));
    const json& driver = run["tool"]["driver"];
    EXPECT_EQ(driver["name"], "ttconfig");
    EXPECT_FALSE(driver["version"].get<std::string>().empty());
    ASSERT_EQ(driver["rules"].size(), std::size(kRules));
    for (std::size_t i = 0; i < std::size(kRules); ++i) {
        const json& rule = driver["rules"][i];
        EXPECT_EQ(rule["id"], kRules[i].name);
        EXPECT_EQ(rule["shortDescription"]["text"], kRules[i].title);
        EXPECT_EQ(rule["fullDescription"]["text"], kRules[i].explanation);
        EXPECT_THAT(rule["help"]["text"].get<std::string>(), StartsWith(std::string(kRules[i].name)));
        EXPECT_EQ(rule["defaultConfiguration"]["level"], ttconfig::severityWord(kRules[i].severity));
    }
}

TEST(Sarif, AResultHasItsRuleItsPlaceAndTheOtherPlace) {
    const TempFolder folder;
    folder.write("a b#.ini",
                 "[setting]\nneedmaxamount=12\n[StkExchangeOrderLimit]\nSH-1=1,股x\n[setting]\n"
                 "needmaxamount=15\n");
    const json log = sarifOf({"-C", folder.path(""), "a b#.ini"});
    const json& results = log["runs"][0]["results"];
    ASSERT_EQ(results.size(), 2U);
    const json& rules = log["runs"][0]["tool"]["driver"]["rules"];
    for (const json& result : results) {
        EXPECT_EQ(rules[result["ruleIndex"].get<std::size_t>()]["id"], result["ruleId"]);
        EXPECT_FALSE(result["message"]["text"].get<std::string>().empty());
        ASSERT_EQ(result["locations"].size(), 1U);
        EXPECT_EQ(result["locations"][0]["physicalLocation"]["artifactLocation"]["uri"], "a%20b%23.ini");
    }
    EXPECT_EQ(results[0]["level"], "note");
    EXPECT_EQ(results[0]["locations"][0]["physicalLocation"]["region"],
              json({{"startLine", 4}, {"startColumn", 8}, {"endColumn", 10}}));
    EXPECT_FALSE(results[0].contains("relatedLocations"));
    EXPECT_EQ(results[1]["ruleId"], "repeated-key");
    EXPECT_EQ(results[1]["relatedLocations"][0]["physicalLocation"]["region"]["startLine"], 2);
    EXPECT_FALSE(results[1]["relatedLocations"][0]["message"]["text"].get<std::string>().empty());
}

TEST(Sarif, FatalRulesHaveTheLevelError) {
    const TempFolder folder;
    const json log = sarifOf({folder.write("a.ini", "[setting]\nodd=1\n"), "--fatal", "unknown-key"});
    const json& result = log["runs"][0]["results"][0];
    EXPECT_EQ(result["level"], "error");
    EXPECT_EQ(log["runs"][0]["tool"]["driver"]["rules"][result["ruleIndex"].get<std::size_t>()]["defaultConfiguration"]
                 ["level"],
              "error");
}

TEST(Sarif, AFileThatCannotBeUsedIsANotificationAndTheRestIsChecked) {
    const TempFolder folder;
    folder.write("a.ini", "[setting]\nodd=1\n");
    const json log = sarifOf({"-C", folder.path(""), "mis sing.ini", "a.ini"});
    const json& run = log["runs"][0];
    EXPECT_EQ(run["results"].size(), 1U);
    ASSERT_EQ(run["invocations"].size(), 1U);
    EXPECT_EQ(run["invocations"][0]["executionSuccessful"], false);
    const json& notifications = run["invocations"][0]["toolExecutionNotifications"];
    ASSERT_EQ(notifications.size(), 1U);
    EXPECT_EQ(notifications[0]["level"], "error");
    EXPECT_EQ(notifications[0]["message"]["text"], "settings file mis sing.ini: does not exist; check the name");
    EXPECT_EQ(notifications[0]["locations"][0]["physicalLocation"]["artifactLocation"]["uri"], "mis%20sing.ini");
}

TEST(Sarif, BytesThatAreNotUtf8AreWrittenAsReplacements) {
    const TempFolder folder;
    const json log = sarifOf({folder.write("a.ini", "[StkExchangeOrderLimit]\nSH-1=1,\xB9\xC9\n")});
    const json& result = log["runs"][0]["results"][0];
    EXPECT_EQ(result["ruleId"], "not-utf8");
    EXPECT_EQ(result["locations"][0]["physicalLocation"]["region"]["endColumn"], 9);
}

}  // namespace
