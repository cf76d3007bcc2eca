#pragma once

#include <string>
#include <utility>

#include "traderbase/base/config/internal/words/unitwords.h"

// The largest quantity of one order and its unit word, in the bytes of the settings file.

namespace ttservice::internal {

using VolumeLimit = std::pair<int, std::string>;

// The default when no row applies. Amounts use only the number.
inline constexpr int kLimitWithoutRow = 1000000;
inline VolumeLimit volumeLimitWithoutRow() {
    return {kLimitWithoutRow, std::string(kShares)};
}

}  // namespace ttservice::internal
