#pragma once

#include <map>

namespace ttservice::internal {

// One value for each named platform, and a default for all others.
template <typename Value>
struct PerPlatformTable {
    std::map<int, Value> byPlatform;
    Value byDefault = Value();

    bool lists(int platformId) const { return byPlatform.find(platformId) != byPlatform.end(); }

    Value at(int platformId) const {
        const auto found = byPlatform.find(platformId);
        return found == byPlatform.end() ? byDefault : found->second;
    }
};

}  // namespace ttservice::internal
