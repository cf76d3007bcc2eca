// Exit codes: every subcommand with every code that it can end with.

#include <gmock/gmock.h>

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "tests/support/tempfile.h"
#include "tests/tools/ttconfig/support/subcommandlist.h"
#include "tests/tools/ttconfig/support/toolrun.h"

namespace {

using testing::StartsWith;
using tests::ToolRun;

// The command line runs in a folder with the files named here. Code 4 needs an answer that cannot be written, the only
// way to cause it from outside.
struct Row {
    const char* line;
    int code;
};

constexpr Row kRows[] = {
    {"session <requests", 0},
    {"session extra", 2},
    {"session --settings missing.ini", 3},
    {"session <requests >/dev/full", 4},

    {"ask isNeedMaxAmountPts 13 --settings good.ini", 0},  // for any answer
    {"ask --test isNeedMaxAmountPts 12 --settings good.ini", 0},
    {"ask --test isNeedMaxAmountPts 13 --settings good.ini", 1},
    {"ask --test isNeedMaxAmountPts 13 --settings good.ini --format json", 1},
    {"ask --test getRefLimit --settings good.ini", 2},  // neither true nor false
    {"ask --test getAllpts --settings good.ini", 2},
    {"ask noSuchCall", 2},
    {"ask isNeedMaxAmountPts 12 --settings missing.ini", 3},
    {"ask --test isNeedMaxAmountPts 12 --settings missing.ini", 3},
    {"ask isNeedMaxAmountPts 12 --settings good.ini >/dev/full", 4},

    {"explain isNeedMaxAmountPts 13 --settings good.ini", 0},
    {"explain isNeedMaxAmountPts 13 --why-not true --settings good.ini", 0},
    {"explain noSuchCall --settings good.ini", 2},
    {"explain isNeedMaxAmountPts --settings good.ini", 2},
    {"explain isNeedMaxAmountPts 13 --settings folder", 3},
    {"explain isNeedMaxAmountPts 13 --settings good.ini --platform missing.json", 3},
    {"explain isNeedMaxAmountPts 13 --settings good.ini >/dev/full", 4},

    {"check good.ini", 0},
    {"check --explain byte-order-mark", 0},
    {"check --format sarif good.ini", 0},
    {"check bad.ini", 1},
    {"check good.ini bad.ini", 1},
    {"check --format json bad.ini", 1},
    {"check --format sarif bad.ini", 1},
    {"check --disable no-such-rule good.ini", 2},
    {"check --fatal no-such-rule good.ini", 2},
    {"check --explain no-such-rule", 2},
    {"check missing.ini", 3},
    {"check bad.ini missing.ini", 3},
    {"check folder", 3},
    {"check binary.ini", 3},
    {"check empty.ini", 3},
    {"check good.ini --platform missing.json", 3},
    {"check bad.ini >/dev/full", 4},

    {"diff good.ini same.ini", 0},
    {"diff good.ini other.ini", 1},
    {"diff --format json good.ini other.ini", 1},
    {"diff --platforms 99 good.ini other.ini", 0},
    {"diff good.ini", 2},
    {"diff good.ini missing.ini", 3},
    {"diff missing.ini good.ini", 3},
    {"diff folder good.ini", 3},
    {"diff good.ini other.ini >/dev/full", 4},

    {"test right.expect --settings good.ini", 0},
    {"test wrong.expect --settings good.ini", 1},
    {"test none.expect --settings good.ini", 2},
    {"test right.expect", 2},
    {"test missing.expect --settings good.ini", 3},
    {"test right.expect --settings missing.ini", 3},
    {"test wrong.expect --settings good.ini >/dev/full", 4},

    {"report --settings good.ini -o page.html", 0},
    {"report --settings good.ini --against other.ini -o page.html", 0},
    {"report --settings good.ini", 2},
    {"report --settings good.ini -o good.ini", 2},
    {"report --settings missing.ini -o page.html", 3},
    {"report --settings good.ini --against missing.ini -o page.html", 3},
    {"report --settings good.ini -o no/such/folder/page.html", 3},
    {"report --settings good.ini -o folder", 3},

    {"switches", 0},
    {"switches --platform 12 --settings good.ini", 0},
    {"switches extra", 2},
    {"switches --platform 12 --settings missing.ini", 3},
    {"switches >/dev/full", 4},

    {"keys", 0},
    {"keys needmaxamount", 0},
    {"keys nosuchkey", 2},
    {"keys >/dev/full", 4},

    {"summary --settings good.ini", 0},
    {"summary extra", 2},
    {"summary --settings binary.ini", 3},
    {"summary --settings good.ini >/dev/full", 4},

    {"platform 12 --settings good.ini", 0},
    {"platform 99 --settings good.ini", 0},
    {"platform x --settings good.ini", 2},
    {"platform 12 --settings missing.ini", 3},
    {"platform 12 --settings good.ini >/dev/full", 4},

    {"products --settings good.ini", 0},
    {"products extra", 2},
    {"products --settings missing.ini", 3},
    {"products --settings good.ini >/dev/full", 4},

    {"limits SH 600000 --settings good.ini", 0},
    {"limits SH", 2},
    {"limits SH 600000 --settings missing.ini", 3},
    {"limits SH 600000 --settings good.ini >/dev/full", 4},

    {"sessions --script good.lua", 0},
    {"sessions --script good.lua --at noon", 2},
    {"sessions --script missing.lua", 3},
    {"sessions --script good.lua >/dev/full", 4},

    {"algos --script good.lua", 0},
    {"algos", 2},
    {"algos --script missing.lua", 3},
    {"algos --script good.lua >/dev/full", 4},

    {"script check good.lua", 0},
    {"script check bad.lua", 1},
    {"script check", 2},
    {"script check missing.lua", 3},
    {"script check bad.lua >/dev/full", 4},

    {"completion bash", 0},
    {"completion bash extra", 2},
    {"completion bash >/dev/full", 4},
    {"completion zsh", 0},
    {"completion zsh extra", 2},
    {"completion zsh >/dev/full", 4},
    {"completion fish", 0},
    {"completion fish extra", 2},
    {"completion fish >/dev/full", 4},
};

class Folder {
public:
    Folder() {
        const std::string script = tests::fileText(std::string(TT_SOURCE_DIR) + "/samples/luaScripts/MarketTime.lua");
        folder.write("requests", "{\"call\":\"getRefLimit\"}\n");
        folder.write("good.ini", "[setting]\nneedmaxamount=12\nrefLimit=7\n");
        folder.write("same.ini", "; the same in other words\n[setting]\nrefLimit=7\nneedmaxamount=12\n");
        folder.write("other.ini", "[setting]\nneedmaxamount=12,15\nrefLimit=7\n");
        folder.write("bad.ini", "[setting]\nneedmaxamonut=12\n");
        folder.write("binary.ini", std::string("[setting]\n\0\n", 12));
        folder.write("empty.ini", "");
        folder.write("folder/x", "");
        folder.write("right.expect", "# a comment\nisNeedMaxAmountPts 12 = true\n");
        folder.write("wrong.expect", "isNeedMaxAmountPts 12 = false\n");
        folder.write("none.expect", "isNeedMaxAmountPts 12\n");
        folder.write("good.lua", script);
        folder.write("bad.lua", "this is no script\n");
    }

