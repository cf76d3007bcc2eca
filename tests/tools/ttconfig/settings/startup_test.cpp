// The files that the shared options name must be usable; otherwise there is one clear message and exit code 3.

#include <gmock/gmock.h>

#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <string>
#include <vector>

#include "tests/support/tempfile.h"
#include "tests/tools/ttconfig/support/toolrun.h"
#include "ttconfig/invocation/fault.h"
#include "ttconfig/settings/settingsfile.h"

namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::StartsWith;
using tests::runTool;
using tests::ToolRun;

// Expects this text in one line on standard error, exit code 3, and no answer.
void expectRefused(const std::vector<std::string>& arguments, const std::string& named, const std::string& said) {
    SCOPED_TRACE(said);
    const ToolRun run = runTool(arguments, R"({"call":"getRefLimit"})"
                                           "\n");
    EXPECT_EQ(run.exitCode, 3);
    EXPECT_EQ(run.out, "");
    EXPECT_THAT(run.err, AllOf(StartsWith("ttconfig: "), HasSubstr(named), HasSubstr(said)));
    EXPECT_EQ(std::count(run.err.begin(), run.err.end(), '\n'), 1) << run.err;
}

TEST(SettingsOption, NamesAFileThatCanHoldSettings) {
    const tests::TempFolder folder;
    folder.write("binary.ini", std::string("[setting]\nrefLimit=1\0\n", 23));
    folder.write("late.ini", std::string(200000, ';') + '\0');
    folder.write("empty.ini", "");
    const std::string huge = folder.write("huge.ini", "[setting]\n");
    std::filesystem::resize_file(huge, (std::uintmax_t{256} << 20) + 1);
    std::filesystem::create_directory(folder.path("folder.ini"));
    const struct {
        std::string path;
        const char* said;
    } rows[] = {{folder.path("missing.ini"), "does not exist; check the name"},
                {folder.path("no/such/folder.ini"), "does not exist"},
                {"", "does not exist"},
                {folder.path("empty.ini"), "is empty"},
                {folder.path("folder.ini"), "is a directory"},
                {"/dev/null", "is not a regular file"},
                {huge, "is larger than 256 MiB"},
                {folder.path("binary.ini"), "holds NUL bytes"},
                {folder.path("late.ini"), "holds NUL bytes"},
                {folder.path("empty.ini") + "/below", "does not exist"}};
    for (const auto& row : rows) {
        expectRefused({"session", "--settings", row.path}, "settings file " + row.path + ": ", row.said);
        expectRefused({"ask", "getRefLimit", "--settings", row.path}, row.path, row.said);
        expectRefused({"summary", "--settings", row.path}, row.path, row.said);
    }
}

TEST(FileMoment, DetectsAFileThatWasWrittenToReplacedOrRemoved) {
    const tests::TempFolder folder;
    const std::string path = folder.write("settings.ini", "[setting]\n");
    const ttconfig::FileMoment before(path);
    EXPECT_NO_THROW(before.requireUnchanged());
    const auto written = std::filesystem::last_write_time(path);
    std::filesystem::last_write_time(path, written + std::chrono::seconds(1));
    EXPECT_THROW(before.requireUnchanged(), ttconfig::Fault);
    folder.write("settings.ini", "[setting]\n\n");
    std::filesystem::last_write_time(path, written);
    EXPECT_THROW(before.requireUnchanged(), ttconfig::Fault);
    std::filesystem::remove(path);
    EXPECT_THROW(before.requireUnchanged(), ttconfig::Fault);
    EXPECT_NO_THROW(ttconfig::FileMoment(path).requireUnchanged());
}

TEST(SettingsOption, NeedsAReadableFile) {
    if (geteuid() == 0) GTEST_SKIP() << "the super-user may read everything";
    const tests::TempFolder folder;
    const std::string file = folder.write("closed.ini", "[setting]\n");
    std::filesystem::permissions(file, std::filesystem::perms::none);
    expectRefused({"session", "--settings", file}, file, "cannot be read");
}

TEST(SettingsOption, TakesAFileThroughALinkAndAnyBytesButNul) {
    const tests::TempFolder folder;
    const std::string file = folder.write("latin.ini", "[setting]\nrefLimit=7\n; \xFF\x01\n");
    std::filesystem::create_symlink(file, folder.path("link.ini"));
    EXPECT_EQ(runTool({"ask", "getRefLimit", "--settings", folder.path("link.ini")}).out, "7\n");
}

