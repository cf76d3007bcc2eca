// `ttconfig switches` and `ttconfig keys`: every row of the tables in every format, and the reference pages.

#include <gmock/gmock.h>

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "tests/tools/ttconfig/support/toolrun.h"
#include "traderbase/base/config/internal/keys/settingkeys.h"
#include "traderbase/base/config/internal/switches/platformswitchtable.h"

namespace {

using nlohmann::json;
using testing::HasSubstr;
using tests::runTool;
using tests::ToolRun;
using ttservice::internal::kPlatformSwitches;
using ttservice::internal::kSettingKeys;

std::string referencePage(const std::string& name) {
    return tests::fileText(std::string(TT_SOURCE_DIR) + "/docs/reference/" + name);
}

TEST(Switches, HasARowForEverySwitch) {
    const std::vector<std::string> lines = runTool({"switches"}).lines();
    ASSERT_EQ(lines.size(), 1 + std::size(kPlatformSwitches));
    const json rows = json::parse(runTool({"switches", "--format", "json"}).out);
    ASSERT_EQ(rows.size(), std::size(kPlatformSwitches));
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const auto& row = kPlatformSwitches[i];
        EXPECT_EQ(rows[i]["key"], row.key);
        EXPECT_EQ(rows[i]["predicate"], row.predicate);
        EXPECT_EQ(rows[i]["meaning"], row.meaning);
        for (const std::string_view part : {row.key, row.predicate, row.meaning}) {
            EXPECT_THAT(lines[i + 1], HasSubstr(std::string(part)));
        }
    }
}

TEST(Switches, OnlyTwoAreTrueForThoseNotListed) {
    std::vector<std::string> found;
    for (const json& row : json::parse(runTool({"switches", "--format", "json"}).out)) {
        if (row["true when"] != "listed") found.push_back(row["predicate"]);
    }
    EXPECT_THAT(found,
                testing::UnorderedElementsAre("needReplaceCashRequired", "isNeedCalcEnbaleVolueByEnableMarginPts"));
}

TEST(Switches, TheReferencePageIsTheOutput) {
    EXPECT_TRUE(runTool({"switches", "--format", "markdown"}).out == referencePage("switches.md"))
        << "write it anew: ttconfig switches --format markdown > docs/reference/switches.md";
}

TEST(Keys, HasARowForEveryKey) {
    EXPECT_EQ(runTool({"keys"}).lines().size(), 1 + std::size(kSettingKeys));
    const json rows = json::parse(runTool({"keys", "--format", "json"}).out);
    ASSERT_EQ(rows.size(), std::size(kSettingKeys));
    for (std::size_t i = 0; i < rows.size(); ++i) {
        EXPECT_EQ(rows[i]["section"], kSettingKeys[i].section);
        EXPECT_EQ(rows[i]["key"], kSettingKeys[i].key);
        EXPECT_EQ(rows[i]["when missing"], kSettingKeys[i].whenMissing);
        EXPECT_EQ(rows[i]["answered by"], kSettingKeys[i].feeds);
        EXPECT_NE(rows[i]["value"], "");
    }
}

TEST(Keys, TheReferencePageIsTheOutput) {
    EXPECT_TRUE(runTool({"keys", "--format", "markdown"}).out == referencePage("keys.md"))
        << "write it anew: ttconfig keys --format markdown > docs/reference/keys.md";
}

TEST(Keys, ANameShowsOneKeyInFull) {
    const ToolRun run = runTool({"keys", "flowhistorydays"});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.lines().front(), "flowhistorydays");
    for (const char* part : {"setting", "whole number", "-1", "getFlowHistoryDays"})
        EXPECT_THAT(run.out, HasSubstr(part));
    EXPECT_EQ(json::parse(runTool({"keys", "flowhistorydays", "--format", "json"}).out).size(), 1U);
}

TEST(Keys, EveryKeyAndEverySwitchIsShownByName) {
    for (const auto& row : kSettingKeys) {
        const std::string name(row.key == "*" ? row.section : row.key);
        EXPECT_THAT(runTool({"keys", name}).out, HasSubstr(std::string(row.meaning))) << name;
    }
    const auto& last = kPlatformSwitches[std::size(kPlatformSwitches) - 1];
    EXPECT_THAT(runTool({"keys", std::string(last.key)}).out, HasSubstr(std::string(last.predicate)));
    EXPECT_THAT(runTool({"keys", "isnotneedreplacecashrequired"}).out, HasSubstr("not listed"));
}

TEST(Keys, AnUnknownNameHasExitCode2AndASuggestion) {
    const std::pair<const char*, const char*> rows[] = {
        {"refLimits", "; did you mean refLimit?"},
        {"NEEDMAXAMOUNT", "; did you mean needmaxamount?"},
        {"creditsetting", "; did you mean CreditSetting?"},
        {"nothing like any of them at all", "unknown key \"nothing like any of them at all\"\n"},
    };
    for (const auto& [name, said] : rows) {
        const ToolRun run = runTool({"keys", name});
        EXPECT_EQ(run.exitCode, 2);
        EXPECT_EQ(run.out, "");
        EXPECT_THAT(run.err, HasSubstr(said));
    }
}

}  // namespace
