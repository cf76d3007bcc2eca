#pragma once

#include "traderbase/base/config/internal/limits/marketitem.h"
#include "traderbase/base/config/internal/limits/volumelimit.h"

namespace ttservice::internal {

// Rows of the file, and the defaults inserted by queries since the load.
struct OrderLimitState {
    MarketItemTable<VolumeLimit> limits;
};

}  // namespace ttservice::internal
