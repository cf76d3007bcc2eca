// Colour: used on a terminal only, unless --color, NO_COLOR or TERM say otherwise.

#include "ttconfig/text/colour.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "tests/support/tempfile.h"
#include "tests/tools/ttconfig/support/terminalrun.h"
#include "tests/tools/ttconfig/support/toolrun.h"

namespace {

using testing::HasSubstr;
using testing::Not;
using tests::runOnTerminal;
using tests::Terminal;
using ttconfig::Colours;
using ttconfig::Tint;

constexpr const char* kEscape = "\x1b[";

TEST(Colours, LeaveEverythingAsItIsWhenTheyAreOff) {
    const Colours off;
    EXPECT_FALSE(off.areOn());
    for (const Tint tint :
         {Tint::Place, Tint::Error, Tint::Warning, Tint::Note, Tint::Good, Tint::Bad, Tint::Heading, Tint::Dim}) {
        EXPECT_EQ(off(tint, "word"), "word");
    }
}

TEST(Colours, EndBehindThePieceTheyBeginAt) {
    const Colours on(true);
    EXPECT_TRUE(on.areOn());
    EXPECT_EQ(on(Tint::Error, "error"), "\x1b[1;31merror\x1b[0m");
    EXPECT_EQ(on(Tint::Error, ""), "");
    for (const Tint tint :
         {Tint::Place, Tint::Error, Tint::Warning, Tint::Note, Tint::Good, Tint::Bad, Tint::Heading, Tint::Dim}) {
        EXPECT_THAT(on(tint, "x"), testing::MatchesRegex("\x1b\\[[0-9;]+mx\x1b\\[0m"));
    }
}

// It causes a finding, so the answer has words to colour.
struct MistakenSettings {
    tests::TempFolder folder;
    std::string path = folder.write("s.ini", "[setting]\nnosuchkeyatall=12\n");
};

TEST(Colour, IsOnForATerminal) {
    if (!tests::hasTerminals()) GTEST_SKIP() << "no pseudo terminal can be opened here";
    const MistakenSettings settings;
    EXPECT_THAT(runOnTerminal({"check", settings.path}, Terminal::Output, {"NO_COLOR", "TERM=xterm"}),
                HasSubstr(kEscape));
    EXPECT_THAT(tests::runTool({"check", settings.path}).out, Not(HasSubstr(kEscape)));
}

TEST(Colour, IsRefusedByTheEnvironment) {
    if (!tests::hasTerminals()) GTEST_SKIP() << "no pseudo terminal can be opened here";
    const MistakenSettings settings;
    const struct {
        std::vector<std::string> environment;
        bool coloured;
    } rows[] = {{{"NO_COLOR=1", "TERM=xterm"}, false},
                {{"NO_COLOR=no", "TERM=xterm"}, false},
                {{"NO_COLOR=", "TERM=xterm"}, true},  // an empty value is ignored
                {{"NO_COLOR", "TERM=dumb"}, false}};
    for (const auto& row : rows) {
        const std::string told = runOnTerminal({"check", settings.path}, Terminal::Output, row.environment);
        EXPECT_THAT(told, HasSubstr("nosuchkeyatall"));
        EXPECT_EQ(told.find(kEscape) != std::string::npos, row.coloured) << row.environment.front();
    }
}

TEST(Colour, CommandLineBeatsEverythingElse) {
    if (!tests::hasTerminals()) GTEST_SKIP() << "no pseudo terminal can be opened here";
    const MistakenSettings settings;
    const std::string quiet = "export NO_COLOR=1; ";
    EXPECT_THAT(tests::runShell(quiet + "\"$TTCONFIG\" check --color always " + settings.path).out, HasSubstr(kEscape));
    EXPECT_THAT(tests::runShell(quiet + "\"$TTCONFIG\" --color=always check " + settings.path).out, HasSubstr(kEscape));
    EXPECT_THAT(
        runOnTerminal({"check", "--color", "never", settings.path}, Terminal::Output, {"NO_COLOR", "TERM=xterm"}),
        Not(HasSubstr(kEscape)));
}

TEST(Colour, IsInNoFormatForPrograms) {
    const MistakenSettings settings;
    for (const char* format : {"json", "sarif"}) {
        EXPECT_THAT(tests::runTool({"check", "--color", "always", "--format", format, settings.path}).out,
                    Not(HasSubstr(kEscape)));
    }
}

}  // namespace
