// The program: carries out one subcommand and turns errors into a message and an exit code.
// Covered by tests/tools/ttconfig/commandline/commandline_test.cpp.

#include <exception>
#include <iostream>
#include <string>
#include <string_view>

#include "ttconfig/commandline/reading.h"
#include "ttconfig/invocation/commandline.h"
#include "ttconfig/invocation/fault.h"
#include "ttconfig/invocation/output.h"
#include "ttconfig/settings/startup.h"
#include "ttconfig/text/showntext.h"

namespace {

using ttconfig::CommandLine;

void tell(std::string_view message) {
    std::cerr << "ttconfig: " << ttconfig::visibleText(message) << '\n';
}

int runGuarded(const CommandLine& commandLine) {
    try {
        std::ios::sync_with_stdio(false);
        ttconfig::Output output;
        return commandLine.run(commandLine, output);
    } catch (const ttconfig::Fault& fault) {
        tell(fault.what());
        for (const std::string& message : fault.further)
            tell(message);
        return fault.exitCode;
    } catch (const std::exception& failure) {
        std::cerr << "ttconfig: internal error: " << failure.what() << '\n';
    } catch (...) {
        std::cerr << "ttconfig: internal error\n";
    }
    return ttconfig::kExitInternal;
}

}  // namespace

int main(int argc, char** argv) {
    CommandLine commandLine;
    try {
        if (const auto exitCode = ttconfig::readCommandLine(argc, argv, commandLine)) return *exitCode;
    } catch (const std::exception& failure) {
        std::cerr << "ttconfig: internal error: " << failure.what() << '\n';
        return ttconfig::kExitInternal;
    }
    const int exitCode = runGuarded(commandLine);
    const bool logIsWhole = ttconfig::endLogging(commandLine.shared);
    return logIsWhole || exitCode != ttconfig::kExitDone ? exitCode : ttconfig::kExitInternal;
}
