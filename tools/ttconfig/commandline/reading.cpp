// The command line: finds out what the program was asked to do.
// Entry points: readCommandLine().
// Owns: what is printed for help, the version and usage errors.
// Covered by tests/tools/ttconfig/commandline/commandline_test.cpp.

#include "ttconfig/commandline/reading.h"

#include <algorithm>
#include <iostream>

#include "ttconfig/commandline/subcommand.h"
#include "ttconfig/invocation/fault.h"

namespace ttconfig {

std::optional<int> readCommandLine(int argc, const char* const* argv, CommandLine& commandLine) {
    Registration registration(commandLine);
    CLI::App& app = registration.app();
    try {
        registration.parse({argv + std::min(argc, 1), argv + argc});
    } catch (const CLI::Success& success) {
        app.exit(success, std::cout, std::cerr);
        if (std::cout.flush()) return kExitDone;
        std::cerr << "ttconfig: standard output cannot be written\n";
        return kExitInternal;
    } catch (const CLI::ParseError& error) {
        // CLI11's own message is one line; add one that says where to find help.
        std::cerr << "ttconfig: " << error.what() << registration.suggestion()
                  << "\nRun with --help for more information.\n";
        return kExitUsage;
    }
    if (commandLine.run != nullptr) return std::nullopt;
    std::cerr << app.help();
    return kExitUsage;
}

}  // namespace ttconfig
