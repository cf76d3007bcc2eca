// The command line: help, version and usage errors.

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "tests/tools/ttconfig/support/subcommandlist.h"
#include "tests/tools/ttconfig/support/toolrun.h"
#include "traderbase/base/config/version.h"

namespace {

using testing::HasSubstr;
using testing::MatchesRegex;
using testing::StartsWith;
using tests::runTool;
using tests::ToolRun;

std::string joined(const std::vector<std::string>& words) {
    std::string text;
    for (const std::string& word : words)
        text += (text.empty() ? "" : " ") + word;
    return text;
}

TEST(CommandLine, WithoutASubcommandIsHelpAndExitCode2) {
    const ToolRun run = runTool({});
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_EQ(run.out, "");
    EXPECT_THAT(run.err, HasSubstr("Subcommands:"));
    EXPECT_EQ(runTool({"-C", "/"}).exitCode, 2);
}

TEST(CommandLine, EverySubcommandsHelpHasAnExample) {
    const auto all = tests::allSubcommands();
    ASSERT_GE(all.size(), 19U);
    for (std::vector<std::string> words : all) {
        const std::string name = joined(words);
        SCOPED_TRACE(name);
        EXPECT_THAT(runTool({"--help"}).out, HasSubstr("\n  " + words.front()));
        words.push_back("--help");
        const ToolRun run = runTool(words);
        EXPECT_EQ(run.exitCode, 0);
        EXPECT_EQ(run.err, "");
        const std::size_t example = run.out.find("Example");
        ASSERT_NE(example, std::string::npos);
        EXPECT_THAT(run.out.substr(example), HasSubstr("ttconfig " + name));
        for (const std::string& line : run.lines())
            EXPECT_LE(line.size(), 120U) << line;
    }
}

TEST(CommandLine, TheHelpOfATopicShowsWhatIsBelowIt) {
    for (const char* topic : {"script", "completion"}) {
        const ToolRun run = runTool({topic, "--help"});
        EXPECT_EQ(run.exitCode, 0);
        EXPECT_THAT(run.out, HasSubstr("Example"));
        for (const std::string& below : tests::completionsOf({topic, ""}))
            EXPECT_THAT(run.out, HasSubstr("\n  " + below));
        EXPECT_EQ(runTool({topic}).exitCode, 2);
    }
}

TEST(CommandLine, HiddenSubcommandsHaveHelpButAreNotListed) {
    EXPECT_THAT(runTool({"manual", "--help"}).out, HasSubstr("Example"));
    EXPECT_THAT(runTool({"completion", "words", "--help"}).out, HasSubstr("Example"));
    EXPECT_THAT(runTool({"--help"}).out, testing::Not(HasSubstr("\n  manual")));
    EXPECT_THAT(runTool({"completion", "--help"}).out, testing::Not(HasSubstr("\n  words")));
}

TEST(CommandLine, ShowsItsVersionAndTheLibrarys) {
    const ToolRun run = runTool({"--version"});
    EXPECT_THAT(run.out, MatchesRegex("ttconfig [0-9]+\\.[0-9]+\\.[0-9]+\n"
                                      "traderbaseconfig [0-9]+\\.[0-9]+\\.[0-9]+\n"));
    EXPECT_THAT(run.out, HasSubstr(std::string("traderbaseconfig ") + ttservice::traderbaseVersion() + '\n'));
    EXPECT_EQ(run.exitCode, 0);
}

TEST(CommandLine, TakesAnEmptyValueBehindTheEqualSign) {
    // An empty name is never the name of a file, and the next word is not taken as the value.
    const ToolRun file = runTool({"ask", "--settings=", "getRefLimit"});
    EXPECT_EQ(file.exitCode, 3);
    EXPECT_THAT(file.err, HasSubstr("settings file"));
    EXPECT_EQ(runTool({"check", "--explain=", "x.ini"}).exitCode, 2);
    EXPECT_EQ(runTool({"switches", "--format="}).exitCode, 2);
    // This does not apply to options without a value, nor to words after "--".
    EXPECT_EQ(runTool({"ask", "--test=", "getRefLimit"}).exitCode, 2);
    EXPECT_EQ(runTool({"ask", "getMaxPermission", "--", "--settings="}).exitCode, 0);
}

TEST(CommandLine, ListsTheExitCodes) {
    const std::string help = runTool({"--help"}).out;
    for (const char* code : {"0", "1", "2", "3", "4"})
        EXPECT_THAT(help, HasSubstr(std::string("\n  ") + code + "  "));
}

TEST(CommandLine, UsageErrorsHaveExitCode2AndNoAnswer) {
    const std::vector<std::vector<std::string>> rows = {
        {"frobnicate"},
        {"--settings", "x", "session"},
        {"session", "extra"},
        {"session", "--settings"},
        {"session", "--format", "json"},
        {"session", "--", "x"},
        {"ask"},
        {"ask", "--", "getRefLimit"},
        {"switches", "x"},
        {"switches", "--format", "xml"},
        {"switches", "--settings", "x"},
        {"keys", "a", "b"},
        {"summary", "--format", "markdown"},
        {"session", "ask"},
        {"session", "--color", "red"},
        {"--color", "switches"},
        {"ask", "--test"},
        {"explain", "isNeedMaxAmountPts", "12"},
        {"explain", "isNeedMaxAmountPts", "12", "--override", "needmaxamount"},
        {"explain", "isNeedMaxAmountPts", "12", "--override", "=true"},
        {"explain", "isNeedMaxAmountPts", "12", "--override", "needmaxamount=1"},
        {"check"},
        {"check", "--explain"},
        {"check", "--explain", "unknown-key", "x.ini"},
        {"check", "--format", "xml", "x.ini"},
        {"diff", "x.ini"},
        {"diff", "x.ini", "y.ini", "z.ini"},
        {"diff", "--platforms", "12,x", "x.ini", "y.ini"},
        {"diff", "--platforms", "12,", "x.ini", "y.ini"},
        {"diff", "--platforms", "", "x.ini", "y.ini"},
        {"test", "--settings", "x.ini"},
        {"test", "x.expect"},
        {"platform", "--settings", "x.ini"},
        {"platform", "12"},
        {"platform", "x", "--settings", "x.ini"},
        {"platform", "2147483648", "--settings", "x.ini"},
        {"switches", "--platform", "12"},
        {"switches", "--platform", "x", "--settings", "x.ini"},
        {"report", "--settings", "x.ini"},
        {"report", "-o", "x.html"},
        {"completion", "tcsh"},
        {"completion", "bash", "x"},
    };
    for (const auto& arguments : rows) {
        const ToolRun run = runTool(arguments);
        EXPECT_EQ(run.exitCode, 2) << arguments.back();
        EXPECT_EQ(run.out, "") << arguments.back();
        EXPECT_THAT(run.err, StartsWith("ttconfig: ")) << arguments.back();
    }
}

TEST(CommandLine, AMisspeltSubcommandGetsASuggestion) {
    const struct {
        std::vector<std::string> words;
        const char* meant;
    } rows[] = {
        {{"chek", "x.ini"}, "check"},    {{"explian", "getRefLimit"}, "explain"},
        {{"Report"}, "report"},          {{"script", "chekc", "x.lua"}, "check"},
        {{"completion", "bsh"}, "bash"},
    };
    for (const auto& row : rows) {
        const ToolRun run = runTool(row.words);
        EXPECT_EQ(run.exitCode, 2) << row.meant;
        EXPECT_THAT(run.err, HasSubstr("did you mean " + std::string(row.meant) + "?"));
    }
    // No suggestion: nothing is near, the name is hidden, or the word is not in place of a subcommand.
    const std::vector<std::vector<std::string>> others = {
        {"frobnicate"}, {"completion", "word"}, {"switches", "check"}};
    for (const auto& words : others)
        EXPECT_THAT(runTool(words).err, Not(HasSubstr("did you mean"))) << words.back();
}

TEST(CommandLine, AListingIsCutShortQuietly) {
    const ToolRun run = tests::runShell("{ \"$TTCONFIG\" switches; echo \"exit $?\" >&2; } | head -n 1");
    EXPECT_THAT(run.out, StartsWith("key "));
    EXPECT_EQ(run.err, "exit 0\n");
}

}  // namespace
