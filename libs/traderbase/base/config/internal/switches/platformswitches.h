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

// The switch table: the platforms listed under each key, and the overrides that take precedence over them. A
// reader/writer lock guards the lists. The overrides are not locked; they are set before other threads query the store.
class PlatformSwitches {
public:
    // The lock of the lists. Tables documented to share it use this reference.
    ReadMostlyMutex& lock() { return mutex; }

    // Replaces the list of each given key; all other lists stay.
    void replace(std::map<std::string, std::vector<int>> newLists);
    // The same with the lists of a load, which are moved from.
    void replace(SwitchLists newLists);

    std::vector<int> list(const std::string& key);
    std::map<std::string, std::vector<int>> all();

    void addOverride(const std::string& key, bool value);
    void replaceOverrides(const std::map<std::string, bool>& newOverrides);

    // The override of the key if there is one, otherwise whether the platform is listed under it.
    bool isOn(std::string_view key, int platformId);
    // The same for a known switch, without a look-up by key.
    bool isKnownOn(std::size_t switchIndex, int platformId);

private:
    ReadMostlyMutex mutex;
    std::map<std::string, std::vector<int>, std::less<>> lists;
    std::map<std::string, bool, std::less<>> overrides;
    PlatformSwitchSlots slots;  // the lists and overrides of the known switches
};

}  // namespace ttservice::internal
