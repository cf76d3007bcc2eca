// Platform switches: answers for which platforms a behaviour is on.
// Entry points: setPts, getPts, getAllpts, isSomePt, addLocalConfig, setUseLocalConfig, the predicates.
// Owns: the store's switch table, internal/switches/platformswitches.h.
// Covered by tests/config/platformswitches_test.cpp.

#include <utility>

#include "traderbase/base/config/configcollector.h"
#include "traderbase/base/config/internal/states/storestate.h"
#include "traderbase/base/config/internal/switches/platformswitchtable.h"

namespace ttservice {

void ConfigCollector::addLocalConfig(const std::string& name, bool value) {
    state->switches.addOverride(name, value);
}

void ConfigCollector::setUseLocalConfig(const std::map<std::string, bool>& overrides) {
    state->switches.replaceOverrides(overrides);
}

void ConfigCollector::setPts(std::map<std::string, std::vector<int>> lists) {
    state->switches.replace(std::move(lists));
}

std::vector<int> ConfigCollector::getPts(const std::string& key) const {
    return state->switches.list(key);
}

std::map<std::string, std::vector<int>> ConfigCollector::getAllpts() const {
    return state->switches.all();
}

bool ConfigCollector::isSomePt(std::string_view key, int platformId) const {
    return state->switches.isOn(key, platformId);
}

// NotListed negates an override too.
#define TT_PLATFORM_SWITCH(predicate, key, sense, meaning)                                         \
    bool ConfigCollector::predicate(int platformId) const {                                        \
        constexpr std::size_t kIndex = internal::platformSwitchIndex(key);                         \
        static_assert(kIndex < internal::kPlatformSwitchCount, "every row of the table is known"); \
        return state->switches.isKnownOn(kIndex, platformId) ==                                    \
               (internal::SwitchSense::sense == internal::SwitchSense::Listed);                    \
    }
#include "traderbase/base/config/platformswitches.def"

}  // namespace ttservice
