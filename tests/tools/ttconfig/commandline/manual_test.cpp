// The manual page: complete, and in valid form for the man program.

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "tests/tools/ttconfig/support/subcommandlist.h"
#include "tests/tools/ttconfig/support/toolrun.h"

namespace {

using testing::HasSubstr;
using testing::StartsWith;
using tests::ToolRun;

// The text as the page writes it.
std::string roff(const std::string& word) {
    std::string text;
    for (const char c : word)
        text += c == '-' ? std::string("\\-") : std::string(1, c);
    return text;
}

// The part of the page about a subcommand.
std::string partAbout(const std::string& page, const std::string& subcommand) {
    const std::size_t begin = page.find("\n.SS " + subcommand + '\n');
    if (begin == std::string::npos) return {};
    return page.substr(begin, page.find("\n.S", begin + 1) - begin);
}

TEST(Manual, HasEverySubcommandWithEveryOption) {
    const ToolRun run = tests::runTool({"manual"});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_THAT(run.out, StartsWith(".TH TTCONFIG 1 "));
    for (const auto& subcommand : tests::allSubcommands()) {
        std::string name = subcommand.front();
        if (subcommand.size() > 1) name += ' ' + subcommand.back();
        const std::string part = partAbout(run.out, name);
        EXPECT_THAT(part, HasSubstr("ttconfig " + name)) << name;
        for (const std::string& option : tests::optionsOf(subcommand))
            EXPECT_THAT(part, HasSubstr("\\fB" + roff(option) + "\\fR")) << name;
    }
    for (const std::string& option : tests::completionsOf({"-"}))
        EXPECT_THAT(run.out.substr(0, run.out.find(".SH SUBCOMMANDS")), HasSubstr(roff(option)));
}

TEST(Manual, HasEveryRuleOfCheckAndEveryExitCode) {
    const std::string page = tests::runTool({"manual"}).out;
    const std::vector<std::string> rules = tests::completionsOf({"check", "--explain", ""});
    EXPECT_GT(rules.size(), 10U);
    for (const std::string& rule : rules)
        EXPECT_THAT(page, HasSubstr("\n.B " + roff(rule) + '\n'));
    for (const char* code : {"0", "1", "2", "3", "4"})
        EXPECT_THAT(page, HasSubstr(std::string("\n.B ") + code + '\n'));
}

TEST(Manual, CausesNoWarningOfTheManProgram) {
    if (tests::runShell("command -v groff").exitCode != 0) GTEST_SKIP() << "groff is not installed";
    const ToolRun run = tests::runShell("\"$TTCONFIG\" manual | groff -man -Tutf8 -ww -z");
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.err, "");
}

TEST(Manual, HasNoHelpTextThatManReadsAsARequest) {
    const std::vector<std::string> lines = tests::runTool({"manual"}).lines();
    for (const std::string& line : lines) {
        if (line.empty() || (line[0] != '.' && line[0] != '\'')) continue;
        EXPECT_THAT(line, testing::MatchesRegex("\\.(TH|SH|SS|PP|TP|RS 4|RE|nf|fi|br|B|I|BR)( .*)?"));
    }
}

}  // namespace
