// `ttconfig check`: options, exit codes, formats, the reference page, and a file with every mistake.

#include <gmock/gmock.h>

#include <filesystem>
#include <nlohmann/json.hpp>
#include <set>
#include <string>
#include <vector>

#include "tests/support/tempfile.h"
#include "tests/tools/ttconfig/support/recorded.h"
#include "tests/tools/ttconfig/support/toolrun.h"
#include "ttconfig/findings/rules.h"

namespace {

namespace fs = std::filesystem;
using nlohmann::json;
using testing::HasSubstr;
using tests::runTool;
using tests::TempFolder;
using tests::ToolRun;
using ttconfig::kRules;
using ttconfig::Rule;

const std::string kHere = std::string(TT_SOURCE_DIR) + "/tests/tools/ttconfig/findings";
const std::string kTwoFindings = "[setting]\nneedmaxamout=12\nneedmaxamount=12,x\n";

TEST(Check, ACleanFileHasExitCode0) {
    const std::string samples = std::string(TT_SOURCE_DIR) + "/samples";
    const ToolRun run = runTool({"check", "-C", samples, "settings.ini", "--platform", "platform.json"});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.out, "settings.ini: no findings\n");
    EXPECT_EQ(run.err, "");
}

TEST(Check, FindingsAreLinesWithThePlaceTheSeverityAndTheRule) {
    const TempFolder folder;
    folder.write("a.ini", kTwoFindings);
    const ToolRun run = runTool({"check", "-C", folder.path(""), "a.ini"});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(run.out,
              "a.ini:2:1: warning: nothing reads a key \"needmaxamout\" in [setting]; did you mean needmaxamount? "
              "[unknown-key]\n"
              "a.ini:3:18: error: \"x\" is no platform ID, and is passed over; write whole numbers with \",\" between "
              "them [bad-platform-id]\n");
}

TEST(Check, SeveralFilesAreCheckedOneAfterTheOther) {
    const TempFolder folder;
    folder.write("a.ini", "[setting]\n");
    folder.write("b.ini", kTwoFindings);
    const ToolRun run = runTool({"check", "-C", folder.path(""), "a.ini", "b.ini", "a.ini"});
    EXPECT_EQ(run.exitCode, 1);
    ASSERT_EQ(run.lines().size(), 4U);
    EXPECT_EQ(run.lines().front(), "a.ini: no findings");
    EXPECT_EQ(run.lines().back(), "a.ini: no findings");
}

TEST(Check, ARuleCanBeTurnedOff) {
    const TempFolder folder;
    const std::string file = folder.write("a.ini", kTwoFindings);
    EXPECT_EQ(runTool({"check", file, "--disable", "unknown-key"}).lines().size(), 1U);
    const std::vector<std::vector<std::string>> ways = {
        {"check", "--disable", "unknown-key", "--disable", "bad-platform-id", file},
        {"check", "--disable", "unknown-key,bad-platform-id", file},
        {"check", "--disable=bad-platform-id,unknown-key", file}};
    for (const auto& words : ways) {
        const ToolRun none = runTool(words);
        EXPECT_EQ(none.exitCode, 0) << none.err;
        EXPECT_THAT(none.out, HasSubstr("no findings"));
    }
}

TEST(Check, ARuleCanBeMadeFatal) {
    const TempFolder folder;
    const std::string file = folder.write("a.ini", kTwoFindings);
    const ToolRun run = runTool({"check", file, "--fatal", "unknown-key"});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_THAT(run.lines().front(), HasSubstr(": error: nothing reads"));
    const ToolRun both = runTool({"check", file, "--fatal", "unknown-key,bad-platform-id"});
    EXPECT_THAT(both.lines().front(), HasSubstr(": error: nothing reads"));
}

TEST(Check, AnUnknownRuleIsAUsageErrorWithTheNearestName) {
    const TempFolder folder;
    const std::string file = folder.write("a.ini", kTwoFindings);
    const std::vector<std::vector<std::string>> ways = {{"check", "--disable", "unknown-kee", file},
                                                        {"check", "--disable", "bad-platform-id,unknown-kee", file},
                                                        {"check", "--fatal", "unknown-kee", file},
                                                        {"check", "--explain", "unknown-kee"}};
    for (const auto& words : ways) {
        const ToolRun run = runTool(words);
        EXPECT_EQ(run.exitCode, 2);
        EXPECT_EQ(run.out, "");
        EXPECT_THAT(run.err, HasSubstr("did you mean unknown-key?"));
    }
}

