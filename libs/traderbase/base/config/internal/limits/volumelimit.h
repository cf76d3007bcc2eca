#pragma once

#include <string>
#include <utility>

#include "traderbase/base/config/internal/words/unitwords.h"

// The largest quantity that one order may carry, and the unit word it is counted in: the settings file's bytes.

namespace ttservice::internal {

using VolumeLimit = std::pair<int, std::string>;

// What holds where no row says anything. Amounts use the number alone.
inline constexpr int kLimitWithoutRow = 1000000;
inline VolumeLimit volumeLimitWithoutRow() {
    return {kLimitWithoutRow, std::string(kShares)};
}

}  // namespace ttservice::internal
