#pragma once

#include <string>

#include "traderbase/base/config/internal/platforms/perplatformtable.h"

// The store's plain values, as they are before the first load and before the client sets anything.

namespace ttservice::internal {

// Single values of the settings file; every load sets every one.
struct SingleValues {
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
};

// Values that each platform may have its own of.
struct PlatformValues {
    PerPlatformTable<bool> t0ForReturnStock;
    PerPlatformTable<bool> spxCredit;
    PerPlatformTable<bool> mainAccountCalcCompactsByDeal;
    PerPlatformTable<int> renewal;
    PerPlatformTable<int> counterMaxCompacts;
    PerPlatformTable<int> counterIpwanPos;
    PerPlatformTable<int> sm3Platforms;  // answered by nothing
};

// What the client sets while it runs; no load touches it.
struct RuntimeValues {
    bool autoSplitOrderAuth = true;
    int delayPushTime = 30;
    bool needDelayPushExternOrder = false;
    bool needRemoveExportFile = false;
    bool gadrafClientMode = false;
    bool needCalcAccountDetail = true;
    bool useOrderIdFunction = true;
    bool hkUseCustRate = false;
    int hkRateType = 0;
    bool hideModel = false;
    std::string localDiskPathHash;
    std::string localInfoFormat;
    std::string qeTsConfig;
};

}  // namespace ttservice::internal
