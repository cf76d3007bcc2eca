// Golden sessions: every file in sessions/ is answered as recorded beside it, each by a process of its own.
//
//   NAME.jsonl     the requests; lines that start with "#" are comments here and are not sent
//   NAME.expected  the answers, with comments too
//   NAME.options   further command-line words, one per line; optional
//   NAME.stderr    the exact standard error output; not checked without this file
//   NAME.log       the exact log file; not checked without this file
//
// A session starts in sessions/settings, so files there need no path, and the market-time script is the one in
// sessions/luaScripts.

#include <gmock/gmock.h>

#include <algorithm>
#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include "tests/support/tempfile.h"
#include "tests/tools/ttconfig/support/toolrun.h"

namespace {

namespace fs = std::filesystem;

const fs::path kSessions = fs::path(TT_SOURCE_DIR) / "tests/tools/ttconfig/sessions";

std::vector<std::string> linesOf(const fs::path& file) {
    std::vector<std::string> lines;
    std::istringstream text(tests::fileText(file.string()));
    for (std::string line; std::getline(text, line);) {
        if (line.rfind('#', 0) != 0) lines.push_back(line);
    }
    return lines;
}

std::string joined(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines)
        text += line + '\n';
    return text;
}

fs::path beside(const fs::path& session, const char* extension) {
    return fs::path(session).replace_extension(extension);
}

std::vector<fs::path> sessions() {
    std::vector<fs::path> files;
    for (const auto& entry : fs::directory_iterator(kSessions)) {
        if (entry.path().extension() == ".jsonl") files.push_back(entry.path());
    }
    std::sort(files.begin(), files.end());
    return files;
}

void expectAnswersAsRecorded(const fs::path& session) {
    SCOPED_TRACE(session.filename().string());
    const tests::TempFolder folder;
    const std::string logFile = folder.path("log");
    std::vector<std::string> words = {"session", "-C", (kSessions / "settings").string(), "--log-file", logFile};
    for (const std::string& word : linesOf(beside(session, ".options")))
        words.push_back(word);
    const tests::ToolRun run = tests::runTool(words, joined(linesOf(session)));
    EXPECT_EQ(run.exitCode, 0);
    const std::vector<std::string> requests = linesOf(session);
    const std::vector<std::string> expected = linesOf(beside(session, ".expected"));
    const std::vector<std::string> answers = run.lines();
    EXPECT_EQ(expected.size(), requests.size()) << "one answer a request is expected";
    EXPECT_EQ(answers.size(), expected.size());
    for (std::size_t i = 0; i < std::min(answers.size(), expected.size()); ++i) {
        EXPECT_EQ(answers[i], expected[i]) << "to request " << (i < requests.size() ? requests[i] : "?");
    }
    if (fs::exists(beside(session, ".stderr"))) {
        EXPECT_EQ(run.err, tests::fileText(beside(session, ".stderr").string()));
    }
    if (fs::exists(beside(session, ".log"))) {
        EXPECT_EQ(tests::fileText(logFile), tests::fileText(beside(session, ".log").string()));
    }
}

TEST(GoldenSessions, AreAnsweredAsRecorded) {
    const std::vector<fs::path> all = sessions();
    EXPECT_FALSE(all.empty());
    for (const fs::path& session : all)
        expectAnswersAsRecorded(session);
}

}  // namespace
