#pragma once

#include <memory>
#include <string>
#include <vector>

#include "ttplatform/export.h"

namespace standin {

// Sends every log line of the library to a file, which is emptied first, and enables all numbered channels and the
// DEBUG level. One line a message, written out at once:
//
//   LEVEL, blank, logger name, blank, function of the source location, blank, message
//
// A line end inside a message is written as \n or \r. Messages are UTF-8 whatever the locale; for that the character
// type of the process's locale (nothing else of it) is set to UTF-8. No log4cxx configuration file is ever read.
// False, and a message in error that names the file, when the file cannot be opened; logging is then as it was.
// Called again, it goes on in the new file. Call it, and stopLogging(), while no other thread logs.
TTPLATFORM_API bool startLogFile(const std::string& path, std::string& error);

// Ends what startLogFile() began, closes the file and makes g_TTStdLogger null again. A program that started logging
// calls it before its static objects are destroyed. False when a line could not be written to the file.
TTPLATFORM_API bool stopLogging();

// Turns one numbered channel on or off.
TTPLATFORM_API void setFileLogEnabled(int channel, bool enabled);

// Turns every channel on or off, those set one by one included.
TTPLATFORM_API void setEveryFileLogEnabled(bool enabled);

// One log line as a test sees it.
struct LogLine {
    std::string level;     // "ERROR", "INFO", "DEBUG", ...
    std::string logger;    // name of the logger
    std::string function;  // of the source location, as it was given there
    std::string file;      // of the source location, as it was given there; empty when unknown
    std::string message;
};

// Catches all log lines for as long as it lives, in memory, of every logger from DEBUG upwards; sets g_TTStdLogger when
// it is null and makes it null again at the end. Channels are left as they are, the locale's character type is set as
// startLogFile() does. One at a time.
class TTPLATFORM_API LogCapture {
public:
    LogCapture();
    ~LogCapture();
    LogCapture(const LogCapture&) = delete;
    LogCapture& operator=(const LogCapture&) = delete;

    // A copy of what was caught so far, in order.
    std::vector<LogLine> lines() const;
    // The messages alone.
    std::vector<std::string> messages() const;
    // Forgets what was caught so far.
    void clear();

private:
    struct State;
    std::shared_ptr<State> state;
};

}  // namespace standin
