// The tool with files that it cannot use and outputs that it cannot write: it prints one message, returns the right
// exit code, and never waits.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>

#include "tests/support/tempfile.h"
#include "tests/tools/ttconfig/support/toolrun.h"

using testing::HasSubstr;
using testing::StartsWith;
using tests::runOnFullDisk;
using tests::runShell;
using tests::TempFolder;
using tests::ToolRun;
using tests::withCountersIn;

namespace fs = std::filesystem;

namespace {

constexpr int kInput = 3;
constexpr int kInternal = 4;

// "timeout" returns 124 for a command that it had to kill.
ToolRun runOn(const std::string& path, const std::string& subcommand = "summary") {
    return runShell("exec timeout 60 \"$TTCONFIG\" " + subcommand + " --settings '" + path + "'");
}

void expectOneMessage(const ToolRun& run, int exitCode, const std::string& part) {
    EXPECT_EQ(run.exitCode, exitCode) << run.err;
    EXPECT_EQ(std::count(run.err.begin(), run.err.end(), '\n'), 1) << run.err;
    EXPECT_THAT(run.err, StartsWith("ttconfig: "));
    EXPECT_THAT(run.err, HasSubstr(part));
}

void expectRefused(const std::string& path, const std::string& why) {
    const ToolRun run = runOn(path);
    expectOneMessage(run, kInput, why);
    EXPECT_THAT(run.err, HasSubstr(path));
    EXPECT_EQ(run.out, "");
}

}  // namespace

TEST(ToolFaults, RefusesFilesThatAreNotSettings) {
    const TempFolder folder;
    expectRefused(folder.path("missing.ini"), "does not exist");
    expectRefused(folder.path(""), "is a directory");
    expectRefused(folder.write("nuls.ini", std::string(1000, '\0')), "NUL");
    expectRefused(folder.write("empty.ini", ""), "is empty");
    expectRefused("/dev/zero", "is not a regular file");
}

TEST(ToolFaults, DoesNotWaitForANamedPipeWithoutAWriter) {
    const TempFolder folder;
    ASSERT_EQ(mkfifo(folder.path("pipe").c_str(), 0600), 0);
    expectRefused(folder.path("pipe"), "is not a regular file");
}

// Scripts, however they are named, other inputs, and the log file.
TEST(ToolFaults, WaitsForNoOtherPipeEither) {
    const TempFolder folder;
    fs::create_directories(folder.path("bin"));
    fs::create_directories(folder.path("luaScripts"));
    for (const char* name : {"bin/pipe", "luaScripts/MarketTime.lua"})
        ASSERT_EQ(mkfifo(folder.path(name).c_str(), 0600), 0);
    const std::string tool = "cd '" + folder.path("bin") + "' && exec timeout 60 \"$TTCONFIG\" ";

    expectOneMessage(runShell(tool + "session --log-file pipe"), kInput,
                     "--log-file pipe: is a pipe that nobody reads");
    for (const char* refused :
         {"check pipe", "diff pipe pipe", "test pipe --settings '" TT_SOURCE_DIR "/samples/settings.ini'",
          "summary --platform pipe", "sessions --script pipe", "algos --script pipe", "script check pipe",
          "sessions"}) {
        SCOPED_TRACE(refused);
        expectOneMessage(runShell(tool + refused), kInput, "regular file");
    }
    for (const char* answered : {"summary", "ask initMarketTradingTime", "ask initMarketTradingTime pipe",
                                 "ask AlgorithmParamConfig.initAlgoParams pipe"}) {
        SCOPED_TRACE(answered);
        EXPECT_EQ(runShell(tool + answered).exitCode, 0);
    }
    const std::string requests =
        "{\"call\":\"LuaConfig.init\",\"args\":[1,\"pipe\"]}\n"
        "{\"call\":\"AlgorithmParamConfig.initAlgoParams\",\"args\":[\"pipe\"]}\n"
        "{\"call\":\"readConfig\",\"args\":[\"pipe\"]}\n"
        "{\"call\":\"getFlowHistoryDays\",\"args\":[]}\n";
    const ToolRun session = runShell(tool + "session", requests);
    EXPECT_EQ(session.exitCode, 0) << session.err;
    EXPECT_EQ(std::count(session.out.begin(), session.out.end(), '\n'), 4) << session.out;
}

// A pipe with a reader receives the log as a file would.
TEST(ToolFaults, LogsIntoAPipeThatIsRead) {
    const TempFolder folder;
    ASSERT_EQ(mkfifo(folder.path("pipe").c_str(), 0600), 0);
    // The tool refuses the pipe until "cat" has opened it.
    const std::string script =
        "cat pipe >copy & until \"$TTCONFIG\" ask setUseOrderIdFunction true --log-file pipe; do :; done; wait; cat "
        "copy";
    const ToolRun run = runShell("cd '" + folder.path("") + "' && export script='" + script +
                                 "' && exec timeout 60 sh -c \"$script\" 2>/dev/null");
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_THAT(run.out, HasSubstr("setUseOrderIdFunction"));
}

