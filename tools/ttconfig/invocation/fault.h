#pragma once

#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace ttconfig {

// The program's exit codes.
enum ExitCode : int {
    kExitDone = 0,      // whatever the answers were
    kExitFindings = 1,  // a check found something wrong
    kExitUsage = 2,     // the command line is wrong, or names something unknown
    kExitInput = 3,     // a file or a directory that was named cannot be used
    kExitInternal = 4,  // anything else: an answer that cannot be written, an exception from the library
};

// An error that ends the program: its exit code, and its message for standard error, or one message for each place that
// is wrong.
class Fault : public std::runtime_error {
public:
    Fault(ExitCode code, const std::string& message) : std::runtime_error(message), exitCode(code) {}
    Fault(ExitCode code, const std::string& message, std::vector<std::string> more)
        : std::runtime_error(message), exitCode(code), further(std::move(more)) {}

    const ExitCode exitCode;
    const std::vector<std::string> further;
};

}  // namespace ttconfig
