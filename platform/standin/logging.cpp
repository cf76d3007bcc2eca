// The host's loggers and log channels.
// Entry points: g_TTStdLogger, CLogCenter, ttDbgLogNew(), setFileLogEnabled(), setEveryFileLogEnabled().
// Owns: the standard logger and the set of enabled channels.
// Test: tests/platform/logging_test.cpp
#include "ttplatform/logging.h"

#include <log4cxx/level.h>
#include <log4cxx/spi/location/locationinfo.h>

#include <map>
#include <mutex>

#include "standin/logsetup.h"

log4cxx::LoggerPtr g_TTStdLogger;

namespace {

struct Channels {
    std::mutex mutex;
    bool others = false;  // whether channels that are not in the map are on
    std::map<int, bool> single;
};

// Never destroyed: static destructors may still query channels.
Channels& channels() {
    static Channels& only = *new Channels;
    return only;
}

}  // namespace

bool CLogCenter::fileLogEnabled(int channel) {
    Channels& all = channels();
    const std::lock_guard<std::mutex> guard(all.mutex);
    const auto found = all.single.find(channel);
    return found == all.single.end() ? all.others : found->second;
}

void ttDbgLogNew(const log4cxx::LoggerPtr& logger, int /*channel*/, const std::string& text) {
    if (!logger) return;
    logger->forcedLog(log4cxx::Level::getDebug(), text,
                      log4cxx::spi::LocationInfo("platform/standin/logging", "logging", "ttDbgLogNew", 0));
}

namespace standin {

void setFileLogEnabled(int channel, bool enabled) {
    Channels& all = channels();
    const std::lock_guard<std::mutex> guard(all.mutex);
    all.single[channel] = enabled;
}

void setEveryFileLogEnabled(bool enabled) {
    Channels& all = channels();
    const std::lock_guard<std::mutex> guard(all.mutex);
    all.others = enabled;
    all.single.clear();
}

}  // namespace standin
