#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "traderbase/base/config/internal/switches/platformswitchslots.h"
#include "traderbase/base/config/internal/switches/readmostlymutex.h"

namespace ttservice::internal {

struct SwitchLists;

// The switch table: the platforms listed under each key, and the overrides that come before them. The lists are guarded
// by a reader/writer lock; the overrides are not, and are set before other threads ask.
class PlatformSwitches {
public:
    // The lock of the lists. Tables that are documented to share it take it from here.
    ReadMostlyMutex& lock() { return mutex; }

    // Replaces the list of each key given and leaves all others.
    void replace(std::map<std::string, std::vector<int>> newLists);
    // The same with the lists of a load, which are used up.
    void replace(SwitchLists newLists);

    std::vector<int> list(const std::string& key);
    std::map<std::string, std::vector<int>> all();

    void addOverride(const std::string& key, bool value);
    void replaceOverrides(const std::map<std::string, bool>& newOverrides);

    // The override of the key if there is one, else whether the platform is listed under it.
    bool isOn(std::string_view key, int platformId);
    // The same for a known switch, without a search.
    bool isKnownOn(std::size_t switchIndex, int platformId);

private:
    PlatformSwitchSlots slots;  // what lists and overrides say of the known switches
    ReadMostlyMutex mutex;
    std::map<std::string, std::vector<int>, std::less<>> lists;
    std::map<std::string, bool, std::less<>> overrides;
};

}  // namespace ttservice::internal
