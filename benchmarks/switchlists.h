#pragma once

#include <algorithm>
#include <cstddef>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "traderbase/base/config/configcollector.h"
#include "traderbase/base/config/internal/switches/platformswitchtable.h"

// The switches that the programs query, and a table of them.

namespace benchmarks {

using Lists = std::map<std::string, std::vector<int>, std::less<>>;

inline constexpr std::size_t kSwitchCount = ttservice::internal::kPlatformSwitchCount;
inline constexpr int kAskedPlatform = 12;

// Which switches a program queries: one repeatedly, or all of them in turn.
enum class Asked { Hot, Mixed };

inline constexpr std::size_t kHotSwitch = ttservice::internal::platformSwitchIndex("needmaxamount");
static_assert(kHotSwitch < kSwitchCount, "the switch asked again and again is a known one");

constexpr std::size_t askedCount(Asked asked) {
    return asked == Asked::Hot ? 1 : kSwitchCount;
}

constexpr std::size_t switchToAsk(Asked asked, std::size_t turn) {
    return asked == Asked::Hot ? kHotSwitch : turn;
}

inline constexpr bool (ttservice::ConfigCollector::*kPredicates[])(int) const = {
#define TT_PLATFORM_SWITCH(predicate, key, sense, meaning) &ttservice::ConfigCollector::predicate,
#include "traderbase/base/config/platformswitches.def"
};

// The keys, in the order of the predicates.
inline const std::vector<std::string>& switchKeys() {
    static const std::vector<std::string> keys = [] {
        std::vector<std::string> all;
        for (const auto& row : ttservice::internal::kPlatformSwitches)
            all.emplace_back(row.key);
        return all;
    }();
    return keys;
}

// Every known switch and enough unknown keys to reach the count, each with three platforms.
inline Lists listsOf(std::size_t count) {
    Lists lists;
    for (const std::string& key : switchKeys())
        lists[key] = {3, kAskedPlatform, 47};
    for (std::size_t i = lists.size(); i < count; ++i)
        lists["generatedswitch" + std::to_string(i)] = {3, kAskedPlatform, 47};
    return lists;
}

inline bool contains(const std::vector<int>& list, int platformId) {
    return std::find(list.begin(), list.end(), platformId) != list.end();
}

inline bool contains(const Lists& lists, const std::string& key, int platformId) {
    const auto found = lists.find(key);
    return found != lists.end() && contains(found->second, platformId);
}

}  // namespace benchmarks