    ToolRun run(const std::string& line) const {
        return tests::runShell("cd '" + folder.path("") + "' && exec \"$TTCONFIG\" " + line);
    }

private:
    tests::TempFolder folder;
};

std::string subcommandOf(const std::string& line) {
    for (const auto& words : tests::allSubcommands()) {
        std::string name = words.front();
        if (words.size() > 1) name += ' ' + words.back();
        if (line == name || line.rfind(name + ' ', 0) == 0) return name;
    }
    return {};
}

TEST(ExitCodes, SayHowEachSubcommandEnded) {
    const Folder folder;
    for (const Row& row : kRows) {
        const ToolRun run = folder.run(row.line);
        EXPECT_EQ(run.exitCode, row.code) << row.line << '\n' << run.err;
        if (row.code >= 2) {
            EXPECT_THAT(run.err, StartsWith("ttconfig: ")) << row.line;
        }
    }
}

// One message and no answer. (Notes that the client prints about what it loads do not count.)
TEST(ExitCodes, OfUnusableFilesComeWithOneMessage) {
    const Folder folder;
    for (const Row& row : kRows) {
        if (row.code != 3) continue;
        const ToolRun run = folder.run(row.line);
        EXPECT_EQ(std::count(run.err.begin(), run.err.end(), '\n'), 1) << row.line << '\n' << run.err;
    }
}

TEST(ExitCodes, AreTriedForEverySubcommand) {
    std::map<std::string, std::set<int>> tried;
    for (const Row& row : kRows)
        tried[subcommandOf(row.line)].insert(row.code);
    // A subcommand that reads no file cannot fail to read one; the report is written to a file.
    const std::set<std::string> readNothing = {"keys", "completion bash", "completion zsh", "completion fish"};
    const std::set<std::string> judge = {"ask", "check", "diff", "test", "script check"};
    for (const auto& words : tests::allSubcommands()) {
        std::string name = words.front();
        if (words.size() > 1) name += ' ' + words.back();
        std::set<int> expected = {0, 2};
        if (readNothing.count(name) == 0) expected.insert(3);
        if (judge.count(name) != 0) expected.insert(1);
        if (name != "report") expected.insert(4);
        EXPECT_EQ(tried[name], expected) << name;
    }
}

}  // namespace
