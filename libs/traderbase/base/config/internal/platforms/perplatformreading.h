#pragma once

#include <string>

#include "traderbase/base/config/internal/keys/keyreading.h"
#include "traderbase/base/config/internal/platforms/perplatformlist.h"

namespace ttservice::internal {

// Reads a key with one value per platform; the key's grammar decides how items are split.
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
