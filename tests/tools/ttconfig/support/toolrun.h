#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tests {

// What a run of the tool left behind.
struct ToolRun {
    int exitCode = -1;  // -1 when it was ended by a signal
    std::string out;
    std::string err;

    // The lines of standard output, without their ends.
    std::vector<std::string> lines() const;
};

// Runs the tool with these arguments on this input, in a process of its own.
ToolRun runTool(const std::vector<std::string>& arguments, std::string_view input = {});

// Runs a shell command in which $TTCONFIG is the tool, for redirections and pipes.
ToolRun runShell(const std::string& command, std::string_view input = {});

// The same where no file can grow beyond so many blocks of 512 bytes, as on a disk that is full then.
ToolRun runOnFullDisk(int blocks, const std::string& command);

// The beginning of such a command that may not write everywhere, or not all: what a build that counts coverage writes
// at its end goes into this folder, where nobody looks, so that no half of it stays and nothing is said of it.
std::string withCountersIn(const std::string& folder);

// The bytes of a file; empty when there is none.
std::string fileText(const std::string& path);

}  // namespace tests
