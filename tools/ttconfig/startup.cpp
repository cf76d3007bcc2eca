// The start: carries out what every subcommand that asks the store can be told.
// Doors: carryOut(), endLogging().
// Owns: nothing.
// Covered by tests/tools/ttconfig/startup_test.cpp.

#include "ttconfig/startup.h"

#include <standin/logsetup.h>
#include <standin/platformdatafile.h>

#include <filesystem>
#include <system_error>

#include "traderbase/base/config/configcollector.h"
#include "ttconfig/fault.h"
#include "ttconfig/settingsfile.h"

namespace ttconfig {

namespace {

void enter(const std::string& directory) {
    std::error_code trouble;
    std::filesystem::current_path(directory, trouble);
    if (trouble) throw Fault(kExitInput, "-C " + directory + ": " + trouble.message() + "; name an existing directory");
}

// A log file is emptied when it is started. Nothing that is read may be lost that way.
void refuseToOverwrite(const std::string& logFile, const std::optional<std::string>& input) {
    std::error_code ignored;
    if (input && std::filesystem::equivalent(logFile, *input, ignored)) {
        throw Fault(kExitUsage, "--log-file " + logFile + ": that file is read here; name another one to write to");
    }
}

}  // namespace

void carryOut(const SharedOptions& options) {
    for (const std::string& directory : options.directories)
        enter(directory);
    if (options.settings) requireUsableSettings(*options.settings);
    if (options.logFile) {
        for (const auto& input : {options.settings, options.platform, options.script})
            refuseToOverwrite(*options.logFile, input);
    }
    std::string error;
    if (options.platform && !standin::installPlatformFile(*options.platform, error)) throw Fault(kExitInput, error);
    if (options.logFile && !standin::startLogFile(*options.logFile, error)) throw Fault(kExitInput, error);
    if (options.settings) ttservice::ConfigCollector::instance()->readConfig(*options.settings);
}

void endLogging(const SharedOptions& options) {
    if (options.logFile) standin::stopLogging();
}

}  // namespace ttconfig
