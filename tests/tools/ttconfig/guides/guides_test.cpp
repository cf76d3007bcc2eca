// The guides and the README: writes their files, runs their commands, and compares the output with what they show.
//
//   ```ini NAME, ```text NAME   a file of that name in the folder where the guide's commands run
//   ```console                  a line "$ COMMAND" is run by bash; the lines below it are its standard output, where a
//                               line "..." stands for any number of lines
//
// The folder has the samples as samples/, and ttconfig is on the PATH.

#include <gmock/gmock.h>

#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include "tests/support/tempfile.h"
#include "tests/tools/ttconfig/support/toolrun.h"

namespace {

namespace fs = std::filesystem;
using tests::ToolRun;

const fs::path kSource = TT_SOURCE_DIR;

struct Command {
    std::string line;
    std::string output;
};

struct Guide {
    std::vector<std::pair<std::string, std::string>> files;
    std::vector<Command> commands;
};

void takeCommandLine(const std::string& line, std::vector<Command>& commands) {
    if (line.rfind("$ ", 0) == 0) {
        commands.push_back({line.substr(2), ""});
    } else if (!commands.empty()) {
        commands.back().output += line + '\n';
    }
}

Guide guideOf(const fs::path& file) {
    Guide guide;
    std::istringstream text(tests::fileText(file.string()));
    std::string block;  // the text after the opening ```
    bool inside = false;
    for (std::string line; std::getline(text, line);) {
        if (line.rfind("```", 0) == 0) {
            inside = !inside;
            block = line.substr(3);
            const std::size_t blank = block.find(' ');
            if (inside && blank != std::string::npos) guide.files.emplace_back(block.substr(blank + 1), "");
        } else if (inside && block == "console") {
            takeCommandLine(line, guide.commands);
        } else if (inside && block.find(' ') != std::string::npos) {
            guide.files.back().second += line + '\n';
        }
    }
    return guide;
}

std::vector<std::string> linesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream all(text);
    for (std::string line; std::getline(all, line);)
        lines.push_back(line);
    return lines;
}

// Whether the output matches what is shown; a line "..." stands for any lines.
bool isShown(const std::string& output, const std::string& shown) {
    const std::vector<std::string> is = linesOf(output);
    const std::vector<std::string> should = linesOf(shown);
    std::size_t at = 0;
    std::size_t in = 0;
    std::size_t gap = should.size();  // the last "..." so far; it stands for the lines before "behind"
    std::size_t behind = 0;
    while (at < is.size()) {
        if (in < should.size() && should[in] == "...") {
            gap = in++;
            behind = at;
        } else if (in < should.size() && should[in] == is[at]) {
            ++in;
            ++at;
        } else if (gap < should.size()) {
            in = gap + 1;
            at = ++behind;
        } else {
            return false;
        }
    }
    while (in < should.size() && should[in] == "...")
        ++in;
    return in == should.size();
}

// The folder in which a guide's commands run.
class Desk {
public:
    explicit Desk(const Guide& guide) {
        fs::copy(kSource / "samples", folder.path("samples"), fs::copy_options::recursive);
        fs::create_directory(folder.path(".bin"));
        fs::create_symlink(TTCONFIG_PATH, folder.path(".bin/ttconfig"));
        for (const auto& [name, text] : guide.files)
            folder.write(name, text);
    }

    std::string outputOf(const std::string& command) const {
        folder.write(".script", command + '\n');
        return tests::runShell("cd '" + folder.path("") + "' && PATH=\"$PWD/.bin:$PATH\" bash .script").out;
    }

private:
    tests::TempFolder folder;
};

std::vector<fs::path> guides() {
    std::vector<fs::path> files;
    for (const auto& entry : fs::directory_iterator(kSource / "docs/guides")) {
        if (entry.path().extension() == ".md") files.push_back(entry.path());
    }
    return files;
}

bool hasBash() {
    return tests::runShell("command -v bash").exitCode == 0;
}

TEST(Guides, ShowWhatTheirCommandsAnswer) {
    if (!hasBash()) GTEST_SKIP() << "bash is not installed";
    ASSERT_EQ(guides().size(), 3U);
    for (const fs::path& file : guides()) {
        const Guide guide = guideOf(file);
        EXPECT_GE(guide.commands.size(), 5U) << file;
        const Desk desk(guide);
        for (const Command& command : guide.commands) {
            const std::string output = desk.outputOf(command.line);
            EXPECT_TRUE(isShown(output, command.output)) << file << "\n$ " << command.line << "\nshown:\n"
                                                         << command.output << "answered:\n"
                                                         << output;
        }
    }
}

TEST(Guides, LinkToExistingFiles) {
    std::vector<fs::path> pages = guides();
    pages.push_back(kSource / "README.md");
    for (const fs::path& file : pages) {
        const std::string text = tests::fileText(file.string());
        for (std::size_t at = text.find("]("); at != std::string::npos; at = text.find("](", at + 1)) {
            const std::string target = text.substr(at + 2, text.find(')', at) - at - 2);
            EXPECT_TRUE(fs::exists(file.parent_path() / target)) << file << ": " << target;
        }
    }
}

TEST(Readme, ShowsCommandsThatWork) {
    if (!hasBash()) GTEST_SKIP() << "bash is not installed";
    std::istringstream text(tests::fileText((kSource / "README.md").string()));
    const Desk desk(Guide{});
    std::size_t commands = 0;
    for (std::string line; std::getline(text, line);) {
        const std::size_t tool = line.find("./run ");
        if (line.rfind("    ", 0) != 0 || tool == std::string::npos || line.rfind("    ./run   ", 0) == 0) continue;
        ++commands;
        const std::string command = line.substr(4, tool - 4) + "ttconfig " + line.substr(tool + 6);
        EXPECT_THAT(desk.outputOf(command + "\necho \"exit code $?\""), testing::HasSubstr("exit code 0\n")) << command;
    }
    EXPECT_GE(commands, 10U);
}

TEST(ShownOutput, MayLeaveLinesOut) {
    EXPECT_TRUE(isShown("a\nb\n", "a\nb\n"));
    EXPECT_FALSE(isShown("a\nb\n", "a\n"));
    EXPECT_FALSE(isShown("a\n", "a\nb\n"));
    EXPECT_TRUE(isShown("", ""));
    EXPECT_FALSE(isShown("a\n", ""));
    EXPECT_TRUE(isShown("a\nb\nc\n", "a\n...\n"));
    EXPECT_TRUE(isShown("a\nb\nc\n", "a\n...\nc\n"));
    EXPECT_TRUE(isShown("a\nb\nc\n", "...\nc\n"));
    EXPECT_FALSE(isShown("a\nb\nc\n", "a\n...\nb\n"));
    EXPECT_FALSE(isShown("a\nb\nc\n", "b\n...\n"));
    EXPECT_FALSE(isShown("a\nb\nc\n", "a\n...\nd\n...\n"));
}

}  // namespace
