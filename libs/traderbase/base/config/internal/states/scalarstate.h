#pragma once

#include <string>

#include "traderbase/base/config/internal/platforms/perplatformtable.h"

namespace ttservice::internal {

// Values as they are before the first load.
struct ScalarState {
    // Single values; every load sets every one.
    bool showMaxCanOrder = false;
    bool showNewCompacts = false;
    bool registRules = false;
    bool registIPORules = false;
    bool newShangHaiLoanRules = false;  // read, consulted by nothing
    bool shangHaiNewBondRules = false;
    bool shenZhenNewBondRules = false;
    bool globalRef = false;
    bool splitPageOfStkCompact = false;
    bool creditCompactDeferT3 = false;
    bool etfOneCode = true;  // no load reads it
    int refLimit = 0;
    int flowHistoryDays = 0;
    std::string hgtSgtPriceDiff;
    std::string quoterAddress;  // set by nothing

    // Values that each platform may have its own of.
    PerPlatformTable<bool> t0ForReturnStock;
    PerPlatformTable<bool> spxCredit;
    PerPlatformTable<bool> mainAccountCalcCompactsByDeal;
    PerPlatformTable<int> renewal;
    PerPlatformTable<int> counterMaxCompacts;
    PerPlatformTable<int> counterIpwanPos;
    PerPlatformTable<int> sm3Platforms;  // answered by nothing
};

}  // namespace ttservice::internal
