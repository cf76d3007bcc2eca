// The program: carries out one subcommand and turns what goes wrong into a message and an exit code.
// Doors: main().
// Owns: nothing.
// Covered by tests/tools/ttconfig/commandline_test.cpp.

#include <exception>
#include <iostream>

#include "ttconfig/ask.h"
#include "ttconfig/commandline.h"
#include "ttconfig/fault.h"
#include "ttconfig/limits.h"
#include "ttconfig/listings.h"
#include "ttconfig/output.h"
#include "ttconfig/products.h"
#include "ttconfig/scripts/algos.h"
#include "ttconfig/scripts/marketsessions.h"
#include "ttconfig/scripts/scriptcheck.h"
#include "ttconfig/session.h"
#include "ttconfig/startup.h"
#include "ttconfig/summary.h"

namespace {

using ttconfig::Command;
using ttconfig::CommandLine;

// Answers the exit code of a command that came to its end.
int run(const CommandLine& commandLine) {
    std::ios::sync_with_stdio(false);
    ttconfig::Output output;
    switch (commandLine.command) {
        case Command::Session:
            ttconfig::carryOut(commandLine.shared);
            ttconfig::runSession(std::cin, output);
            break;
        case Command::Ask:
            ttconfig::carryOut(commandLine.shared);
            ttconfig::runAsk(commandLine, output);
            break;
        case Command::Switches:
            ttconfig::runSwitches(commandLine, output);
            break;
        case Command::Keys:
            ttconfig::runKeys(commandLine, output);
            break;
        case Command::Summary:
            ttconfig::runSummary(commandLine, output);
            break;
        case Command::Products:
            ttconfig::runProducts(commandLine, output);
            break;
        case Command::Limits:
            ttconfig::runLimits(commandLine, output);
            break;
        case Command::Sessions:
            ttconfig::runSessions(commandLine, output);
            break;
        case Command::Algos:
            ttconfig::runAlgos(commandLine, output);
            break;
        case Command::ScriptCheck:
            return ttconfig::runScriptCheck(commandLine, output);
    }
    return ttconfig::kExitDone;
}

int runGuarded(const CommandLine& commandLine) {
    try {
        return run(commandLine);
    } catch (const ttconfig::Fault& fault) {
        std::cerr << "ttconfig: " << fault.what() << '\n';
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
    ttconfig::endLogging(commandLine.shared);
    return exitCode;
}
