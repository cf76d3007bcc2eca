// No output ever overwrites a file that is read, whether by its name, another name, a symbolic link or a hard link.

#include <gmock/gmock.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "tests/support/tempfile.h"
#include "tests/tools/ttconfig/support/subcommandlist.h"
#include "tests/tools/ttconfig/support/toolrun.h"

namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;
using testing::StartsWith;
using tests::runTool;
using tests::ToolRun;

constexpr const char* kScript = "function getAllMarkets() return {} end\n";

// A file of each kind that is read, all in a folder beside luaScripts.
class Inputs {
public:
    Inputs() {
        folder.write("settings.ini", "[setting]\nneedmaxamount=12\n");
        folder.write("old.ini", "[setting]\nneedmaxamount=15\n");
        folder.write("platform.json", "{}");
        folder.write("script.lua", kScript);
        folder.write("desk.expect", "isNeedMaxAmountPts 12 = true\n");
        folder.write("luaScripts/MarketTime.lua", kScript);
        fs::create_directory(folder.path("bin"));
        folder.write("bin/.keep", "");
        for (const auto& entry : fs::recursive_directory_iterator(folder.path(""))) {
            if (entry.is_regular_file()) before.emplace_back(entry.path(), tests::fileText(entry.path()));
        }
    }

    std::string path(const std::string& name) const { return folder.path(name); }

    void expectUntouched() const {
        for (const auto& [path, text] : before)
            EXPECT_EQ(tests::fileText(path), text) << path;
    }

private:
    tests::TempFolder folder;
    std::vector<std::pair<std::string, std::string>> before;
};

// Names that lead to the file.
std::vector<std::string> namesOf(const std::string& path) {
    const fs::path folder = fs::path(path).parent_path();
    const fs::path symbolic = path + ".symbolic";
    const fs::path hard = path + ".hard";
    const fs::path twice = path + ".twice";
    if (!fs::exists(symbolic)) {
        fs::create_symlink(path, symbolic);
        fs::create_symlink(symbolic, twice);
        fs::create_hard_link(path, hard);
    }
    return {path, (folder / "." / fs::path(path).filename()).string(), symbolic.string(), twice.string(),
            hard.string()};
}

void expectRefused(const std::vector<std::string>& arguments, const Inputs& inputs) {
    const ToolRun run = runTool(arguments);
    SCOPED_TRACE(arguments.front() + " ... " + arguments.back());
    EXPECT_TRUE(run.exitCode == 2 || run.exitCode == 3) << run.exitCode;
    EXPECT_EQ(run.out, "");
    EXPECT_THAT(run.err, StartsWith("ttconfig: "));
    EXPECT_THAT(run.err, HasSubstr(arguments.back()));
    EXPECT_EQ(std::count(run.err.begin(), run.err.end(), '\n'), 1) << run.err;
    inputs.expectUntouched();
}

TEST(LogFile, IsNeverWrittenOverAnInput) {
    const Inputs inputs;
    for (const auto& subcommand : tests::allSubcommands()) {
        const auto options = tests::optionsOf(subcommand);
        if (std::count(options.begin(), options.end(), "--log-file") == 0) continue;
        std::vector<std::string> words = subcommand;
        if (subcommand.front() == "ask") words.push_back("getRefLimit");
        if (subcommand.front() == "limits") words.insert(words.end(), {"SH", "600000"});
        words.insert(words.end(), {"-C", inputs.path("bin"), "--settings", inputs.path("settings.ini"), "--platform",
                                   inputs.path("platform.json")});
        std::vector<std::string> read = {"settings.ini", "platform.json", "luaScripts/MarketTime.lua"};
        if (std::count(options.begin(), options.end(), "--script") > 0) {
            words.insert(words.end(), {"--script", inputs.path("script.lua")});
            read.push_back("script.lua");
        }
        for (const std::string& input : read) {
            for (const std::string& name : namesOf(inputs.path(input))) {
                std::vector<std::string> all = words;
                all.insert(all.end(), {"--log-file", name});
                expectRefused(all, inputs);
            }
        }
    }
}

TEST(ReportPage, IsNeverWrittenOverAnInput) {
    const Inputs inputs;
    for (const char* input : {"settings.ini", "old.ini", "platform.json", "luaScripts/MarketTime.lua"}) {
        for (const std::string& name : namesOf(inputs.path(input))) {
            expectRefused({"report", "-C", inputs.path("bin"), "--settings", inputs.path("settings.ini"), "--platform",
                           inputs.path("platform.json"), "--against", inputs.path("old.ini"), "-o", name},
                          inputs);
        }
    }
}

// This test lists every option that writes a file: to add one, think of the inputs it must not overwrite.
TEST(Options, ThatNameAFileToWriteAreTheseTwo) {
    std::vector<std::string> found;
    for (const auto& subcommand : tests::allSubcommands()) {
        for (const std::string& option : tests::optionsOf(subcommand)) {
            if (option == "-h" || option == "--help") continue;  // takes no value
            const bool known = option == "-o" || option == "--output" || option == "--log-file";
            std::vector<std::string> words = subcommand;
            words.insert(words.end(), {option, ""});
            const auto values = tests::completionsOf(words);
            const bool file = values == std::vector<std::string>{":files"};
            const bool read =
                option == "--settings" || option == "--platform" || option == "--against" || option == "--script";
            if (file && !known && !read) found.push_back(subcommand.front() + ' ' + option);
        }
    }
    EXPECT_THAT(found, testing::IsEmpty());
}

}  // namespace
