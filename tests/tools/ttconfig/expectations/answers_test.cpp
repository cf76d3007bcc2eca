// `ttconfig diff`, `platform`, `keys` and `test`, as people run them: answers/cases holds one command line per line,
// answers/answers.expected what each prints.

#include <gmock/gmock.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <vector>

#include "tests/support/tempfile.h"
#include "tests/tools/ttconfig/support/recorded.h"
#include "tests/tools/ttconfig/support/toolrun.h"
#include "traderbase/base/config/internal/switches/platformswitchtable.h"

namespace {

using nlohmann::json;
using testing::HasSubstr;
using testing::StartsWith;
using tests::runShell;
using tests::runTool;
using tests::ToolRun;

const std::string kFolder = TT_SOURCE_DIR "/tests/tools/ttconfig/answers";
const std::string kSamples = TT_SOURCE_DIR "/samples";

std::vector<std::string> cases() {
    std::istringstream text(tests::fileText(kFolder + "/cases"));
    std::vector<std::string> all;
    for (std::string line; std::getline(text, line);) {
        if (!line.empty() && line.front() != '#') all.push_back(line);
    }
    return all;
}

ToolRun inFolder(const std::string& line) {
    return runShell("cd '" + kFolder + "' && \"$TTCONFIG\" " + line);
}

TEST(Answers, PrintWhatIsRecorded) {
    std::string all;
    for (const std::string& line : cases()) {
        const ToolRun run = inFolder(line);
        all += "$ " + line + '\n' + run.out + run.err + "exit code " + std::to_string(run.exitCode) + "\n\n";
    }
    tests::expectAsRecorded(all, kFolder + "/answers.expected");
}

// --- diff

TEST(Diff, OneLineNamesTheSwitchBothPlacesAndBothAnswers) {
    EXPECT_THAT(inFolder("diff old.ini new.ini").lines(),
                testing::Contains("platform 12: isNeedMaxAmountPts off → on (old:3, new:2)"));
}

TEST(Diff, ExitCodeSaysWhetherThereIsADifference) {
    EXPECT_EQ(inFolder("diff old.ini new.ini").exitCode, 1);
    EXPECT_EQ(inFolder("diff old.ini respelt.ini").exitCode, 0);
    EXPECT_EQ(inFolder("diff old.ini old.ini").exitCode, 0);
    EXPECT_EQ(inFolder("diff --platforms 99 old.ini old.ini").exitCode, 0);
    EXPECT_EQ(inFolder("diff --platforms 99 old.ini old.ini").out,
              "no difference in what is asked with these platforms\n");
    EXPECT_EQ(inFolder("diff --platforms 8 old.ini new.ini").exitCode, 1) << "the default changes for everybody";
}

TEST(Diff, OtherSpellingsOrdersAndCommentsAreNoDifference) {
    const ToolRun run = inFolder("diff old.ini respelt.ini");
    EXPECT_EQ(run.out, "no difference\n");
    EXPECT_EQ(run.err, "");
}

TEST(Diff, IsItsOwnMirror) {
    const json there = json::parse(inFolder("diff --format json old.ini new.ini").out);
    const json back = json::parse(inFolder("diff --format json new.ini old.ini").out);
    ASSERT_EQ(there["changes"].size(), back["changes"].size());
    for (std::size_t i = 0; i < there["changes"].size(); ++i) {
        const json& one = there["changes"][i];
        const json& other = back["changes"][i];
        EXPECT_EQ(one["subject"], other["subject"]);
        EXPECT_EQ(one["question"], other["question"]);
        EXPECT_EQ(one["before"], other["after"]);
        EXPECT_EQ(one["after"], other["before"]);
    }
}

TEST(Diff, JsonHasAMemberForEachPartOfTheLine) {
    const ToolRun run = inFolder("diff --format json --platforms 12 old.ini new.ini");
    const json all = json::parse(run.out);
    EXPECT_EQ(all["same"], false);
    EXPECT_EQ(all["old"], "old.ini");
    ASSERT_FALSE(all["changes"].empty());
    const json wanted = {{"topic", "switch"},
                         {"subject", "platform 12"},
                         {"platform", 12},
                         {"question", "isNeedMaxAmountPts"},
                         {"before", false},
                         {"after", true},
                         {"old", {{"line", 3}, {"column", 15}}},
                         {"new", {{"line", 2}, {"column", 17}}}};
    EXPECT_EQ(all["changes"][0], wanted);
    const json same = json::parse(inFolder("diff --format json old.ini old.ini").out);
    EXPECT_EQ(same["same"], true);
    EXPECT_TRUE(same["changes"].empty());
}

TEST(Diff, WithPlatformDataShowsTheAnswerThatACodeGetsFromItsCategory) {
    std::vector<std::string> lines = inFolder("diff old.ini new.ini").lines();
    const auto line = std::find(lines.begin(), lines.end(), "SH-688001: getOrderLimit by category → 5000,股 (new:22)");
    ASSERT_NE(line, lines.end());
    *line = "SH-688001: getOrderLimit 1000000,股 → 5000,股 (new:22)";
    EXPECT_EQ(inFolder("diff --platform platform.json old.ini new.ini").lines(), lines);
    const ToolRun missing = inFolder("diff --platform nowhere.json old.ini new.ini");
    EXPECT_EQ(missing.exitCode, 3);
    EXPECT_THAT(missing.err, HasSubstr("nowhere.json"));
}

TEST(Diff, RowsThatNoQuestionReachesAreNoDifference) {
    const std::string rows =
        "[StkExchangeOrderLimit]\nSH=5,股\n-600000=5,股\nSH-CDR=5,股\nSH-STOCKS=5,股\n"
        "HGT-LOAN=5,股\n[StkExchangeDazongOrderLimit]\nSH-600000=5,股,5\n"
        "[HGTExchangeRateLimit]\nHK-1=1,1,1,1,1,1,1,1,1,1,1,1,1,1\n";
    const tests::TempFolder folder;
    const std::string with = folder.write("with.ini", rows);
    const std::string without = folder.write("without.ini", "[StkExchangeOrderLimit]\n");
    const ToolRun run = runTool({"diff", with, without});
    EXPECT_EQ(run.out, "no difference\n");
    EXPECT_EQ(run.exitCode, 0);
}

TEST(Diff, UnitsFollowTheSwitchesThatTheyDependOn) {
    const tests::TempFolder folder;
    const std::string old = folder.write("old.ini", "[setting]\nuseregistiporules=0\nszusenewbondrules=1\n");
    const std::string now = folder.write("new.ini", "[setting]\nuseregistiporules=1\n");
    EXPECT_THAT(runTool({"diff", old, now}).lines(),
                testing::ElementsAre(
                    "useregistiporules: useRegistIPORules off → on (old:2, new:2)",
                    "new shares and additional issues on SH: getTradeMinUnit getUiMinUnit 1000 → 500 (old:2, new:2)",
                    "szusenewbondrules: useNewBondRules SZ on → off (old:3)",
                    "bonds of the new rules on SZ: getTradeMinUnit getUiMinUnit by the new bond rules → by the rules "
                    "for all bonds (old:3)"));
}

TEST(Diff, UnusableFilesHaveExitCode3AndOneMessage) {
    const tests::TempFolder folder;
    const std::string good = folder.write("good.ini", "[setting]\nneedmaxamount=12\n");
    const std::string binary = folder.write("binary.ini", std::string("[setting]\n\0", 11));
    for (const std::string& bad : {folder.path("missing"), folder.path(""), binary, folder.write("empty", "")}) {
        for (const auto& words : {std::vector<std::string>{"diff", good, bad}, {"diff", bad, good}}) {
            const ToolRun run = runTool(words);
            EXPECT_EQ(run.exitCode, 3) << bad;
            EXPECT_EQ(run.out, "") << bad;
            EXPECT_THAT(run.err, StartsWith("ttconfig: ")) << bad;
        }
    }
}

TEST(Diff, HostileBytesAreShownAsTextOnOneLine) {
    const tests::TempFolder folder;
    const std::string old = folder.write("old.ini", "[setting]\n\xFF\x1B[31m=1\n");
    const std::string now = folder.write("new.ini", "[setting]\n\xFF\x1B[31m=2\n");
    const ToolRun run = runTool({"diff", old, now});
    EXPECT_EQ(run.lines().size(), 2U);
    EXPECT_EQ(run.out.find('\x1B'), std::string::npos);
    EXPECT_EQ(json::parse(runTool({"diff", "--format", "json", old, now}).out)["changes"].size(), 2U);
}

// --- platform

TEST(Platform, TellsEverySwitchOfTheSamplesThatListsIt) {
    const json all = json::parse(
        runTool({"platform", "47", "26", "--settings", kSamples + "/settings.ini", "--format", "json"}).out);
    std::istringstream text(tests::fileText(kSamples + "/settings.ini"));
    std::size_t lists47 = 0;
    for (std::string line; std::getline(text, line);) {
        const std::string key = line.substr(0, line.find('='));
        if (ttservice::internal::platformSwitchIndex(key) == ttservice::internal::kPlatformSwitchCount) continue;
        lists47 += ("," + line.substr(key.size() + 1) + ",").find(",47,") != std::string::npos ? 1U : 0U;
    }
    EXPECT_GT(lists47, 20U);
    EXPECT_EQ(all["platforms"][0]["switches"].size(), lists47);
    bool isThere = false;
    for (const json& row : all["platforms"][1]["switches"]) {
        if (row["question"] == "needReplaceCashRequired") isThere = row["answer"] == false;
    }
    EXPECT_TRUE(isThere) << "a switch that is true for those not listed is special when it is off";
}

TEST(Platform, ValuesSharedWithAllOthersAreNotSpecial) {
    const tests::TempFolder folder;
    const std::string file = folder.write("s.ini", "[setting]\nrenewalpts=12:5;15:6;5\nsetavailable=12:7;7\n");
    const json all = json::parse(runTool({"platform", "12", "15", "--settings", file, "--format", "json"}).out);
    const json& values = all["platforms"][0]["values"];
    ASSERT_EQ(values.size(), 1U) << "that a value is there at all is";
    EXPECT_EQ(values[0]["question"], "isSetavailable");
    const json wanted = {{"question", "getRenewalPts"}, {"answer", 6}, {"others", 5}, {"line", 2}, {"column", 17}};
    EXPECT_EQ(all["platforms"][1]["values"][0], wanted);
}

// --- switches --platform

TEST(SwitchesOfAPlatform, EveryRowHasItsAnswerAndItsPlace) {
    const ToolRun run = runTool({"switches", "--platform", "26", "--settings", kSamples + "/settings.ini"});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.lines().size(), 1 + ttservice::internal::kPlatformSwitchCount);
    const json rows = json::parse(
        runTool({"switches", "--platform", "26", "--settings", kSamples + "/settings.ini", "--format", "json"}).out);
    ASSERT_EQ(rows.size(), ttservice::internal::kPlatformSwitchCount);
    for (const json& row : rows) {
        const std::string predicate = row["predicate"];
        const std::string answer = runTool({"ask", predicate, "26", "--settings", kSamples + "/settings.ini"}).out;
        EXPECT_EQ(answer, row["answer"] == true ? "true\n" : "false\n") << predicate;
    }
}