TEST(ToolFaults, RefusesAFileWithoutReadPermission) {
    // Root can read every file.
    const TempFolder folder;
    fs::permissions(folder.path(""), fs::perms::all);
    const std::string other = withCountersIn(folder.path("counters")) +
                              (getuid() == 0 ? "setpriv --reuid 65534 --regid 65534 --clear-groups " : "");
    if (runShell(other + "\"$TTCONFIG\" --version").exitCode != 0) GTEST_SKIP() << "nobody else can run the tool here";
    const std::string path = folder.write("settings.ini", "[setting]\n");
    ASSERT_EQ(chmod(path.c_str(), 0), 0);
    expectOneMessage(runShell(other + "\"$TTCONFIG\" summary --settings '" + path + "'"), kInput, "cannot be read");
}

TEST(ToolFaults, RefusesAGigabyteAtOnce) {
    const TempFolder folder;
    const std::string path = folder.write("settings.ini", "[setting]\n");
    fs::resize_file(path, 1000000000);
    expectRefused(path, "is larger than 256 MiB");
}

TEST(ToolFaults, TakesALineOfAHundredMegabytes) {
    const TempFolder folder;
    const std::string path = folder.path("settings.ini");
    {
        std::ofstream file(path, std::ios::binary);
        file << "[HgtSgtPriceDiff]\nprice_diff=" << std::string(100000000, 'x') << "\n[setting]\nflowhistorydays=5\n";
    }
    const ToolRun run = runShell("exec timeout 250 \"$TTCONFIG\" ask getFlowHistoryDays --settings '" + path + "'");
    EXPECT_EQ(run.exitCode, 0) << run.err;
    EXPECT_THAT(run.out, HasSubstr("5"));
}

// Short answers must not be lost in a buffer whose failure goes unnoticed.
TEST(ToolFaults, SaysSoWhenTheDiskIsFull) {
    if (!fs::exists("/dev/full")) GTEST_SKIP() << "this system has no /dev/full";
    const std::string settings = " --settings '" TT_SOURCE_DIR "/samples/settings.ini'";
    const std::string platform = " --platform '" TT_SOURCE_DIR "/samples/platform.json'";
    const std::string commands[] = {
        "ask getFlowHistoryDays" + settings,
        "summary" + settings + platform,
        "--help",
        "--version",
        "ask --help",
        "manual",
        "completion bash",
        "switches",
        "switches --format markdown",
        "keys",
        "limits SSE 600000" + settings + platform,
        "check '" TT_SOURCE_DIR "/samples/settings.ini'",
        "explain isNeedMaxAmountPts 12" + settings,
        "platform 12" + settings,
        "products" + settings,
        "-C '" TT_SOURCE_DIR "/samples/bin' sessions",
    };
    for (const std::string& command : commands) {
        const ToolRun run = runShell("exec timeout 60 \"$TTCONFIG\" " + command + " >/dev/full");
        SCOPED_TRACE(command);
        EXPECT_EQ(run.exitCode, kInternal) << run.err;
        EXPECT_THAT(run.err, HasSubstr("standard output cannot be written"));
        // Messages of the load about the samples' settings come first.
        EXPECT_THAT(run.err.substr(0, run.err.find("ttconfig: ")), testing::Not(HasSubstr("cannot be written")));
        EXPECT_EQ(run.err.find("ttconfig: "), run.err.rfind("ttconfig: ")) << run.err;
    }
}

TEST(ToolFaults, SaysSoWhenTheLogCannotBeWritten) {
    if (!fs::exists("/dev/full")) GTEST_SKIP() << "this system has no /dev/full";
    const ToolRun run = runShell("exec timeout 60 \"$TTCONFIG\" ask setUseOrderIdFunction true --log-file /dev/full");
    EXPECT_EQ(run.exitCode, kInternal);
    // The line before this one says that there is no settings file.
    EXPECT_THAT(run.err, testing::EndsWith("\nttconfig: --log-file /dev/full: cannot be written to the end\n"));
}

// A page is large, so the file system fills up while it is written. No partial page may be left behind.
TEST(ToolFaults, LeavesNoPartialPage) {
    const TempFolder folder;
    const ToolRun run = runOnFullDisk(20, "exec timeout 60 \"$TTCONFIG\" report --settings '" TT_SOURCE_DIR
                                          "/samples/settings.ini' --output '" +
                                              folder.path("page.html") + "'");
    EXPECT_EQ(run.exitCode, kInternal) << run.err;
    EXPECT_THAT(run.err, HasSubstr("cannot be written"));
    EXPECT_TRUE(fs::is_empty(folder.path("")));
}

TEST(ToolFaults, SaysSoWhenASessionCannotAnswer) {
    if (!fs::exists("/dev/full")) GTEST_SKIP() << "this system has no /dev/full";
    const ToolRun run = runShell("exec timeout 60 \"$TTCONFIG\" session >/dev/full",
                                 "{\"call\":\"ConfigCollector.getFlowHistoryDays\",\"args\":[]}\n");
    expectOneMessage(run, kInternal, "standard output cannot be written");
}

TEST(ToolFaults, SaysSoWhenStandardOutputIsClosed) {
    const ToolRun run = runShell("exec timeout 60 \"$TTCONFIG\" switches >&-");
    expectOneMessage(run, kInternal, "standard output cannot be written");
}

// A file system that is full after one block.
TEST(ToolFaults, SaysSoWhenTheDiskFillsUpDuringWriting) {
    const TempFolder folder;
    const ToolRun run =
        runOnFullDisk(1, "exec timeout 60 \"$TTCONFIG\" switches --format markdown >'" + folder.path("out") + "'");
    expectOneMessage(run, kInternal, "standard output cannot be written");
}
