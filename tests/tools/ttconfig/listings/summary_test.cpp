// `ttconfig summary`: what was loaded and what follows from it.

#include <gmock/gmock.h>

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

const std::string kSettings =
    "before=1\n"                                        // 1
    "[setting]\n"                                       // 2
    "needmaxamount=12,x,15,\n"                          // 3
    "needmaxamount=99\n"                                // 4
    "isnotneedreplacecashrequired=26\n"                 // 5
    "needuselockvol=\n"                                 // 6
    "needusedmargn=7\n"                                 // 7
    "isshowmaxcanorder=2\n"                             // 8
    "refLimit=+7\n"                                     // 9
    "flowhistorydays=many\n"                            // 10
    "counterMaxCompactsRespNum=12:1000;abc:1;;15:x;\n"  // 11
    "isspxcreditmodules=47:1\n"                         // 12
    "renewalpts=3;5:1;4\n"                              // 13
    "no equal sign\n"                                   // 14
    "[Setting]\n"                                       // 15
    "anything=1\n"                                      // 16
    "[StandardBondUseLimit]\n"                          // 17
    "whatever=0.5\n";                                   // 18

json summary(const std::string& settings) {
    const tests::TempFolder folder;
    const ToolRun run = runTool({"summary", "--format", "json", "--settings", folder.write("s.ini", settings)});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.err, "");
    return json::parse(run.out);
}

// The row whose member has this value; null when there is none.
json rowWith(const json& table, const char* member, const json& value) {
    for (const json& row : table) {
        if (row[member] == value) return row;
    }
    return nullptr;
}

TEST(Summary, CountsTheKeysOfEverySection) {
    EXPECT_EQ(summary(kSettings)["sections"],
              json::parse(R"([{"section":"setting","keys":10},{"section":"Setting","keys":1},
        {"section":"StandardBondUseLimit","keys":1}])"));
}

TEST(Summary, ListsTheSwitchesThatNamePlatforms) {
    EXPECT_EQ(summary(kSettings)["switches"], json::parse(R"([{"key":"isnotneedreplacecashrequired","platforms":[26]},
        {"key":"needmaxamount","platforms":[12,15]}])"));
}

TEST(Summary, ShowsTheEffectiveSingleValues) {
    const json values = summary(kSettings)["values"];
    const struct {
        const char* key;
        json value;
        const char* source;
    } rows[] = {{"isshowmaxcanorder", false, "from the file"},
                {"isshownewcompacts", false, "default"},
                {"refLimit", 7, "from the file"},
                {"flowhistorydays", -1, "default"},
                {"[HgtSgtPriceDiff] price_diff", "", "default"}};
    for (const auto& row : rows) {
        const json found = rowWith(values, "key", row.key);
        ASSERT_FALSE(found.is_null()) << row.key;
        EXPECT_EQ(found["value"], row.value) << row.key;
        EXPECT_EQ(found["source"], row.source) << row.key;
    }
    EXPECT_TRUE(rowWith(values, "key", "usernewshanghailoanrules").is_null()) << "answers nothing";
}

TEST(Summary, ShowsValuesByPlatformAsAFirstLoadTakesThem) {
    const json values = summary(kSettings)["platformValues"];
    const struct {
        const char* key;
        json others;
        json platforms;
    } rows[] = {{"counterMaxCompactsRespNum", 500, {{"12", 1000}}},
                {"isspxcreditmodules", false, {{"47", true}}},
                {"ist0forreturnstock", true, json::object()},
                {"renewalpts", 4, {{"5", 1}}},
                {"usecounteripwanpos", 1, json::object()}};
    for (const auto& row : rows) {
        const json found = rowWith(values, "key", row.key);
        EXPECT_EQ(found["others"], row.others) << row.key;
        EXPECT_EQ(found["platforms"], row.platforms) << row.key;
    }
}

// The summary shows a value as the store answers it.
TEST(Summary, AgreesWithTheStoreOnValuesByPlatform) {
    const tests::TempFolder folder;
    const std::string file = folder.write("s.ini", kSettings);
    const std::pair<std::vector<std::string>, const char*> rows[] = {
        {{"getCounterMaxCompactsRespNum", "12"}, "1000\n"},
        {{"getCounterMaxCompactsRespNum", "15"}, "500\n"},
        {{"isSPXCreditStockPts", "47"}, "true\n"},
        {{"isSPXCreditStockPts", "48"}, "false\n"},
        {{"getRenewalPts", "5"}, "1\n"},
        {{"getRenewalPts", "6"}, "4\n"},
        {{"isShowMaxCanOrder"}, "false\n"},
        {{"getRefLimit"}, "7\n"},
        {{"getFlowHistoryDays"}, "-1\n"},
    };
    for (const auto& [words, answer] : rows) {
        std::vector<std::string> arguments = {"ask", "--settings", file};
        arguments.insert(arguments.end(), words.begin(), words.end());
        EXPECT_EQ(runTool(arguments).out, answer) << words[0];
    }
}

TEST(Summary, ReportsIgnoredPiecesByLine) {
    std::vector<std::string> found;
    const json all = summary(kSettings);
    for (const json& row : all["passedOver"]) {
        found.push_back(std::to_string(row["line"].get<int>()) + ' ' + row["text"].get<std::string>() + ": " +
                        row["reason"].get<std::string>());
    }
    EXPECT_THAT(
        found, ElementsAre("1 before: stands in front of the first section", "3 needmaxamount: \"x\" is no platform ID",
                           "4 needmaxamount: written before; the first one counts",
                           "7 needusedmargn: unknown key; did you mean needusedmargin?",
                           "14 no equal sign: neither a section nor key=value",
                           "15 Setting: unknown section; did you mean setting?"));
}

TEST(Summary, IgnoresNothingInACleanFile) {
    const json all = summary("[setting]\nneedmaxamount=12\n; a comment\n\n");
    EXPECT_FALSE(all.contains("passedOver"));
    EXPECT_EQ(rowWith(all["loaded"], "what", "passed over")["from"], "nothing");
}

TEST(Summary, AsksTheStore) {
    const json answers = summary("[setting]\nneedmaxamount=12\nflowhistorydays=30\n")["answers"];
    EXPECT_EQ(rowWith(answers, "question", "isNeedMaxAmountPts 12")["answer"], true);
    EXPECT_EQ(rowWith(answers, "question", "isNeedMaxAmountPts 205")["answer"], false);
    EXPECT_EQ(rowWith(answers, "question", "getFlowHistoryDays")["answer"], 30);
}

TEST(Summary, WithoutSettingsSaysSoAndShowsTheDefaults) {
    const ToolRun run = runTool({"summary"});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_THAT(run.out, HasSubstr("none, every answer is a default"));
    EXPECT_THAT(run.out, HasSubstr("isNeedMaxAmountPts 12"));
}

TEST(Summary, OfTheSamplesIsQuietAndAligned) {
    const std::string samples = std::string(TT_SOURCE_DIR) + "/samples/bin";
    const std::vector<std::vector<std::string>> ways = {
        {"-C", samples, "summary", "--settings", "../settings.ini", "--platform", "../platform.json"},
        {"summary", "-C", samples, "--platform", "../platform.json", "--settings", "../settings.ini"}};
    for (const auto& arguments : ways) {
        const ToolRun run = runTool(arguments);
        EXPECT_EQ(run.exitCode, 0);
        EXPECT_EQ(run.err, "");
        EXPECT_THAT(run.out, HasSubstr("  passed over    nothing\n"));
        for (const std::string& line : run.lines())
            EXPECT_THAT(line, testing::Not(testing::EndsWith(" ")));
    }
}

}  // namespace
