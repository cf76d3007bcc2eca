#pragma once

#include <string>

#include "traderbase/base/config/internal/platforms/perplatformtable.h"

namespace ttservice::internal {

// Initialised to the values before the first load.
struct ScalarState {
    // Single values; every load sets all of them.
    bool showMaxCanOrder = false;
    bool showNewCompacts = false;
    bool registRules = false;
    bool registIPORules = false;
    bool newShangHaiLoanRules = false;  // read, but not used in any answer
    bool shangHaiNewBondRules = false;
    bool shenZhenNewBondRules = false;
    bool globalRef = false;
    bool splitPageOfStkCompact = false;
    bool creditCompactDeferT3 = false;
    bool etfOneCode = true;  // no load reads it
    int refLimit = 0;
    int flowHistoryDays = 0;
    std::string hgtSgtPriceDiff;
    std::string quoterAddress;  // never set

    // Values per platform.
    PerPlatformTable<bool> t0ForReturnStock;
    PerPlatformTable<bool> spxCredit;
    PerPlatformTable<bool> mainAccountCalcCompactsByDeal;
    PerPlatformTable<int> renewal;
    PerPlatformTable<int> counterMaxCompacts;
    PerPlatformTable<int> counterIpwanPos;
    PerPlatformTable<int> sm3Platforms;  // not used in any answer
};

}  // namespace ttservice::internal
