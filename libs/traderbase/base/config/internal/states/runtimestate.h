#pragma once

#include <map>
#include <string>

namespace ttservice::internal {

// Values that the client sets while it runs; no load changes them.
struct RuntimeState {
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
    std::map<std::string, int> splitPermission;
};

}  // namespace ttservice::internal
