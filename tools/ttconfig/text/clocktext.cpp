// Clock times as people write them.
// Entry points: clockText(), secondOfClockText().
// Covered by tests/tools/ttconfig/scripts/answerfindings_test.cpp.

#include "ttconfig/text/clocktext.h"

#include <fmt/format.h>

namespace ttconfig {

namespace {

// The number that the two digits at this place make, if it is below the limit.
std::optional<int> twoDigits(std::string_view text, std::size_t at, int limit) {
    int number = 0;
    for (const char c : text.substr(at, 2)) {
        if (c < '0' || c > '9') return std::nullopt;
        number = number * 10 + (c - '0');
    }
    if (number >= limit) return std::nullopt;
    return number;
}

}  // namespace

std::string clockText(int secondOfDay) {
    if (secondOfDay < 0 || secondOfDay > 86400) return fmt::format("second {}", secondOfDay);
    return fmt::format("{:02}:{:02}:{:02}", secondOfDay / 3600, secondOfDay / 60 % 60, secondOfDay % 60);
}

std::optional<int> secondOfClockText(std::string_view text) {
    const bool hasSeconds = text.size() == 8;
    if ((!hasSeconds && text.size() != 5) || text[2] != ':' || (hasSeconds && text[5] != ':')) return std::nullopt;
    const std::optional<int> hours = twoDigits(text, 0, 24);
    const std::optional<int> minutes = twoDigits(text, 3, 60);
    const std::optional<int> seconds = hasSeconds ? twoDigits(text, 6, 60) : 0;
    if (!hours || !minutes || !seconds) return std::nullopt;
    return *hours * 3600 + *minutes * 60 + *seconds;
}

}  // namespace ttconfig
