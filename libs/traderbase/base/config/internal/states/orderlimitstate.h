#pragma once

#include "traderbase/base/config/internal/limits/marketitem.h"
#include "traderbase/base/config/internal/limits/volumelimit.h"

namespace ttservice::internal {

// Rows of the file, and the defaults that questions have put in since the load.
struct OrderLimitState {
    MarketItemTable<VolumeLimit> limits;
};

}  // namespace ttservice::internal
