#pragma once

#include <string>
#include <utility>

#include <fmt/format.h>

// Logging that checks first: no line is formatted for a logger that is absent or does not want it, and no failure to
// log ever reaches the caller.

namespace ttservice::internal {

// The source location shown with a line. Hosts filter by these names, so they stay the same wherever the code moves.
struct LogPlace {
    const char* file;       // source unit, such as "libs/traderbase/base/config/configcollector"
    const char* shortFile;  // its last part
    const char* function;
};

inline constexpr int kRateLimitChannel = 532;
inline constexpr int kTradingTimeChannel = 535;

bool infoWanted();
bool errorWanted();
// Whether the debug file accepts lines of this channel.
bool debugWanted(int channel);

// Logs the text unchanged, whatever characters it contains.
void writeInfo(const LogPlace& place, const std::string& text) noexcept;
void writeError(const LogPlace& place, const std::string& text) noexcept;
void writeDebug(int channel, const std::string& text) noexcept;

// Runs the function that writes lines. If memory runs out, the line is lost but the caller goes on.
template <typename Write>
void writeIfPossible(const Write& write) noexcept {
    try {
        write();
    } catch (...) {  // NOLINT(bugprone-empty-catch): see above
    }
}

template <typename... Args>
void logInfo(const LogPlace& place, fmt::format_string<Args...> format, Args&&... args) {
    writeIfPossible([&] {
        if (infoWanted()) writeInfo(place, fmt::format(format, std::forward<Args>(args)...));
    });
}

template <typename... Args>
void logDebug(int channel, fmt::format_string<Args...> format, Args&&... args) {
    writeIfPossible([&] {
        if (debugWanted(channel)) writeDebug(channel, fmt::format(format, std::forward<Args>(args)...));
    });
}

}  // namespace ttservice::internal
