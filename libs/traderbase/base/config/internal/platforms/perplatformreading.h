#pragma once

#include "traderbase/base/config/internal/keys/keyreading.h"
#include "traderbase/base/config/internal/platforms/perplatformlist.h"

namespace ttservice::internal {

// Reads a key with one value per platform; the key's grammar decides how items are split.
template <typename Value>
void readPerPlatform(const utils::Configuration& configuration, const SettingKey& row, PerPlatformTable<Value>& table) {
    readPerPlatformList(readText(configuration, row), keepsEmptyItems(row.grammar), valueWhenMissing<Value>(row),
                        table);
}

}  // namespace ttservice::internal
