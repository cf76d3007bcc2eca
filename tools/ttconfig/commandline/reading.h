#pragma once

#include <optional>

#include "ttconfig/invocation/commandline.h"

namespace ttconfig {

// Reads the command line. Prints help, the version and usage errors itself and returns the exit code; returns nothing
// when there is work to do.
std::optional<int> readCommandLine(int argc, const char* const* argv, CommandLine& commandLine);

}  // namespace ttconfig
