// Completion: what the last word can become, and the shells that ask for it.

#include <gmock/gmock.h>

#include <filesystem>
#include <string>
#include <vector>

#include "tests/support/tempfile.h"
#include "tests/tools/ttconfig/support/subcommandlist.h"
#include "tests/tools/ttconfig/support/toolrun.h"
#include "traderbase/base/config/internal/keys/settingkeys.h"
#include "traderbase/base/config/internal/switches/platformswitchtable.h"
#include "ttconfig/calls/calltable.h"

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using tests::completionsOf;
using tests::ToolRun;

TEST(Completion, KnowsWhichWordFitsWhere) {
    const struct {
        std::vector<std::string> words;
        std::vector<std::string> become;
    } rows[] = {
        {{"su"}, {"summary"}},
        {{"script", ""}, {"check"}},
        {{"completion", ""}, {"bash", "zsh", "fish"}},
        {{"--col"}, {"--color"}},
        {{"--color", ""}, {"auto", "always", "never"}},
        {{"--color", "never", "repo"}, {"report"}},
        {{"--color=a"}, {"--color=auto", "--color=always"}},
        {{"-C", ""}, {":directories"}},
        {{"-C", "/", "swi"}, {"switches"}},
        {{"session", "--settings", ""}, {":files"}},
        {{"session", "--settings=x"}, {":files"}},
        {{"session", ""}, {}},
        {{"ask", "isNeedMaxA"}, {"isNeedMaxAmountPts"}},
        {{"ask", "--format", "json", "isNeedMaxA"}, {"isNeedMaxAmountPts"}},
        {{"ask", "--", "isNeedMaxA"}, {"isNeedMaxAmountPts"}},
        {{"ask", "isNeedMaxAmountPts", ""}, {}},
        {{"ask", "--", "-"}, {}},
        {{"explain", "--override", "needmaxam"}, {"needmaxamount="}},
        {{"explain", "--override", "needmaxamount="}, {"needmaxamount=true", "needmaxamount=false"}},
        {{"explain", "--override=needmaxamount=t"}, {"--override=needmaxamount=true"}},
        {{"keys", "flowhist"}, {"flowhistorydays"}},
        {{"keys", "needmaxam"}, {"needmaxamount"}},
        {{"check", ""}, {":files"}},
        {{"check", "a.ini", ""}, {":files"}},
        {{"check", "--disable", "byte-"}, {"byte-order-mark"}},
        {{"diff", "a.ini", ""}, {":files"}},
        {{"diff", "a.ini", "b.ini", ""}, {}},
        {{"limits", "SH", ""}, {}},
        {{"nosuchsubcommand", "--x"}, {}},
        {{"nosuchsubcommand", ""}, {}},
        {{"script", "nosuchsubcommand", ""}, {}},
        {{"switches", "--format", "m"}, {"markdown"}},
        {{"check", "--disable", "unknown-k"}, {"unknown-key"}},
        {{"check", "--fatal", "bad-platform-id,unknown-k"}, {"bad-platform-id,unknown-key"}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(completionsOf(row.words), row.become) << testing::PrintToString(row.words);
}

TEST(Completion, KnowsEveryOperationKeySectionAndSwitch) {
    const std::vector<std::string> calls = completionsOf({"ask", ""});
    for (const auto& [name, rows] : ttconfig::callTable().rows())
        EXPECT_THAT(calls, Contains(name));
    const std::vector<std::string> keys = completionsOf({"keys", ""});
    for (const auto& row : ttservice::internal::kSettingKeys) {
        if (row.key != "*") {
            EXPECT_THAT(keys, Contains(std::string(row.key)));
        }
        EXPECT_THAT(keys, Contains(std::string(row.section)));
    }
    for (const auto& row : ttservice::internal::kPlatformSwitches)
        EXPECT_THAT(keys, Contains(std::string(row.key)));
    EXPECT_THAT(keys, Not(Contains("*")));
}

TEST(Completion, ShowsWhatWordsMean) {
    EXPECT_EQ(tests::runTool({"completion", "words", "--", "swit"}).out, "switches\tList the platform switches\n");
    EXPECT_THAT(tests::runTool({"completion", "words", "--", "ask", "isNeedMaxA"}).out,
                testing::MatchesRegex("isNeedMaxAmountPts\t.*\\.\n"));
}

TEST(Completion, OfNoWordsIsEmpty) {
    const ToolRun run = tests::runTool({"completion", "words"});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.out, "");
    EXPECT_THAT(completionsOf({"-C"}), ElementsAre("-C"));
}

// A folder whose bin/ttconfig is the tool, with files to complete.
class ShellFolder {
public:
    ShellFolder() {
        folder.write("desk.ini", "");
        folder.write("deeper/x", "");
        std::filesystem::create_directory(folder.path("bin"));
        std::filesystem::create_symlink(TTCONFIG_PATH, folder.path("bin/ttconfig"));
    }

    // Runs a shell script, which prints the completions, one per line.
    ToolRun run(const std::string& shell, const std::string& script) const {
        folder.write("script", script);
        return tests::runShell("cd '" + folder.path("") + "' && PATH=\"$PWD/bin:$PATH\" " + shell + " script");
    }

private:
    tests::TempFolder folder;
};

bool hasShell(const std::string& name) {
    return tests::runShell("command -v " + name).exitCode == 0;
}

// What bash completes for this line when the cursor is at its end. In bash, readline splits the line into words; here a
// loop with the same delimiters does.
std::vector<std::string> bashCompletions(const std::string& line) {
    const ShellFolder folder;
    const std::string script = R"sh(
source <(ttconfig completion bash)
complete -p ttconfig >/dev/null || exit 1
COMP_LINE=$1 COMP_POINT=${#1} COMP_WORDS=() word=
for ((i = 0; i < ${#1}; i++)); do
    c=${1:i:1}
    case $c in
        ' ') [[ -n $word ]] && COMP_WORDS+=("$word"); word= ;;
        = | :) [[ -n $word ]] && COMP_WORDS+=("$word"); COMP_WORDS+=("$c"); word= ;;
        *) word+=$c ;;
    esac
done
[[ $1 != *[=:] ]] && COMP_WORDS+=("$word")
COMP_CWORD=$((${#COMP_WORDS[@]} - 1))
_ttconfig
printf '%s\n' "${COMPREPLY[@]}"
)sh";
    const ToolRun run = folder.run("bash", "set -- '" + line + "'\n" + script);
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(run.exitCode, 0);
    return run.out == "\n" ? std::vector<std::string>() : run.lines();
}

TEST(Completion, WorksInBash) {
    if (!hasShell("bash")) GTEST_SKIP() << "bash is not installed";
    const struct {
        const char* line;
        std::vector<std::string> become;
    } rows[] = {
        {"ttconfig swi", {"switches"}},
        {"ttconfig script ", {"check"}},
        {"ttconfig ask isNeedMaxA", {"isNeedMaxAmountPts"}},
        {"ttconfig check --format s", {"sarif"}},
        {"ttconfig check --format=s", {"sarif"}},
        {"ttconfig --color=", {"auto", "always", "never"}},
        {"ttconfig explain --override needmaxam", {"needmaxamount="}},
        {"ttconfig explain --override needmaxamount=t", {"true"}},
        {"ttconfig check --disable byte-", {"byte-order-mark"}},
        {"ttconfig check de", {"desk.ini"}},
        {"ttconfig session --settings=de", {"desk.ini"}},
        {"ttconfig -C de", {"deeper"}},
        {"ttconfig ask isNeedMaxAmountPts ", {}},
    };
    for (const auto& row : rows) {
        std::vector<std::string> found = bashCompletions(row.line);
        if (std::string(row.line) == "ttconfig check de" ||
            std::string(row.line).find("--settings") != std::string::npos) {
            // A file may be in any folder, so folders are offered too.
            EXPECT_THAT(found, testing::UnorderedElementsAre("desk.ini", "deeper")) << row.line;
        } else {
            EXPECT_EQ(found, row.become) << row.line;
        }
    }
}

TEST(Completion, WorksInFish) {
    if (!hasShell("fish")) GTEST_SKIP() << "fish is not installed";
    const ShellFolder folder;
    const ToolRun syntax = tests::runShell("\"$TTCONFIG\" completion fish | fish --no-execute");
    EXPECT_EQ(syntax.exitCode, 0) << syntax.err;
    const struct {
        const char* line;
        const char* becomes;
    } rows[] = {{"ttconfig swi", "switches\tList the platform switches\n"},
                {"ttconfig script che", "check\t"},
                {"ttconfig ask isNeedMaxA", "isNeedMaxAmountPts\t"},
                {"ttconfig check --format s", "sarif\n"},
                {"ttconfig check --format=s", "--format=sarif\n"},
                {"ttconfig check des", "desk.ini\n"},
                {"ttconfig -C de", "deeper/"}};
    for (const auto& row : rows) {
        const ToolRun run = folder.run(
            "fish --no-config", "ttconfig completion fish | source\ncomplete -C '" + std::string(row.line) + "'\n");
        EXPECT_EQ(run.err, "");
        EXPECT_THAT(run.out, testing::StartsWith(row.becomes)) << row.line;
    }
}

TEST(Completion, WorksInZsh) {
    if (!hasShell("zsh")) GTEST_SKIP() << "zsh is not installed";
    const ShellFolder folder;
    const ToolRun syntax = folder.run("zsh -f -n", tests::runTool({"completion", "zsh"}).out);
    EXPECT_EQ(syntax.exitCode, 0);
    EXPECT_EQ(syntax.err, "");
    // The completion system's own functions, replaced by ones that print their arguments.
    const std::string script = R"sh(
compdef() { print -r "compdef $*" }
_describe() { shift; print -rl -- "${(@P)1}"; (($# > 1)) && print -r "open"; return 0 }
_files() { print -r "files $*" }
compset() { print -r "compset $*" }
source =(ttconfig completion zsh)
try() { words=("$@"); CURRENT=$#; PREFIX=${words[-1]}; _ttconfig }
try ttconfig swi
try ttconfig check --disable byte-
try ttconfig explain --override needmaxam
try ttconfig check ''
try ttconfig session --settings=x
try ttconfig -C ''
try ttconfig nosuchsubcommand ''
)sh";
    const ToolRun run = folder.run("zsh -f", script);
    EXPECT_EQ(run.err, "");
    std::vector<std::string> lines = run.lines();
    ASSERT_EQ(lines.size(), 9U) << run.out;
    EXPECT_EQ(lines[0], "compdef _ttconfig ttconfig");
    EXPECT_EQ(lines[1], "switches:List the platform switches");
    EXPECT_THAT(lines[2], testing::StartsWith("byte-order-mark:"));
    EXPECT_THAT(lines[3], testing::StartsWith("needmaxamount=:"));
    EXPECT_THAT(std::vector<std::string>(lines.begin() + 4, lines.end()),
                ElementsAre("open", "files ", "compset -P *=", "files ", "files -/"));
}

}  // namespace
