#pragma once

#include <ttplatform/ratelimitrecords.h>
#include <boost/shared_ptr.hpp>

#include "traderbase/base/config/internal/limits/marketitem.h"

namespace ttservice::internal {

// Rows of the file, and the defaults inserted by queries since the load.
struct RateLimitState {
    MarketItemTable<boost::shared_ptr<CStkExchangeRateLimit>> stocks;
    MarketItemTable<boost::shared_ptr<CCustomHGTExchangeRateLimit>> shanghaiConnect;
    MarketItemTable<boost::shared_ptr<CCustomSgtExchangeRateLimit>> shenzhenConnect;
};

}  // namespace ttservice::internal
