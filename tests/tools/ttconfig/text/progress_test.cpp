// Progress: a line on a terminal that disappears at the end, and no output anywhere else.

#include "ttconfig/text/progress.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <string>
#include <thread>

#include "tests/support/tempfile.h"
#include "tests/tools/ttconfig/support/terminalrun.h"
#include "tests/tools/ttconfig/support/toolrun.h"

namespace {

using testing::HasSubstr;
using testing::Not;
using tests::runOnTerminal;
using tests::Terminal;
using ttconfig::Progress;

constexpr const char* kTakenAway = "\r\x1b[K";

// Replaces standard error with a terminal while it lives.
class OwnTerminal {
public:
    OwnTerminal() : saved(dup(STDERR_FILENO)), master(posix_openpt(O_RDWR | O_NOCTTY)) {
        grantpt(master);
        unlockpt(master);
        const int slave = open(ptsname(master), O_RDWR | O_NOCTTY);
        dup2(slave, STDERR_FILENO);
        close(slave);
        fcntl(master, F_SETFL, O_NONBLOCK);
    }
    ~OwnTerminal() {
        dup2(saved, STDERR_FILENO);
        close(saved);
        close(master);
    }
    OwnTerminal(const OwnTerminal&) = delete;
    OwnTerminal& operator=(const OwnTerminal&) = delete;

    std::string told() const {
        char piece[4096];
        const ssize_t size = read(master, piece, sizeof piece);
        return size > 0 ? std::string(piece, static_cast<std::size_t>(size)) : std::string();
    }

private:
    int saved;
    int master;
};

void waitUntilItShows() {
    std::this_thread::sleep_for(std::chrono::milliseconds(350));
}

TEST(Progress, ShowsHowFarLongWorkIsAndGoesAway) {
    if (!tests::hasTerminals()) GTEST_SKIP() << "no pseudo terminal can be opened here";
    setenv("TERM", "xterm", 1);
    const OwnTerminal terminal;
    {
        Progress progress("checking", 3);
        waitUntilItShows();
        progress.atLongStep(1, "desk.ini");
        EXPECT_EQ(terminal.told(), std::string(kTakenAway) + "checking 1 of 3: \"desk.ini\"");
        progress.hide();
        EXPECT_EQ(terminal.told(), kTakenAway);
        waitUntilItShows();
        progress.atLongStep(2);
        EXPECT_EQ(terminal.told(), std::string(kTakenAway) + "checking 2 of 3");
    }
    EXPECT_EQ(terminal.told(), kTakenAway);
}

TEST(Progress, IsNotShownForShortWork) {
    if (!tests::hasTerminals()) GTEST_SKIP() << "no pseudo terminal can be opened here";
    setenv("TERM", "xterm", 1);
    const OwnTerminal terminal;
    {
        Progress progress("checking", 3);
        for (std::size_t i = 0; i < 3; ++i)
            progress.atLongStep(i);
    }
    EXPECT_EQ(terminal.told(), "");
}

TEST(Progress, IsWrittenAtMostTenTimesASecondHoweverManySteps) {
    if (!tests::hasTerminals()) GTEST_SKIP() << "no pseudo terminal can be opened here";
    setenv("TERM", "xterm", 1);
    const OwnTerminal terminal;
    Progress progress("comparing");
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(800);
    std::size_t steps = 0;
    while (std::chrono::steady_clock::now() < end)
        progress.at(++steps);
    const std::string told = terminal.told();
    std::size_t lines = 0;
    for (std::size_t at = told.find("comparing"); at != std::string::npos; at = told.find("comparing", at + 1))
        ++lines;
    EXPECT_GE(lines, 1U);
    EXPECT_LE(lines, 6U);
}

TEST(Progress, IsNotShownOnATerminalThatCannotEraseALine) {
    if (!tests::hasTerminals()) GTEST_SKIP() << "no pseudo terminal can be opened here";
    setenv("TERM", "dumb", 1);
    const OwnTerminal terminal;
    Progress progress("checking", 3);
    waitUntilItShows();
    progress.atLongStep(1);
    EXPECT_EQ(terminal.told(), "");
}

TEST(Progress, ShowsNoControlCharactersOfNames) {
    if (!tests::hasTerminals()) GTEST_SKIP() << "no pseudo terminal can be opened here";
    setenv("TERM", "xterm", 1);
    const OwnTerminal terminal;
    Progress progress("checking");
    waitUntilItShows();
    progress.atLongStep(1, "a\x1b[2J\n\xFF");
    EXPECT_THAT(terminal.told(), testing::AllOf(Not(HasSubstr("\x1b[2J")), Not(HasSubstr("\n"))));
}

TEST(Progress, GoesNowhereElse) {
    testing::internal::CaptureStderr();
    {
        Progress progress("checking", 3);
        waitUntilItShows();
        progress.atLongStep(1);
    }
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

}  // namespace
