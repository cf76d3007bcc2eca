#pragma once

#include <string>

#include "traderbase/base/config/internal/keys/keyreading.h"
#include "traderbase/base/config/internal/platforms/perplatformlist.h"

namespace ttservice::internal {

// Reads a key that gives a value for each platform; how its items are split is a matter of its grammar.
template <typename Value>
void readPerPlatform(const utils::Configuration& configuration, const SettingKey& row, PerPlatformTable<Value>& table) {
    const bool everySeparatorCounts = row.grammar == ValueGrammar::PerPlatformFlagKeepEmpty ||
                                      row.grammar == ValueGrammar::PerPlatformDecimalKeepEmpty;
    const std::string value = readText(configuration, row);
    const Value builtIn = valueWhenMissing<Value>(row);
    if (everySeparatorCounts) {
        readPerPlatformListKeepEmpty(value, builtIn, table);
    } else {
        readPerPlatformList(value, builtIn, table);
    }
}

}  // namespace ttservice::internal