TEST(Check, EveryRuleIsExplained) {
    const ToolRun all = runTool({"check", "--explain", "all"});
    EXPECT_EQ(all.exitCode, 0);
    for (const Rule& rule : kRules)
        EXPECT_THAT(all.out, HasSubstr(std::string(rule.name) + " ("));
    const ToolRun one = runTool({"check", "--explain", "unknown-key"});
    EXPECT_EQ(one.lines().front(), "unknown-key (warning): Key that nothing reads");
    EXPECT_THAT(one.out, HasSubstr("Example:"));
    EXPECT_EQ(json::parse(runTool({"check", "--explain", "all", "--format", "json"}).out).size(), std::size(kRules));
    EXPECT_EQ(json::parse(runTool({"check", "--explain", "unknown-key", "--format", "json"}).out)["severity"],
              "warning");
}

TEST(Check, TheReferencePageIsTheOutput) {
    EXPECT_TRUE(runTool({"check", "--explain", "all", "--format", "markdown"}).out ==
                tests::fileText(std::string(TT_SOURCE_DIR) + "/docs/reference/checks.md"))
        << "write it anew: ttconfig check --explain all --format markdown > docs/reference/checks.md";
}

TEST(Check, AFileThatCannotBeUsedHasExitCode3AndNoAnswer) {
    const TempFolder folder;
    const std::string good = folder.write("a.ini", kTwoFindings);
    const std::string bad = folder.write("bad.json", "{\"odd\": 1}");
    const std::vector<std::vector<std::string>> ways = {
        {"check", folder.path("missing.ini")},
        {"check", folder.path("")},
        {"check", folder.write("nul.ini", std::string("[setting]\0\n", 11))},
        {"check", good, "--platform", bad},
        {"check", good, "--platform", folder.path("missing.json")}};
    for (const auto& words : ways) {
        const ToolRun run = runTool(words);
        EXPECT_EQ(run.exitCode, 3) << words.back();
        EXPECT_EQ(run.out, "");
        EXPECT_NE(run.err, "");
    }
}

TEST(Check, AFileThatCannotBeUsedDoesNotHideFindingsOfOtherFiles) {
    const TempFolder folder;
    folder.write("a.ini", kTwoFindings);
    folder.write("nul.ini", std::string("[setting]\0\n", 11));
    folder.write("clean.ini", "[setting]\n");
    const ToolRun run = runTool({"check", "-C", folder.path(""), "missing.ini", "a.ini", "nul.ini", "clean.ini"});
    EXPECT_EQ(run.exitCode, 3);
    ASSERT_EQ(run.lines().size(), 3U);
    EXPECT_THAT(run.lines()[0], HasSubstr("a.ini:2:1:"));
    EXPECT_THAT(run.lines()[1], HasSubstr("a.ini:3:18:"));
    EXPECT_EQ(run.lines()[2], "clean.ini: no findings");
    EXPECT_EQ(run.err,
              "ttconfig: settings file missing.ini: does not exist; check the name\n"
              "ttconfig: settings file nul.ini: holds NUL bytes; save it as plain text, in UTF-8 or another encoding "
              "without NULs\n");
    // Finding nothing in the other files does not make the run clean.
    EXPECT_EQ(runTool({"check", "-C", folder.path(""), "missing.ini", "clean.ini"}).exitCode, 3);
}

TEST(Check, JsonIsWholeWhenAFileCannotBeUsed) {
    const TempFolder folder;
    const std::string file = folder.write("a.ini", kTwoFindings);
    const ToolRun run = runTool({"check", file, folder.path("missing.ini"), "--format", "json"});
    EXPECT_EQ(run.exitCode, 3);
    EXPECT_EQ(json::parse(run.out).size(), 2U);
    EXPECT_THAT(run.err, HasSubstr("does not exist"));
    EXPECT_TRUE(json::parse(runTool({"check", folder.path("missing.ini"), "--format", "json"}).out).empty());
}

TEST(Check, ControlCharactersInNamesOfFilesAreShownAsEscapes) {
    const TempFolder folder;
    const std::string odd = "a\x1b[31m\xC2\x9B\nb\"\\.ini";
    folder.write(odd, "[setting]\nodd=1\n");
    folder.write("clean" + odd, "[setting]\n");
    const std::string shown = "a\\u001b[31m\\u009b\\nb\"\\.ini";
    const ToolRun run = runTool({"check", "-C", folder.path(""), odd, "clean" + odd, "none" + odd});
    EXPECT_EQ(run.exitCode, 3);
    ASSERT_EQ(run.lines().size(), 2U);
    EXPECT_EQ(run.lines()[0].rfind(shown + ":2:1: warning: ", 0), 0U) << run.out;
    EXPECT_EQ(run.lines()[1], "clean" + shown + ": no findings");
    EXPECT_EQ(run.err, "ttconfig: settings file none" + shown + ": does not exist; check the name\n");
    const json findings = json::parse(runTool({"check", "-C", folder.path(""), odd, "--format", "json"}).out);
    EXPECT_EQ(findings[0]["file"], odd);
}

