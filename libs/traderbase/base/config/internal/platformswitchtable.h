#pragma once

#include <string_view>

// The rows of platformswitches.def as a table, sorted by key.

namespace ttservice::internal {

// When the answer is yes.
enum class SwitchSense { Listed, NotListed };

struct PlatformSwitch {
    std::string_view predicate;
    std::string_view key;
    SwitchSense sense;
    std::string_view meaning;
};

inline constexpr PlatformSwitch kPlatformSwitches[] = {
#define TT_PLATFORM_SWITCH(predicate, key, sense, meaning) {#predicate, key, SwitchSense::sense, meaning},
#include "traderbase/base/config/platformswitches.def"
};

constexpr bool platformSwitchesAreSorted() {
    std::string_view before;
    for (const PlatformSwitch& row : kPlatformSwitches) {
        if (!(before < row.key)) return false;
        before = row.key;
    }
    return true;
}
static_assert(platformSwitchesAreSorted(), "the rows of platformswitches.def are sorted by key, each key once");

constexpr bool everyPlatformSwitchIsExplained() {
    for (const PlatformSwitch& row : kPlatformSwitches) {
        if (row.meaning.empty() || row.meaning.back() != '.') return false;
    }
    return true;
}
static_assert(everyPlatformSwitchIsExplained(), "a platform switch needs a sentence");

}  // namespace ttservice::internal
