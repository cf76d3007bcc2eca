#include "tests/tools/ttconfig/support/toolrun.h"

#include <sys/wait.h>

#include <cstdlib>
#include <fstream>
#include <sstream>

#include "tests/support/tempfile.h"

namespace tests {

namespace {

// Quotes a word for the shell, whatever it contains.
std::string quoted(const std::string& word) {
    std::string text = "'";
    for (const char c : word)
        text += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return text + "'";
}

}  // namespace

std::vector<std::string> ToolRun::lines() const {
    std::vector<std::string> all;
    std::istringstream text(out);
    for (std::string line; std::getline(text, line);)
        all.push_back(line);
    return all;
}

std::string fileText(const std::string& path) {
    std::ostringstream text;
    text << std::ifstream(path, std::ios::binary).rdbuf();
    return text.str();
}

ToolRun runShell(const std::string& command, std::string_view input) {
    const TempFolder folder;
    const std::string script = "export TTCONFIG=" + quoted(TTCONFIG_PATH) + "; ( " + command + " ) <" +
                               quoted(folder.write("in", input)) + " >" + quoted(folder.path("out")) + " 2>" +
                               quoted(folder.path("err"));
    const int status = std::system(script.c_str());  // NOLINT(cert-env33-c): the tool itself is what is tested
    ToolRun run;
    run.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    run.out = fileText(folder.path("out"));
    run.err = fileText(folder.path("err"));
    return run;
}

std::string withCountersIn(const std::string& folder) {
    return "export GCOV_PREFIX=" + quoted(folder) + " GCOV_ERROR_FILE=/dev/null; ";
}

ToolRun runOnFullDisk(int blocks, const std::string& command) {
    const TempFolder counters;
    return runShell(withCountersIn(counters.path("")) + "trap '' XFSZ; ulimit -f " + std::to_string(blocks) + "; " +
                    command);
}

ToolRun runTool(const std::vector<std::string>& arguments, std::string_view input) {
    std::string command = "exec \"$TTCONFIG\"";
    for (const std::string& argument : arguments)
        command += ' ' + quoted(argument);
    return runShell(command, input);
}

}  // namespace tests
