#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tests {

// The result of running the tool.
struct ToolRun {
    int exitCode = -1;  // -1 when a signal ended it
    std::string out;
    std::string err;

    // The lines of standard output, without their ends.
    std::vector<std::string> lines() const;
};

// Runs the tool in a child process with these arguments and this input.
ToolRun runTool(const std::vector<std::string>& arguments, std::string_view input = {});

// Runs a shell command in which $TTCONFIG is the tool, for redirections and pipes.
ToolRun runShell(const std::string& command, std::string_view input = {});

// The same, but no file can grow beyond this many blocks of 512 bytes, as if the disk were full.
ToolRun runOnFullDisk(int blocks, const std::string& command);

// The start of such a command that cannot write everywhere, or not everything. A coverage build writes its data at
// exit; they go into this folder, which is ignored, so that no partial data and no complaints remain.
std::string withCountersIn(const std::string& folder);

// The bytes of a file; empty when it does not exist.
std::string fileText(const std::string& path);

}  // namespace tests
