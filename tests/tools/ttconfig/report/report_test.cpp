#include <gmock/gmock.h>

#include <filesystem>
#include <string>

#include "tests/tools/ttconfig/report/madereport.h"

namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;
using tests::fileText;
using tests::MadeReport;
using tests::runOnFullDisk;
using tests::runShell;
using tests::runTool;
using tests::TempFolder;
using tests::ToolRun;

constexpr const char* kSettings = "[setting]\nneedmaxamount=12\n";

// Expects one message and the exit code.
void expectRefused(const ToolRun& run, int exitCode, const std::string& matter) {
    EXPECT_EQ(run.exitCode, exitCode) << run.err;
    EXPECT_THAT(run.err, StartsWith("ttconfig: "));
    EXPECT_THAT(run.err, HasSubstr(matter));
    EXPECT_EQ(std::count(run.err.begin(), run.err.end(), '\n'), 1) << run.err;
    EXPECT_THAT(run.out, IsEmpty());
}

// Files in the folder other than those named.
std::vector<std::string> othersIn(const TempFolder& folder, const std::vector<std::string>& known) {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder.path(""))) {
        const std::string name = entry.path().filename().string();
        if (std::find(known.begin(), known.end(), name) == known.end()) names.push_back(name);
    }
    return names;
}

TEST(Report, IsOnePageWithoutAnythingFromOutside) {
    const MadeReport report({"--settings", "../settings.ini"});
    EXPECT_EQ(report.run.exitCode, 0) << report.run.err;
    EXPECT_THAT(report.run.out, IsEmpty());
    EXPECT_THAT(report.run.err, IsEmpty());
    EXPECT_THAT(report.page, StartsWith("<!doctype html>"));
    EXPECT_THAT(report.page, HasSubstr("default-src 'none'"));
    for (const char* outside : {"http://", "https://", " src=", "<link", "@import", "url("})
        EXPECT_THAT(report.page, Not(HasSubstr(outside)));
    // No placeholder of the template is left.
    for (const char* mark : {"@POLICY@", "@TITLE@", "@STYLE@", "@DATA@", "@SCRIPT@"})
        EXPECT_THAT(report.page, Not(HasSubstr(mark)));
}

TEST(Report, TheSameFilesMakeTheSamePage) {
    const MadeReport one({"--settings", "../settings.ini", "--platform", "../platform.json"});
    const MadeReport other({"--settings", "../settings.ini", "--platform", "../platform.json"});
    EXPECT_EQ(one.page, other.page);
}

TEST(Report, IsNeverWrittenOverAnInput) {
    const TempFolder folder;
    const std::string settings = folder.write("settings.ini", kSettings);
    const std::string old = folder.write("old.ini", kSettings);
    const std::string platform = folder.write("platform.json", "{}");
    fs::create_symlink(settings, folder.path("link"));
    fs::create_hard_link(old, folder.path("hard"));
    fs::create_directory(folder.path("sub"));
    for (const char* name : {"settings.ini", "old.ini", "platform.json", "link", "hard", "sub/../settings.ini"}) {
        const ToolRun run = runTool(
            {"report", "--settings", settings, "--against", old, "--platform", platform, "-o", folder.path(name)});
        expectRefused(run, 2, "that file is read here");
    }
    EXPECT_EQ(fileText(settings), kSettings);
    EXPECT_EQ(fileText(old), kSettings);
    EXPECT_EQ(fileText(platform), "{}");
}

TEST(Report, IsNeverWrittenOverTheMarketTimeScript) {
    const TempFolder folder;
    const std::string script = folder.write("luaScripts/MarketTime.lua", "function getMarkets() return '{}' end\n");
    folder.write("bin/settings.ini", kSettings);
    expectRefused(runTool({"report", "-C", folder.path("bin"), "--settings", "settings.ini", "-o",
                           "../luaScripts/MarketTime.lua"}),
                  2, "that file is read here");
    EXPECT_THAT(fileText(script), StartsWith("function"));
}

TEST(Report, GoesToTheStandardOutputWhenTheFileIsADash) {
    const TempFolder folder;
    const std::string settings = folder.write("settings.ini", kSettings);
    const std::string path = folder.path("page.html");
    const ToolRun toFile = runTool({"report", "-C", folder.path(""), "--settings", settings, "-o", path});
    ASSERT_EQ(toFile.exitCode, 0) << toFile.err;
    const ToolRun toOutput = runTool({"report", "-C", folder.path(""), "--settings", settings, "-o", "-"});
    EXPECT_EQ(toOutput.exitCode, 0) << toOutput.err;
    EXPECT_EQ(toOutput.out, fileText(path));
    EXPECT_THAT(othersIn(folder, {"settings.ini", "page.html"}), IsEmpty());
}

TEST(Report, ReplacesAnEarlierPage) {
    const TempFolder folder;
    const std::string settings = folder.write("settings.ini", kSettings);
    const std::string page = folder.write("report.html", "before");
    fs::create_symlink(page, folder.path("link.html"));
    EXPECT_EQ(runTool({"report", "--settings", settings, "-o", page}).exitCode, 0);
    EXPECT_THAT(fileText(page), StartsWith("<!doctype html>"));
    // A link is followed, not replaced.
    folder.write("report.html", "before");
    EXPECT_EQ(runTool({"report", "--settings", settings, "-o", folder.path("link.html")}).exitCode, 0);
    EXPECT_TRUE(fs::is_symlink(folder.path("link.html")));
    EXPECT_THAT(fileText(page), StartsWith("<!doctype html>"));
    EXPECT_THAT(othersIn(folder, {"settings.ini", "report.html", "link.html"}), IsEmpty());
}

