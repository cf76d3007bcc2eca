#pragma once

#include <memory>
#include <string>
#include <vector>

#include "ttplatform/export.h"

namespace standin {

// Sends every log line of the library to a file, which is truncated first, and enables all numbered channels and the
// DEBUG level. Each message is one line, flushed at once, with its parts separated by blanks:
//
//   LEVEL LOGGER FUNCTION MESSAGE
//
// A line end inside a message is written as \n or \r. Messages are UTF-8 in every locale; to that end the character
// type of the process's locale, and nothing else of it, is set to UTF-8. No log4cxx configuration file is ever read.
// Returns false when the file cannot be opened; error then names the file, and logging is unchanged. Another call
// switches to the new file. Call this and stopLogging() only while no other thread logs.
TTPLATFORM_API bool startLogFile(const std::string& path, std::string& error);

// Closes the file that startLogFile() opened and makes g_TTStdLogger null again. A program that started logging must
// call it before its static objects are destroyed. Returns false when a line could not be written to the file.
TTPLATFORM_API bool stopLogging();

// Turns one numbered channel on or off.
TTPLATFORM_API void setFileLogEnabled(int channel, bool enabled);

// Turns every channel on or off, including those that were set individually.
TTPLATFORM_API void setEveryFileLogEnabled(bool enabled);

// One log line as a test sees it.
struct LogLine {
    std::string level;     // "ERROR", "INFO", "DEBUG", ...
    std::string logger;    // name of the logger
    std::string function;  // from the source location, as the caller gave it
    std::string file;      // from the source location, as the caller gave it; empty when unknown
    std::string message;
};

// While it exists, captures in memory the log lines of all loggers from DEBUG upwards. Sets g_TTStdLogger if it is null
// and resets it at the end. Sets the locale's character type as startLogFile() does; leaves the channels alone. Only
// one may exist at a time.
class TTPLATFORM_API LogCapture {
public:
    LogCapture();
    ~LogCapture();
    LogCapture(const LogCapture&) = delete;
    LogCapture& operator=(const LogCapture&) = delete;

    // A copy of the lines captured so far, in order.
    std::vector<LogLine> lines() const;
    // Only the messages.
    std::vector<std::string> messages() const;
    // Discards the lines captured so far.
    void clear();

private:
    struct State;
    std::shared_ptr<State> state;
};

}  // namespace standin
