#include "standin/filebytes.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "tests/support/tempfile.h"

namespace standin {
namespace {

using namespace std::string_literals;

FileProblem problemOf(const std::string& path) {
    std::string bytes = "before";
    const FileProblem problem = readFileBytes(path, bytes);
    EXPECT_TRUE(problem == FileProblem::kNone || bytes.empty()) << path;
    return problem;
}

TEST(FileBytes, AreTheWholeFileWithoutConversion) {
    const tests::TempFolder folder;
    std::string large(300000, 'x');
    large[70000] = '\0';
    for (const std::string& content : {""s, "a"s, "\r\n\x1a\0\xff"s, large}) {
        std::string bytes = "before";
        EXPECT_EQ(readFileBytes(folder.write("file", content), bytes), FileProblem::kNone);
        EXPECT_EQ(bytes, content);
    }
}

TEST(FileBytes, ProblemSaysWhatIsWrongWithThePath) {
    const tests::TempFolder folder;
    const std::string file = folder.write("file", "x");
    EXPECT_EQ(problemOf(""), FileProblem::kBadPath);
    EXPECT_EQ(problemOf(file + "\0"s), FileProblem::kBadPath);
    EXPECT_EQ(problemOf(std::string(5000, 'x')), FileProblem::kBadPath);
    EXPECT_EQ(problemOf(std::string(40000, 'x')), FileProblem::kBadPath);
    EXPECT_EQ(problemOf(folder.path("none")), FileProblem::kMissing);
    EXPECT_EQ(problemOf(file + "/below"), FileProblem::kMissing);
    EXPECT_EQ(problemOf(folder.path("")), FileProblem::kDirectory);
}

TEST(FileBytes, LinkCountsAsWhatItPointsTo) {
    const tests::TempFolder folder;
    std::filesystem::create_symlink(folder.write("file", "x"), folder.path("link"));
    std::filesystem::create_symlink(folder.path("none"), folder.path("dangling"));
    std::filesystem::create_symlink(folder.path("loop"), folder.path("loop"));
    EXPECT_EQ(problemOf(folder.path("link")), FileProblem::kNone);
    EXPECT_EQ(problemOf(folder.path("dangling")), FileProblem::kMissing);
    EXPECT_EQ(problemOf(folder.path("loop")), FileProblem::kUnreadable);
}

TEST(FileBytes, PipesAndDevicesAreNotOpened) {
    const tests::TempFolder folder;
    const std::string pipe = folder.path("pipe");
    // Uses the shell's mkfifo if there is one. Opening a pipe that nobody writes to would block for ever.
    if (std::system(("mkfifo '" + pipe + "' 2>/dev/null").c_str()) != 0) GTEST_SKIP() << "no mkfifo here";
    EXPECT_EQ(problemOf(pipe), FileProblem::kNotRegular);
    EXPECT_EQ(problemOf("/dev/zero"), FileProblem::kNotRegular);
}

TEST(FileBytes, FileWithoutAKnownSizeIsReadToItsEnd) {
    const std::string path = "/proc/self/status";
    if (!std::filesystem::exists(path)) GTEST_SKIP() << "no " << path << " here";
    ASSERT_EQ(std::filesystem::file_size(path), 0u);
    std::string bytes;
    EXPECT_EQ(readFileBytes(path, bytes), FileProblem::kNone);
    EXPECT_GT(bytes.size(), 100u);
}

TEST(FileBytes, FileWhoseBytesCannotBeReadIsUnreadable) {
    const std::string path = "/proc/self/mem";  // opens, but nothing is mapped at its first bytes
    if (!std::filesystem::is_regular_file(path)) GTEST_SKIP() << "no " << path << " here";
    EXPECT_EQ(problemOf(path), FileProblem::kUnreadable);
}

TEST(FileBytes, FileBeyondTheLimitIsTooLarge) {
    const tests::TempFolder folder;
    const std::string path = folder.write("file", "");
    // A sparse file: it takes no space on the disk.
    std::error_code code;
    std::filesystem::resize_file(path, kLargestFile + 1, code);
    if (code) GTEST_SKIP() << "cannot make a large file here: " << code.message();
    EXPECT_EQ(problemOf(path), FileProblem::kTooLarge);
}

TEST(FileBytes, EveryProblemHasItsOwnWords) {
    const FileProblem all[] = {FileProblem::kBadPath,    FileProblem::kMissing,    FileProblem::kDirectory,
                               FileProblem::kNotRegular, FileProblem::kUnreadable, FileProblem::kTooLarge};
    for (const FileProblem one : all) {
        for (const FileProblem other : all) {
            EXPECT_EQ(one == other, std::string(fileProblemText(one)) == fileProblemText(other));
        }
    }
    EXPECT_STREQ(fileProblemText(FileProblem::kDirectory), "is a directory");
}

}  // namespace
}  // namespace standin
