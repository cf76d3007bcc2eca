// Startup: carries out the options of every subcommand that queries the store.
// Entry points: carryOut(), endLogging().
// POSIX only, like the rest of the program.
// Covered by tests/tools/ttconfig/settings/startup_test.cpp.

#include "ttconfig/settings/startup.h"

#include <standin/logsetup.h>
#include <standin/platformdatafile.h>

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <iostream>
#include <optional>
#include <system_error>

#include "traderbase/base/config/configcollector.h"
#include "traderbase/base/config/internal/scripts/markettimescript.h"
#include "ttconfig/invocation/fault.h"
#include "ttconfig/settings/overwriting.h"

namespace ttconfig {

namespace {

void enter(const std::string& directory) {
    std::error_code trouble;
    std::filesystem::current_path(directory, trouble);
    if (trouble) throw Fault(kExitInput, "-C " + directory + ": " + trouble.message() + "; name an existing directory");
}

// Opening a pipe waits for a reader, so refuse a pipe without one. This descriptor stays open until the log is open, so
// that the reader does not see an end before the first line.
class PipeWithReader {
public:
    explicit PipeWithReader(const std::string& path) {
        std::error_code none;
        if (!std::filesystem::is_fifo(path, none)) return;
        descriptor = ::open(path.c_str(), O_WRONLY | O_NONBLOCK | O_CLOEXEC);
        if (descriptor < 0 && errno == ENXIO) {
            throw Fault(kExitInput,
                        "--log-file " + path + ": is a pipe that nobody reads; start the reader first or name a file");
        }
    }
    PipeWithReader(const PipeWithReader&) = delete;
    PipeWithReader& operator=(const PipeWithReader&) = delete;
    ~PipeWithReader() {
        if (descriptor >= 0) ::close(descriptor);
    }

private:
    int descriptor = -1;
};

// Starting a log empties its file.
void startLog(const std::string& path) {
    const PipeWithReader held(path);
    std::string error;
    if (!standin::startLogFile(path, error)) throw Fault(kExitInput, error);
}

}  // namespace

FileMoment carryOut(const SharedOptions& options, const std::vector<std::string>& alsoRead) {
    for (const std::string& directory : options.directories)
        enter(directory);
    FileMoment beforeLoad(options.settings.value_or(""));
    if (options.settings) requireUsableSettings(*options.settings);
    if (options.logFile) {
        std::vector<std::optional<std::string>> inputs(alsoRead.begin(), alsoRead.end());
        inputs.insert(inputs.end(), {options.settings, options.platform, options.script,
                                     std::string(ttservice::internal::kMarketTimeScript)});
        refuseToOverwrite("--log-file", *options.logFile, inputs);
    }
    std::string error;
    if (options.platform && !standin::installPlatformFile(*options.platform, error)) throw Fault(kExitInput, error);
    if (options.logFile) startLog(*options.logFile);
    if (options.settings) ttservice::ConfigCollector::instance()->readConfig(*options.settings);
    return beforeLoad;
}

bool endLogging(const SharedOptions& options) {
    if (!options.logFile || standin::stopLogging()) return true;
    std::cerr << "ttconfig: --log-file " << *options.logFile << ": cannot be written to the end\n";
    return false;
}

}  // namespace ttconfig
