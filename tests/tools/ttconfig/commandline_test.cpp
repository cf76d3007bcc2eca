// The command line: help, version and usage errors.

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "tests/tools/ttconfig/toolrun.h"

namespace {

using testing::HasSubstr;
using testing::MatchesRegex;
using testing::StartsWith;
using tests::runTool;
using tests::ToolRun;

TEST(CommandLine, WithoutASubcommandIsHelpAndExitCode2) {
    const ToolRun run = runTool({});
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_EQ(run.out, "");
    EXPECT_THAT(run.err, HasSubstr("Subcommands:"));
    EXPECT_EQ(runTool({"-C", "/"}).exitCode, 2);
}

TEST(CommandLine, EverySubcommandsHelpHasAnExample) {
    for (const char* name :
         {"session", "ask", "switches", "keys", "summary", "products", "limits", "sessions", "algos"}) {
        EXPECT_THAT(runTool({"--help"}).out, HasSubstr(std::string("\n  ") + name));
        const ToolRun run = runTool({name, "--help"});
        EXPECT_EQ(run.exitCode, 0);
        EXPECT_EQ(run.err, "");
        EXPECT_THAT(run.out, HasSubstr("Example"));
        EXPECT_THAT(run.out, HasSubstr(std::string("ttconfig ") + name)) << name;
    }
}

TEST(CommandLine, TellsItsVersion) {
    const ToolRun run = runTool({"--version"});
    EXPECT_THAT(run.out, MatchesRegex("ttconfig [0-9]+\\.[0-9]+\\.[0-9]+\n"));
    EXPECT_EQ(run.exitCode, 0);
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
    };
    for (const auto& arguments : rows) {
        const ToolRun run = runTool(arguments);
        EXPECT_EQ(run.exitCode, 2) << arguments.back();
        EXPECT_EQ(run.out, "") << arguments.back();
        EXPECT_THAT(run.err, StartsWith("ttconfig: ")) << arguments.back();
    }
}

TEST(CommandLine, AListingIsCutShortQuietly) {
    const ToolRun run = tests::runShell("{ \"$TTCONFIG\" switches; echo \"exit $?\" >&2; } | head -n 1");
    EXPECT_THAT(run.out, StartsWith("key "));
    EXPECT_EQ(run.err, "exit 0\n");
}

}  // namespace
