#pragma once

#include "traderbase/base/config/internal/limits/marketitem.h"
#include "traderbase/base/config/internal/limits/volumelimit.h"

namespace ttservice::internal {

struct BlockTradeState {
    MarketItemTable<VolumeLimit> quantities;
    MarketItemTable<int> amounts;
};

}  // namespace ttservice::internal