TEST(PlatformOption, RefusesABadFileAndLoadsNothing) {
    const tests::TempFolder folder;
    const std::string settings = folder.write("s.ini", "[setting]\nneedmaxamount=x\n");
    const std::string log = folder.path("library.log");
    const struct {
        std::string path;
        const char* said;
    } rows[] = {
        {folder.path("missing.json"), "missing.json"},
        {folder.write("text.json", "no json"), "not JSON"},
        {folder.write("type.json", R"({"stockTypes":[{"type":1,"market":"SH","codes":7}]})"), "stockTypes[0].codes"},
        {folder.write("wide.json", R"({"markets":{"SH":1e400}})"), "markets.SH: a number beyond all bounds"},
        {folder.write("name.json", R"({"stokTypes":[]})"), "stokTypes"}};
    for (const auto& row : rows) {
        expectRefused({"session", "--platform", row.path, "--settings", settings, "--log-file", log}, row.path,
                      row.said);
        EXPECT_FALSE(std::filesystem::exists(log));
    }
}

TEST(PlatformOption, AnswersComeFromTheFile) {
    const tests::TempFolder folder;
    const std::string file =
        folder.write("p.json", R"({"instruments":[{"market":"HGT","code":"00700","fields":{"2001":250}}]})");
    const std::vector<std::string> question = {"ask", "getStockTradeUnit", "HGT", "00700"};
    std::vector<std::string> withFile = question;
    withFile.insert(withFile.end(), {"--platform", file});
    EXPECT_NE(runTool(question).out, "250\n");
    EXPECT_EQ(runTool(withFile).out, "250\n");
}

TEST(LogFileOption, NamesAFileThatCanBeWritten) {
    const tests::TempFolder folder;
    const std::string path = folder.path("no/such/folder.log");
    expectRefused({"session", "--log-file", path}, path, "");
}

TEST(LogFileOption, IsNeverAnInput) {
    const tests::TempFolder folder;
    const std::string settings = folder.write("s.ini", "[setting]\nrefLimit=1\n");
    const std::string platform = folder.write("p.json", "{}");
    const std::string script = folder.write("s.lua", "x = 1\n");
    std::filesystem::create_symlink(settings, folder.path("link"));
    const std::vector<std::string> calls[] = {
        {"session", "--settings", settings, "--log-file", settings},
        {"session", "--settings", settings, "--log-file", folder.path("link")},
        {"session", "-C", folder.path(""), "--platform", "p.json", "--log-file", platform},
        {"algos", "--script", script, "--log-file", script},
        {"ask", "initMarketTradingTime", script, "--log-file", script},
        {"ask", "-C", folder.path(""), "readConfig", settings, "--log-file", "link"},
    };
    for (const auto& call : calls) {
        const ToolRun run = runTool(call);
        EXPECT_EQ(run.exitCode, 2) << run.err;
        EXPECT_THAT(run.err, testing::HasSubstr("that file is read here"));
    }
    EXPECT_GT(std::filesystem::file_size(settings), 0U);
    EXPECT_GT(std::filesystem::file_size(platform), 0U);
    EXPECT_GT(std::filesystem::file_size(script), 0U);
}

TEST(DirectoryOption, NamesADirectory) {
    const tests::TempFolder folder;
    const std::string file = folder.write("file", "");
    for (const std::string& path : {folder.path("missing"), file}) {
        expectRefused({"session", "-C", path}, "-C " + path + ": ", "name an existing directory");
        expectRefused({"-C", path, "session"}, "-C " + path + ": ", "name an existing directory");
    }
}

TEST(DirectoryOption, ComesFirstWhereverItStands) {
    const tests::TempFolder folder;
    folder.write("s.ini", "[setting]\nrefLimit=1\n");
    folder.write("below/s.ini", "[setting]\nrefLimit=2\n");
    const std::string base = folder.path("");
    const struct {
        std::vector<std::string> arguments;
        const char* answer;
    } rows[] = {{{"-C", base, "ask", "getRefLimit", "--settings", "s.ini"}, "1\n"},
                {{"ask", "getRefLimit", "--settings", "s.ini", "-C", base}, "1\n"},
                {{"ask", "-C", folder.path("below"), "getRefLimit", "--settings", "../s.ini"}, "1\n"},
                {{"-C", base, "-C", "below", "ask", "getRefLimit", "--settings", "s.ini"}, "2\n"},
                {{"ask", "-C", base, "getRefLimit", "-C", "below", "--settings", "s.ini"}, "2\n"},
                {{"-C", base, "ask", "-C", "below", "getRefLimit", "--settings", "s.ini"}, "2\n"}};
    for (const auto& row : rows)
        EXPECT_EQ(runTool(row.arguments).out, row.answer);
}

}  // namespace