// --- test

TEST(Expectations, OfTheSampleHoldForTheSampleSettings) {
    const ToolRun run = runTool({"test", kSamples + "/settings.expect", "--settings", kSamples + "/settings.ini",
                                 "--platform", kSamples + "/platform.json"});
    EXPECT_EQ(run.exitCode, 0) << run.out << run.err;
    EXPECT_THAT(run.out, HasSubstr("expectations are met"));
}

TEST(Expectations, AFailureShowsThePlaceBothAnswersAndTheReason) {
    const ToolRun run = inFolder("test failing.expect --settings new.ini");
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_THAT(run.out, HasSubstr("failing.expect:1:1: expected false, got true\n"));
    EXPECT_THAT(run.out, HasSubstr("failing.expect:2:3: expected 200, got 300\n"));
    EXPECT_THAT(run.out, HasSubstr("new.ini:2:17"));
    EXPECT_THAT(run.lines().back(), HasSubstr("3 of 4 expectations not met"));
}

TEST(Expectations, MalformedLinesHaveExitCode2AndAreAllReported) {
    const ToolRun run = inFolder("test malformed.expect --settings new.ini");
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_EQ(run.out, "");
    for (const char* place :
         {":3:19: ", ":4:2: ", ":5:20: ", ":6:1: ", ":7:1: ", ":8:10: ", ":9:10: ", ":10:11: ", ":11:1: "}) {
        EXPECT_THAT(run.err, HasSubstr("malformed.expect" + std::string(place)));
    }
}

TEST(Expectations, AFileThatAsksNothingIsRefused) {
    const tests::TempFolder folder;
    for (const char* nothing : {"", "\n\n", "# isNeedMaxAmountPts 12 = true\n"}) {
        const ToolRun run =
            runTool({"test", folder.write("none.expect", nothing), "--settings", kSamples + "/settings.ini"});
        EXPECT_EQ(run.exitCode, 2) << nothing;
        EXPECT_THAT(run.err, HasSubstr("none.expect: holds no expectation")) << nothing;
        EXPECT_EQ(run.out, "") << nothing;
    }
}

TEST(Expectations, AnUnusableFileHasExitCode3) {
    const tests::TempFolder folder;
    const std::string binary = folder.write("binary", std::string("a = b\0", 6));
    for (const std::string& bad : {folder.path("missing"), folder.path(""), binary}) {
        const ToolRun run = runTool({"test", bad, "--settings", kFolder + "/new.ini"});
        EXPECT_EQ(run.exitCode, 3) << bad;
        EXPECT_THAT(run.err, StartsWith("ttconfig: ")) << bad;
    }
    EXPECT_EQ(inFolder("test desk.expect --settings nowhere.ini").exitCode, 3);
}

}  // namespace
