#pragma once

#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace ttconfig {

// How the program ends.
enum ExitCode : int {
    kExitDone = 0,      // whatever the answers were
    kExitFindings = 1,  // what was to be checked has something wrong with it
    kExitUsage = 2,     // the command line is wrong, or names something that there is not
    kExitInput = 3,     // a file or a directory that was named cannot be used
    kExitInternal = 4,  // anything else: an answer that cannot be written, an exception out of the library
};

// What ends the program: one message for the standard error stream, or one for each place that is wrong, and the exit
// code.
class Fault : public std::runtime_error {
public:
    Fault(ExitCode code, const std::string& message) : std::runtime_error(message), exitCode(code) {}
    Fault(ExitCode code, const std::string& message, std::vector<std::string> more)
        : std::runtime_error(message), exitCode(code), further(std::move(more)) {}

    const ExitCode exitCode;
    const std::vector<std::string> further;
};

}  // namespace ttconfig
