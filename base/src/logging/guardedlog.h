#pragma once

#include <string>
#include <utility>

#include <fmt/format.h>

// Logging that looks before it speaks: no line is formatted for a logger that is absent or does not want it, and no
// trouble with a line ever reaches the caller.

namespace ttservice::internal {

// Where a line says it comes from. Hosts filter by these names, so they stay whatever file the code lives in.
struct LogPlace {
    const char* file;       // source unit, such as "libs/traderbase/base/config/configcollector"
    const char* shortFile;  // its last part
    const char* function;
};

inline constexpr int kRateLimitChannel = 532;
inline constexpr int kTradingTimeChannel = 535;

bool infoWanted();
bool errorWanted();
// Whether the debug file takes lines of this channel.
bool debugWanted(int channel);

// The text as it stands, whatever characters it holds.
void writeInfo(const LogPlace& place, const std::string& text) noexcept;
void writeError(const LogPlace& place, const std::string& text) noexcept;
void writeDebug(int channel, const std::string& text) noexcept;

// Carries out what writes lines. Lines that cannot be made are lost; the answer is not.
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
