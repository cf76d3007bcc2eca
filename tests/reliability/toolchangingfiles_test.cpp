// The tool reading settings files that change at the same time: it answers from the old contents, or says why it
// cannot.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <iostream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "tests/reliability/changingfile.h"
#include "tests/tools/ttconfig/support/toolrun.h"

using testing::HasSubstr;
using tests::CutLoad;
using tests::runShell;
using tests::SwitchLists;
using tests::TempFolder;
using tests::ToolRun;

namespace fs = std::filesystem;

namespace {

constexpr int kInput = 3;
constexpr std::size_t kSwitches = 2047;
constexpr int kMostRuns = 500;

ToolRun runOn(const std::string& path, const std::string& question) {
    return runShell("exec timeout 60 \"$TTCONFIG\" " + question + " --settings '" + path + "'");
}

// Parses "switch000001:[7,7],switch000002:[7,7]", as the tool writes it.
SwitchLists listsOf(const std::string& answer) {
    SwitchLists lists;
    std::istringstream text(answer);
    for (std::string name; std::getline(text, name, ':');) {
        std::vector<int>& list = lists[name];
        std::string pieces;
        text.ignore();  // the opening bracket
        std::getline(text, pieces, ']');
        std::istringstream ids(pieces);
        for (std::string id; std::getline(ids, id, ',');)
            list.push_back(std::stoi(id));
        text.ignore();  // the comma or the end
    }
    return lists;
}

std::string answerOf(const SwitchLists& lists) {
    std::ostringstream text;
    for (const auto& [name, list] : lists) {
        text << (text.tellp() == 0 ? "" : ",") << name << ":[";
        for (std::size_t i = 0; i < list.size(); ++i)
            text << (i == 0 ? "" : ",") << list[i];
        text << ']';
    }
    text << '\n';
    return text.str();
}

}  // namespace

// The first open checks whether the file is usable, the second loads it.
TEST(ToolFaults, AnswersFromTheReadPartOfAFileTruncatedDuringTheRead) {
    const TempFolder folder;
    const std::vector<int> list(8, 7);
    const std::string text = tests::pagesOfSwitches(kSwitches, list);
    const SwitchLists whole = tests::listsOfPages(kSwitches, list);
    ASSERT_EQ(runOn(folder.write("settings.ini", text), "ask getAllpts").out, answerOf(whole));
    for (const int opening : {1, 2}) {
        std::map<CutLoad, int> seen;
        for (int run = 0; run < kMostRuns && (run < 20 || seen[CutLoad::Short] < 2); ++run) {
            const std::string path = folder.write("settings.ini", text);
            const std::size_t cutPage = 1 + static_cast<std::size_t>(run) * 389 % kSwitches;
            ToolRun answer;
            {
                const tests::WhenOpened cut(
                    path, opening, [&] { fs::resize_file(path, cutPage * tests::kPageSize + tests::kPageSize / 2); });
                answer = runOn(path, "ask getAllpts");
            }
            if (answer.exitCode == kInput && answer.err.find("holds NUL bytes") != std::string::npos) {
                ++seen[CutLoad::Damaged];
                continue;
            }
            ASSERT_EQ(answer.exitCode, 0) << answer.err;
            const SwitchLists lists = listsOf(answer.out);
            ASSERT_EQ(answerOf(lists), answer.out);
            const CutLoad judged = tests::judgedCutLoad(lists, whole, cutPage);
            ASSERT_NE(judged, CutLoad::Illegal) << lists.size() << " switches of a file cut off in page " << cutPage;
            if (judged != CutLoad::Damaged) {
                ASSERT_EQ(answer.err, "");
            }
            ++seen[judged];
        }
        ASSERT_GE(seen[CutLoad::Short], 2);
        EXPECT_LT(seen[CutLoad::Damaged], seen[CutLoad::Short]);
        std::cout << "cut off at opening " << opening << ": " << seen[CutLoad::Whole] << " whole answers, "
                  << seen[CutLoad::Short] << " short ones, " << seen[CutLoad::Damaged] << " damaged\n";
    }
}

TEST(ToolFaults, AnswersFromTheOldOrTheNewFileWhenItIsReplacedWhileItIsRead) {
    const TempFolder folder;
    const std::string first = answerOf(tests::listsOfPages(kSwitches, {1, 2}));
    const std::string second = answerOf(tests::listsOfPages(kSwitches / 2, {3, 4, 5}));
    const tests::Replacing replacing(folder, tests::pagesOfSwitches(kSwitches, {1, 2}),
                                     tests::pagesOfSwitches(kSwitches / 2, {3, 4, 5}));
    int firsts = 0;
    int seconds = 0;
    for (int run = 0; run < kMostRuns && (run < 20 || firsts < 2 || seconds < 2); ++run) {
        const ToolRun answer = runOn(replacing.path(), "ask getAllpts");
        ASSERT_EQ(answer.exitCode, 0) << answer.err;
        ASSERT_EQ(answer.err, "");
        const bool isFirst = answer.out == first;
        ASSERT_TRUE(isFirst || answer.out == second) << answer.out.size() << " bytes of neither file or of both";
        ++(isFirst ? firsts : seconds);
    }
    EXPECT_GE(firsts, 2);
    EXPECT_GE(seconds, 2);
    std::cout << firsts << " and " << seconds << " answers, replaced " << replacing.times() << " times\n";
}

// An explanation reads the file again after the store has loaded it.
TEST(ToolFaults, SaysSoWhenTheFileIsReplacedBetweenTheAnswerAndItsExplanation) {
    const TempFolder folder;
    int explained = 0;
    int refused = 0;
    for (int run = 0; run < kMostRuns && (run < 20 || explained < 2 || refused < 2); ++run) {
        const std::string path = folder.write("settings.ini", tests::pagesOfSwitches(kSwitches, {1}));
        const std::string other = folder.write("other.ini", tests::pagesOfSwitches(kSwitches / 2, {2}));
        ToolRun answer;
        {
            const tests::WhenOpened replace(path, 1 + run % 3, [&] { fs::rename(other, path); });
            answer = runOn(path, "explain isSomePt switch001000 1");
        }
        if (answer.exitCode == kInput) {
            ++refused;
            ASSERT_EQ(answer.err, "ttconfig: settings file " + path +
                                      ": was changed while it was read; run it again when nothing writes to it\n");
            continue;
        }
        ASSERT_EQ(answer.exitCode, 0) << answer.err;
        ++explained;
        ASSERT_THAT(answer.out, testing::AnyOf(HasSubstr("isSomePt switch001000 1: true\nlisted"),
                                               HasSubstr("isSomePt switch001000 1: false\n")));
    }
    EXPECT_GE(explained, 2);
    EXPECT_GE(refused, 2);
    std::cout << explained << " explanations, " << refused << " refused\n";
}
