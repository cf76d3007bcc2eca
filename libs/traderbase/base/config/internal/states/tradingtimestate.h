#pragma once

#include <map>
#include <string>

#include "traderbase/base/config/internal/scripts/tradingsessions.h"

namespace ttservice::internal {

struct TradingTimeState {
    std::map<std::string, TradingSessions> sessions;  // by market
};

}  // namespace ttservice::internal
