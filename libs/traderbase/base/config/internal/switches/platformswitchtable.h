#pragma once

#include <cstddef>
#include <iterator>
#include <string_view>

// The rows of platformswitches.def as a table, sorted by key.

namespace ttservice::internal {

// For which platforms the predicate is true.
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

inline constexpr std::size_t kPlatformSwitchCount = std::size(kPlatformSwitches);

// The row of a key, or kPlatformSwitchCount for a key that is no switch.
constexpr std::size_t platformSwitchIndex(std::string_view key) {
    std::size_t first = 0;
    for (std::size_t count = kPlatformSwitchCount; count > 0;) {
        const std::size_t half = count / 2;
        const std::size_t middle = first + half;
        if (kPlatformSwitches[middle].key == key) return middle;
        if (kPlatformSwitches[middle].key < key) {
            first = middle + 1;
            count -= half + 1;
        } else {
            count = half;
        }
    }
    return kPlatformSwitchCount;
}

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
