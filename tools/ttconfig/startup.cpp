// The start: carries out what every subcommand that asks the store can be told.
// Doors: carryOut(), endLogging().
// Owns: nothing.
// Covered by tests/tools/ttconfig/startup_test.cpp.

#include "ttconfig/startup.h"

#include <standin/logsetup.h>
#include <standin/platformdatafile.h>

#include <filesystem>
#include <iostream>
#include <system_error>

#include "traderbase/base/config/configcollector.h"
#include "traderbase/base/config/internal/markettimescript.h"
#include "ttconfig/fault.h"
#include "ttconfig/overwriting.h"
#include "ttconfig/settingsfile.h"

namespace ttconfig {

namespace {

void enter(const std::string& directory) {
    std::error_code trouble;
    std::filesystem::current_path(directory, trouble);
    if (trouble) throw Fault(kExitInput, "-C " + directory + ": " + trouble.message() + "; name an existing directory");
}

}  // namespace

void carryOut(const SharedOptions& options) {
    for (const std::string& directory : options.directories)
        enter(directory);
    if (options.settings) requireUsableSettings(*options.settings);
    // A log file is emptied when it is started.
    if (options.logFile) {
        refuseToOverwrite(
            "--log-file", *options.logFile,
            {options.settings, options.platform, options.script, std::string(ttservice::internal::kMarketTimeScript)});
    }
    std::string error;
    if (options.platform && !standin::installPlatformFile(*options.platform, error)) throw Fault(kExitInput, error);
    if (options.logFile && !standin::startLogFile(*options.logFile, error)) throw Fault(kExitInput, error);
    if (options.settings) ttservice::ConfigCollector::instance()->readConfig(*options.settings);
}

bool endLogging(const SharedOptions& options) {
    if (!options.logFile || standin::stopLogging()) return true;
    std::cerr << "ttconfig: --log-file " << *options.logFile << ": cannot be written to the end\n";
    return false;
}

}  // namespace ttconfig
