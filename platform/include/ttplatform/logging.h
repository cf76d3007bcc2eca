#pragma once

#include <string>

#include <log4cxx/logger.h>

#include "ttplatform/export.h"

// The host's standard logger. Null until the host has set up logging, and null again after it is torn down: check
// before logging.
extern TTPLATFORM_API log4cxx::LoggerPtr g_TTStdLogger;

// Which numbered log channels are written to the host's debug file.
class TTPLATFORM_API CLogCenter {
public:
    // Whether lines of this channel go to the debug file. False when the host has set up nothing.
    static bool fileLogEnabled(int channel);
};

// Writes one line to the given channel at DEBUG level. Callers check fileLogEnabled() and the logger's level first, so
// that lines that would be dropped are never formatted.
TTPLATFORM_API void ttDbgLogNew(const log4cxx::LoggerPtr& logger, int channel, const std::string& text);
