#pragma once

#include <optional>

#include "ttconfig/invocation/commandline.h"

namespace ttconfig {

// Reads the command line. Help, the version and usage errors are printed here, and the exit code is returned; nothing
// is returned when there is work to do.
std::optional<int> readCommandLine(int argc, const char* const* argv, CommandLine& commandLine);

}  // namespace ttconfig
