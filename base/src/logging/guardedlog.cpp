// Guarded logging: checks whether a line is wanted, and writes it. The loggers belong to the host.
// Entry points: infoWanted(), errorWanted(), debugWanted(), writeInfo(), writeError(), writeDebug(), writeIfPossible(),
// logInfo(), logDebug().
// Covered by tests/config/runtimeswitches_test.cpp, ratelimits_test.cpp and tests/reliability/scriptmemory_test.cpp.

#include "logging/guardedlog.h"

#include <log4cxx/logger.h>
#include <ttplatform/logging.h>

namespace ttservice::internal {

namespace {

log4cxx::LoggerPtr debugFileLogger() {
    return log4cxx::Logger::getLogger("TTDbgFile");
}

// Takes the level as a function, because log4cxx allocates when it first creates a level.
void write(const LogPlace& place, log4cxx::LevelPtr (*level)(), const std::string& text) {
    const log4cxx::spi::LocationInfo location(place.file, place.shortFile, place.function, 0);
    if (g_TTStdLogger) g_TTStdLogger->forcedLog(level(), text, location);
}

}  // namespace

bool infoWanted() {
    return g_TTStdLogger && g_TTStdLogger->isInfoEnabled();
}

bool errorWanted() {
    return g_TTStdLogger && g_TTStdLogger->isErrorEnabled();
}

// Checks the channel first: getLogger() makes log4cxx configure itself, and that is up to the host.
bool debugWanted(int channel) {
    return CLogCenter::fileLogEnabled(channel) && debugFileLogger()->isDebugEnabled();
}

void writeInfo(const LogPlace& place, const std::string& text) noexcept {
    writeIfPossible([&] { write(place, &log4cxx::Level::getInfo, text); });
}

void writeError(const LogPlace& place, const std::string& text) noexcept {
    writeIfPossible([&] {
        if (errorWanted()) write(place, &log4cxx::Level::getError, text);
    });
}

void writeDebug(int channel, const std::string& text) noexcept {
    writeIfPossible([&] { ttDbgLogNew(debugFileLogger(), channel, text); });
}

}  // namespace ttservice::internal
