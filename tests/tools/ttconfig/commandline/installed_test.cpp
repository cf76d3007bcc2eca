// What is installed: a program that finds its libraries, its manual page, and the shell completions.

#include <gmock/gmock.h>

#include <filesystem>
#include <string>

#include "tests/support/tempfile.h"
#include "tests/tools/ttconfig/support/toolrun.h"

namespace {

using testing::StartsWith;
using tests::fileText;
using tests::runTool;
using tests::ToolRun;

TEST(InstalledTool, RunsFromWhereItWasPutWithEverythingBesideIt) {
    const tests::TempFolder folder;
    const ToolRun install = tests::runShell(
        "'" CMAKE_PATH "' --install '" TT_BINARY_DIR "' --component tool --prefix '" + folder.path("") + "'");
    ASSERT_EQ(install.exitCode, 0) << install.err;
    const ToolRun run = tests::runShell("env -u LD_LIBRARY_PATH '" + folder.path("bin/ttconfig") + "' --version");
    EXPECT_EQ(run.exitCode, 0) << run.err;
    EXPECT_THAT(run.out, StartsWith("ttconfig "));
    const tests::ToolRun libraries =
        tests::runShell("ldd '" + folder.path("bin/ttconfig") + "' | grep traderbaseconfig");
    EXPECT_THAT(libraries.out, testing::HasSubstr(std::filesystem::path(folder.path("")).parent_path().filename()));
    EXPECT_EQ(fileText(folder.path("share/man/man1/ttconfig.1")), runTool({"manual"}).out);
    EXPECT_EQ(fileText(folder.path("share/bash-completion/completions/ttconfig")), runTool({"completion", "bash"}).out);
    EXPECT_EQ(fileText(folder.path("share/zsh/site-functions/_ttconfig")), runTool({"completion", "zsh"}).out);
    EXPECT_EQ(fileText(folder.path("share/fish/vendor_completions.d/ttconfig.fish")),
              runTool({"completion", "fish"}).out);
}

}  // namespace
