#pragma once

#include <map>
#include <set>
#include <string>
#include <utility>

#include <boost/thread/mutex.hpp>

#include "traderbase/base/config/internal/platforms/perplatformtable.h"
#include "traderbase/base/config/internal/switches/readmostlymutex.h"

namespace ttservice::internal {

struct CreditState {
    explicit CreditState(ReadMostlyMutex& lockOfSwitches) : platformLock(lockOfSwitches) {}

    ReadMostlyMutex& platformLock;  // the lock of the switch table
    boost::mutex concentrationMutex;
    std::map<int, std::pair<double, double>> concentrationRatios;  // guarded by concentrationMutex
    std::map<int, std::set<std::string>> collateralSaleCodes;      // guarded by platformLock
    PerPlatformTable<double> finEnableBailRatio{{}, 0.6};
    PerPlatformTable<double> setAvailable;
    PerPlatformTable<double> specialEnableVolRate;
    PerPlatformTable<bool> needCheckAssureEnbuyBalance;
};

}  // namespace ttservice::internal