TEST(Check, PlatformDataTellsWhichCodesItDoesNotKnow) {
    const TempFolder folder;
    const std::string file = folder.write("a.ini", "[StkExchangeOrderLimit]\nSH-600000,SH-610000=1,股\n");
    const std::string data =
        folder.write("data.json", R"({"stockTypes": [{"type": 100003, "market": "SH", "codes": ["600*"]}]})");
    EXPECT_EQ(runTool({"check", file}).exitCode, 0);
    const ToolRun run = runTool({"check", file, "--platform", data});
    EXPECT_EQ(run.exitCode, 1);
    ASSERT_EQ(run.lines().size(), 1U);
    EXPECT_THAT(run.out, HasSubstr(":2:11: note: the platform data knows no instrument \"610000\" of SH"));
}

// Text output shows a limited number of findings per rule; a last line counts the rest.
TEST(Check, OnlyTheFirstOfManyFindingsOfARuleAreShown) {
    const TempFolder folder;
    std::string settings = "[setting]\n";
    for (int i = 0; i < 1500; ++i)
        settings += "odd" + std::to_string(i) + "=1\n";
    const std::string file = folder.write("a.ini", settings + "isshowmaxcanorder=2\n");
    const std::vector<std::string> lines = runTool({"check", file}).lines();
    ASSERT_EQ(lines.size(), 1002U);
    EXPECT_THAT(lines[1000], HasSubstr("[flag-not-0-or-1]"));
    EXPECT_EQ(lines.back(), file + ": 500 more of unknown-key (--format json has them all)");
    EXPECT_EQ(json::parse(runTool({"check", file, "--format", "json"}).out).size(), 1501U);
    const ToolRun without = runTool({"check", file, "--disable", "unknown-key"});
    EXPECT_EQ(without.lines().size(), 1U);
}

TEST(Check, JsonHasEveryFindingWithItsPlaces) {
    const TempFolder folder;
    folder.write("a.ini", "[setting]\nneedmaxamount=12\nneedmaxamount=15\n");
    folder.write("b.ini", "[setting]\n");
    const ToolRun run = runTool({"check", "-C", folder.path(""), "a.ini", "b.ini", "--format", "json"});
    EXPECT_EQ(run.exitCode, 1);
    const json findings = json::parse(run.out);
    ASSERT_EQ(findings.size(), 1U);
    EXPECT_EQ(findings[0]["file"], "a.ini");
    EXPECT_EQ(findings[0]["line"], 3);
    EXPECT_EQ(findings[0]["column"], 1);
    EXPECT_EQ(findings[0]["length"], 13);
    EXPECT_EQ(findings[0]["rule"], "repeated-key");
    EXPECT_EQ(findings[0]["severity"], "warning");
    EXPECT_EQ(findings[0]["related"], json({{"line", 2}, {"column", 1}}));
    const ToolRun clean = runTool({"check", "-C", folder.path(""), "b.ini", "--format", "json"});
    EXPECT_EQ(clean.exitCode, 0);
    EXPECT_TRUE(json::parse(clean.out).empty());
}

TEST(Check, MarkdownIsForTheReferencePageAlone) {
    const TempFolder folder;
    EXPECT_EQ(runTool({"check", folder.write("a.ini", kTwoFindings), "--format", "markdown"}).exitCode, 2);
    EXPECT_EQ(runTool({"check", "--explain", "unknown-key", "--format", "markdown"}).exitCode, 2);
}

// Every rule in one file, except those that need platform data or a separate file.
TEST(Check, AFileWithEveryMistakeIsReportedAsRecorded) {
    const ToolRun run = runTool({"check", "-C", kHere, "everything.ini", "--platform", "everything.json"});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.err, "");
    tests::expectAsRecorded(run.out, kHere + "/everything.expected");
    for (const Rule& rule : kRules)
        EXPECT_THAT(run.out, HasSubstr("[" + std::string(rule.name) + "]")) << rule.name;
}

}  // namespace