TEST(Report, KeepsTheRightsOfAnEarlierPage) {
    const TempFolder folder;
    const std::string settings = folder.write("settings.ini", kSettings);
    const std::string page = folder.write("report.html", "before");
    fs::permissions(page, fs::perms::owner_read | fs::perms::owner_write);
    EXPECT_EQ(runTool({"report", "--settings", settings, "-o", page}).exitCode, 0);
    EXPECT_EQ(fs::status(page).permissions(), fs::perms::owner_read | fs::perms::owner_write);
    const ToolRun run = runShell("umask 027; exec \"$TTCONFIG\" report --settings '" + settings + "' -o '" +
                                 folder.path("new.html") + "'");
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(fs::status(folder.path("new.html")).permissions(),
              fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);
}

TEST(Report, AnImpossiblePlaceForThePageIsRefused) {
    const TempFolder folder;
    const std::string settings = folder.write("settings.ini", kSettings);
    fs::create_directory(folder.path("folder"));
    const std::pair<std::string, std::string> rows[] = {
        {folder.path("folder"), "is a directory"},
        {folder.path("missing/report.html"), "cannot be written"},
        {folder.path("settings.ini/report.html"), "cannot be written"},
        {"/dev/null", "is not a regular file"},
    };
    for (const auto& [path, matter] : rows)
        expectRefused(runTool({"report", "--settings", settings, "-o", path}), 3, matter);
    EXPECT_TRUE(fs::is_character_file("/dev/null"));
}

// A file can grow to 8 blocks at most, as on a full disk.
TEST(Report, AFullDiskLeavesWhatWasThereBefore) {
    const TempFolder folder;
    const std::string settings = folder.write("settings.ini", kSettings);
    const std::string page = folder.write("report.html", "before");
    const ToolRun run = runOnFullDisk(8, "exec \"$TTCONFIG\" report --settings '" + settings + "' -o '" + page + "'");
    expectRefused(run, 4, "cannot be written");
    EXPECT_EQ(fileText(page), "before");
    EXPECT_THAT(othersIn(folder, {"settings.ini", "report.html"}), IsEmpty());
}

TEST(Report, UnusableInputsAreRefused) {
    const TempFolder folder;
    const std::string settings = folder.write("settings.ini", kSettings);
    const std::string empty = folder.write("empty.ini", "");
    const std::string page = folder.path("report.html");
    expectRefused(runTool({"report", "--settings", folder.path("none.ini"), "-o", page}), 3, "does not exist");
    expectRefused(runTool({"report", "--settings", empty, "-o", page}), 3, "is empty");
    expectRefused(runTool({"report", "--settings", settings, "--against", folder.path("none.ini"), "-o", page}), 3,
                  "does not exist");
    expectRefused(runTool({"report", "--settings", settings, "--platform", empty, "-o", page}), 3, "empty.ini");
    EXPECT_FALSE(fs::exists(page));
}

TEST(Report, SaysWhyThereAreNoSessions) {
    const TempFolder folder;
    const std::string settings = folder.write("settings.ini", kSettings);
    fs::create_directory(folder.path("bin"));
    const MadeReport report({"--settings", settings}, folder.path("bin"));
    const auto sessions = report.data().at("sessions");
    EXPECT_THAT(sessions.at("markets"), IsEmpty());
    EXPECT_THAT(sessions.at("trouble").get<std::string>(), HasSubstr("no such file"));
    folder.write("luaScripts/MarketTime.lua", "function getMarkets() return '' end\n");
    const MadeReport other({"--settings", settings}, folder.path("bin"));
    EXPECT_THAT(other.data().at("sessions").at("trouble").get<std::string>(), HasSubstr("lists no markets"));
}

// Keys, values, section names and the file's own name must not become markup.
TEST(Report, HostileTextStaysText) {
    const std::string evil = "</script><img src=x onerror=alert(1)><!--";
    const TempFolder folder;
    const std::string settings = folder.write(
        "a<b>'\"&.ini", "[" + evil + "]\n" + evil + "=1\n[setting]\n" + evil + "=2\nsamrtalgotypes=" + evil +
                            "\n\xFF\xFE=\xC0\n[StkExchangeOrderLimit]\n" + evil + "-" + evil + "=5," + evil + "\n");
    const MadeReport report({"--settings", settings});
    EXPECT_EQ(report.run.exitCode, 0);
    EXPECT_THAT(report.page, Not(HasSubstr("<img")));
    EXPECT_THAT(report.page, HasSubstr("a&lt;b&gt;&#39;&quot;&amp;.ini"));
    const std::string data = tests::dataText(report.page);
    EXPECT_EQ(data.find_first_of("<>&"), std::string::npos);
    // The text is there all the same, with bytes that are not UTF-8 replaced.
    EXPECT_THAT(report.data().dump(), HasSubstr("</script><img src=x onerror=alert(1)>"));
    EXPECT_EQ(report.data().at("source").at("lines").at(5), "\xEF\xBF\xBD\xEF\xBF\xBD=\xEF\xBF\xBD");
}

TEST(Report, AnyBytesMakeAPage) {
    const TempFolder folder;
    std::string bytes = "[setting]\n";
    for (int round = 0; round < 40; ++round) {
        for (int byte = 1; byte < 256; ++byte)
            bytes += static_cast<char>(byte * (round + 1) % 255 + 1);
        bytes += round % 3 == 0 ? "\n" : "=12,x,,\n";
    }
    const MadeReport report({"--settings", folder.write("settings.ini", bytes)});
    EXPECT_EQ(report.run.exitCode, 0) << report.run.err;
    EXPECT_TRUE(report.data().is_object());
}

}  // namespace
