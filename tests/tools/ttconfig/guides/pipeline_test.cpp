// The ready-made pre-commit hook and pipeline step, in a separate repository.

#include <gmock/gmock.h>

#include <filesystem>
#include <string>

#include "tests/support/tempfile.h"
#include "tests/tools/ttconfig/support/toolrun.h"

namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;
using tests::ToolRun;

const std::string kPipeline = std::string(TT_SOURCE_DIR) + "/docs/guides/pipeline/";

constexpr const char* kClean = "[setting]\nneedmaxamount=12,15\n";
constexpr const char* kMistaken = "[setting]\nneedmaxamonut=12\n";

// A repository with the hook, independent of the user's git configuration.
class Repository {
public:
    Repository() {
        run("git init -q . && git config user.name Desk && git config user.email desk@localhost");
        fs::copy_file(kPipeline + "pre-commit", folder.path(".git/hooks/pre-commit"));
    }

    void write(const std::string& name, const std::string& text) const { folder.write(name, text); }

    std::string path(const std::string& name) const { return folder.path(name); }

    ToolRun run(const std::string& command) const {
        return tests::runShell(
            "cd '" + folder.path("") +
            "' && export TTCONFIG HOME=\"$PWD\" GIT_CONFIG_NOSYSTEM=1 && unset GIT_DIR GIT_INDEX_FILE "
            "GIT_WORK_TREE; " +
            command);
    }

    ToolRun commit() const { return run("git add -A && git commit -q -m 'Settings'"); }

    ToolRun step(const std::string& base = "") const { return run("'" + kPipeline + "check-settings' " + base); }

private:
    tests::TempFolder folder;
};

bool hasGit() {
    return tests::runShell("command -v git").exitCode == 0;
}

#define TT_NEEDS_GIT() \
    if (!hasGit()) GTEST_SKIP() << "git is not installed"

TEST(PreCommitHook, LetsCleanSettingsThrough) {
    TT_NEEDS_GIT();
    const Repository repository;
    repository.write("desk.ini", kClean);
    repository.write("desk.expect", "isNeedMaxAmountPts 12 = true\n");
    repository.write("readme.txt", "needmaxamonut");
    const ToolRun run = repository.commit();
    EXPECT_EQ(run.exitCode, 0) << run.out << run.err;
    EXPECT_EQ(repository.run("git log --oneline | wc -l").out, "1\n");
}

TEST(PreCommitHook, RefusesWhatCheckFinds) {
    TT_NEEDS_GIT();
    const Repository repository;
    repository.write("desks/a b.ini", kMistaken);
    const ToolRun run = repository.commit();
    EXPECT_NE(run.exitCode, 0);
    EXPECT_THAT(run.out + run.err, HasSubstr("desks/a b.ini:2:1: "));
    EXPECT_THAT(run.err, HasSubstr("nothing is committed"));
    EXPECT_EQ(repository.run("git log --oneline 2>/dev/null | wc -l").out, "0\n");
}

TEST(PreCommitHook, RefusesWhatIsNotAsExpected) {
    TT_NEEDS_GIT();
    const Repository repository;
    repository.write("desk.ini", kClean);
    ASSERT_EQ(repository.commit().exitCode, 0);
    // First only the expectations change, then only the settings.
    repository.write("desk.expect", "isNeedMaxAmountPts 16 = true\n");
    EXPECT_NE(repository.commit().exitCode, 0);
    repository.write("desk.expect", "isNeedMaxAmountPts 15 = true\n");
    EXPECT_EQ(repository.commit().exitCode, 0);
    repository.write("desk.ini", "[setting]\nneedmaxamount=12\n");
    EXPECT_NE(repository.commit().exitCode, 0);
}

TEST(PreCommitHook, ChecksTheCommittedFilesNotTheWorkingCopies) {
    TT_NEEDS_GIT();
    const Repository repository;
    repository.write("desk.ini", kMistaken);
    repository.run("git add desk.ini");
    repository.write("desk.ini", kClean);
    EXPECT_NE(repository.run("git commit -q -m x").exitCode, 0);
    repository.run("git add desk.ini");
    repository.write("desk.ini", kMistaken);
    EXPECT_EQ(repository.run("git commit -q -m x").exitCode, 0);
}

TEST(PreCommitHook, IgnoresFilesThatTheCommitDoesNotTouch) {
    TT_NEEDS_GIT();
    const Repository repository;
    repository.write("old.ini", kMistaken);
    repository.run("git add -A && git commit -q --no-verify -m x");
    repository.write("desk.ini", kClean);
    EXPECT_EQ(repository.commit().exitCode, 0);
    repository.run("git rm -q old.ini");
    EXPECT_EQ(repository.run("git commit -q -m x").exitCode, 0);
}

TEST(PipelineStep, PassesCleanSettingsAndShowsDifferences) {
    TT_NEEDS_GIT();
    const Repository repository;
    repository.write("desks/desk.ini", "[setting]\nneedmaxamount=12\n");
    ASSERT_EQ(repository.commit().exitCode, 0);
    repository.write("desks/desk.ini", kClean);
    repository.write("desks/desk.expect", "isNeedMaxAmountPts 15 = true\n");
    repository.write("new.ini", kClean);
    ASSERT_EQ(repository.commit().exitCode, 0);
    const ToolRun run = repository.step("HEAD~1");
    EXPECT_EQ(run.exitCode, 0) << run.out << run.err;
    EXPECT_THAT(tests::fileText(repository.path("results/desks-desk.ini.diff")), HasSubstr("isNeedMaxAmountPts"));
    EXPECT_THAT(tests::fileText(repository.path("results/check.sarif")), HasSubstr("2.1.0"));
    EXPECT_FALSE(fs::exists(repository.path("results/new.ini.diff")));
}

TEST(PipelineStep, FailsForFindingsAndExpectations) {
    TT_NEEDS_GIT();
    const Repository repository;
    repository.write("desk.ini", kMistaken);
    repository.run("git add -A && git commit -q --no-verify -m x");
    const ToolRun found = repository.step();
    EXPECT_EQ(found.exitCode, 1);
    EXPECT_THAT(found.out, HasSubstr("desk.ini:2:1: "));
    EXPECT_THAT(tests::fileText(repository.path("results/check.sarif")), HasSubstr("unknown-key"));

    repository.write("desk.ini", kClean);
    repository.write("desk.expect", "isNeedMaxAmountPts 16 = true\n");
    const ToolRun unexpected = repository.step();
    EXPECT_EQ(unexpected.exitCode, 1);
    EXPECT_THAT(unexpected.out, HasSubstr("isNeedMaxAmountPts 16"));
}

TEST(PipelineStep, ReportsWhatCouldNotBeDone) {
    TT_NEEDS_GIT();
    const Repository repository;
    repository.write("desk.ini", kClean);
    ASSERT_EQ(repository.commit().exitCode, 0);
    fs::remove(repository.path("desk.ini"));
    EXPECT_EQ(repository.step().exitCode, 3);
}

TEST(PipelineStep, SaysNothingInARepositoryWithoutSettings) {
    TT_NEEDS_GIT();
    const Repository repository;
    repository.write("x", "");
    ASSERT_EQ(repository.commit().exitCode, 0);
    const ToolRun run = repository.step();
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.out + run.err, "");
}

}  // namespace
