#pragma once

#include <map>
#include <utility>
#include <vector>

namespace tests {

// Trading sessions from the status at each clock time (HHMMSS), computed slowly: second by second through the day.
inline std::vector<std::pair<int, int>> slowSessions(const std::map<int, int>& statusAtClockTime) {
    std::vector<std::pair<int, int>> sessions;
    bool open = false;
    int start = 0;
    for (int second = 0; second < 86400; ++second) {
        const int clockTime = second / 3600 * 10000 + second / 60 % 60 * 100 + second % 60;
        const auto found = statusAtClockTime.find(clockTime);
        if (found == statusAtClockTime.end()) continue;
        if (found->second == 50) {
            open = true;
            start = second;
        } else if (open && (found->second == 49 || found->second == 54)) {
            sessions.emplace_back(start, second);
            open = false;
        }
    }
    if (open) sessions.emplace_back(start, 86400);
    return sessions;
}

}  // namespace tests
