// Where log lines go: a plain text file, or the memory of a test.
// Entry points: startLogFile(), stopLogging(), LogCapture.
// Owns: the appenders on the root logger.
// Test: tests/platform/logging_test.cpp
#include "standin/logsetup.h"

#include <log4cxx/appenderskeleton.h>
#include <log4cxx/helpers/transcoder.h>
#include <log4cxx/level.h>
#include <log4cxx/logmanager.h>
#include <log4cxx/spi/loggerrepository.h>
#include <log4cxx/spi/loggingevent.h>

#include <clocale>
#include <cstring>
#include <fstream>
#include <functional>
#include <mutex>
#include <utility>

#include "standin/filebytes.h"
#include "ttplatform/logging.h"

namespace standin {

namespace {

constexpr const char* kStandardLoggerName = "TTStdLogger";
constexpr const char* kDebugFileLoggerName = "TTDbgFile";

std::string utf8Of(const log4cxx::LogString& text) {
    std::string bytes;
    log4cxx::helpers::Transcoder::encodeUTF8(text, bytes);
    return bytes;
}

// The function name as the caller gave it. log4cxx splits "luabase::printLog" into class and method; a plain name has
// no class, and an unknown location has "?" for both.
std::string functionOf(const log4cxx::spi::LocationInfo& location) {
    const std::string className = location.getClassName();
    const std::string methodName = location.getMethodName();
    return className.empty() || className == log4cxx::spi::LocationInfo::NA ? methodName
                                                                            : className + "::" + methodName;
}

std::string fileOf(const log4cxx::spi::LocationInfo& location) {
    const char* file = location.getFileName();
    return file == nullptr || std::strcmp(file, log4cxx::spi::LocationInfo::NA) == 0 ? std::string() : file;
}

// Passes every line to one function, one line at a time.
class LineAppender : public log4cxx::AppenderSkeleton {
public:
    using Sink = std::function<void(const LogLine&)>;

    explicit LineAppender(Sink target) : sink(std::move(target)) {}

    void close() override {}
    bool requiresLayout() const override { return false; }

protected:
    void append(const log4cxx::spi::LoggingEventPtr& event, log4cxx::helpers::Pool& /*pool*/) override {
        const log4cxx::spi::LocationInfo& location = event->getLocationInformation();
        LogLine line{utf8Of(event->getLevel()->toString()), utf8Of(event->getLoggerName()), functionOf(location),
                     fileOf(location), utf8Of(event->getRenderedMessage())};
        sink(line);
    }

private:
    Sink sink;
};

std::string withoutLineEnds(const std::string& text) {
    std::string shown;
    for (const char character : text) {
        if (character == '\n') {
            shown += "\\n";
        } else if (character == '\r') {
            shown += "\\r";
        } else {
            shown += character;
        }
    }
    return shown;
}

// log4cxx decodes messages with the locale's character type (LC_CTYPE) and replaces bytes that it cannot decode with
// "?". Only the character type is changed: numbers, dates and sorting keep their locale.
void useUtf8Messages() {
    for (const char* name : {"C.UTF-8", "C.utf8", "en_US.UTF-8", ".UTF-8"}) {
        if (std::setlocale(LC_CTYPE, name) != nullptr) return;
    }
}

// Attaches an appender to the root logger. Marks log4cxx as configured first; otherwise the first request for a logger
// would load any log4cxx.* or log4j.* file in the working directory.
void attach(const log4cxx::AppenderPtr& appender) {
    log4cxx::LogManager::getLoggerRepository()->setConfigured(true);
    useUtf8Messages();
    const log4cxx::LoggerPtr root = log4cxx::Logger::getRootLogger();
    root->setLevel(log4cxx::Level::getDebug());
    root->addAppender(appender);
}

void detach(const log4cxx::AppenderPtr& appender) {
    log4cxx::Logger::getRootLogger()->removeAppender(appender);
}

struct LogFile {
    std::ofstream stream;
    log4cxx::AppenderPtr appender;
};

// Never destroyed, so that no static destructor touches log4cxx after log4cxx itself is gone; stopLogging() closes the
// file.
LogFile*& openLogFile() {
    static LogFile* only = nullptr;
    return only;
}

}  // namespace

bool startLogFile(const std::string& path, std::string& error) {
    auto file = std::make_unique<LogFile>();
    if (path.find('\0') == std::string::npos) file->stream.open(path, std::ios::binary | std::ios::trunc);
    if (!file->stream.is_open()) {
        error = path + ": cannot be opened for the log";
        return false;
    }
    stopLogging();
    std::ofstream& stream = file->stream;
    file->appender = std::make_shared<LineAppender>([&stream](const LogLine& line) {
        stream << line.level << ' ' << line.logger << ' ' << line.function << ' ' << withoutLineEnds(line.message)
               << '\n';
        stream.flush();
    });
    attach(file->appender);
    log4cxx::Logger::getLogger(kDebugFileLoggerName)->setLevel(log4cxx::Level::getDebug());
    g_TTStdLogger = log4cxx::Logger::getLogger(kStandardLoggerName);
    setEveryFileLogEnabled(true);
    openLogFile() = file.release();
    return true;
}

bool stopLogging() {
    LogFile*& file = openLogFile();
    if (file == nullptr) return true;
    g_TTStdLogger.reset();
    setEveryFileLogEnabled(false);
    detach(file->appender);
    file->stream.close();
    const bool isWhole = !file->stream.fail();
    delete file;
    file = nullptr;
    return isWhole;
}

struct LogCapture::State {
    mutable std::mutex mutex;
    std::vector<LogLine> lines;
    log4cxx::AppenderPtr appender;
    bool ownsStandardLogger = false;
};

LogCapture::LogCapture() : state(std::make_shared<State>()) {
    State* const target = state.get();
    state->appender = std::make_shared<LineAppender>([target](const LogLine& line) {
        const std::lock_guard<std::mutex> guard(target->mutex);
        target->lines.push_back(line);
    });
    attach(state->appender);
    if (!g_TTStdLogger) {
        g_TTStdLogger = log4cxx::Logger::getLogger(kStandardLoggerName);
        state->ownsStandardLogger = true;
    }
}

LogCapture::~LogCapture() {
    detach(state->appender);
    if (state->ownsStandardLogger) g_TTStdLogger.reset();
}

std::vector<LogLine> LogCapture::lines() const {
    const std::lock_guard<std::mutex> guard(state->mutex);
    return state->lines;
}

std::vector<std::string> LogCapture::messages() const {
    std::vector<std::string> texts;
    for (const LogLine& line : lines())
        texts.push_back(line.message);
    return texts;
}

void LogCapture::clear() {
    const std::lock_guard<std::mutex> guard(state->mutex);
    state->lines.clear();
}

}  // namespace standin
