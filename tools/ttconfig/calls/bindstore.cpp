// Calls: the settings store itself, its platform switches, single values and run-time values.
// Entry points: addStoreCalls().
// Covered by tests/tools/ttconfig/calls/calltable_test.cpp and the golden sessions.

#include "ttconfig/calls/binding.h"

namespace ttconfig {

namespace {

void addSwitchCalls(CallTable& table) {
    TT_STORE_CALL(addLocalConfig);
    TT_STORE_CALL(setUseLocalConfig);
    TT_STORE_CALL(setPts);
    TT_STORE_CALL(getPts);
    TT_STORE_CALL(getAllpts);
    TT_STORE_CALL(isSomePt);
    TT_STORE_CALL(isCanQueryETFFromCounter);
    TT_STORE_CALL(setSplitPermission);
    TT_STORE_CALL(getMaxPermission);
#define TT_PLATFORM_SWITCH(predicate, key, sense, meaning) TT_STORE_CALL(predicate);
#include "traderbase/base/config/platformswitches.def"
}

// What one key decides, and what else there is of the kind.
void addKeyCalls(CallTable& table) {
#define TT_SETTING_KEY(id, section, key, grammar, missing, feeds, meaning)
#define TT_PLAIN_KEY(id, section, key, grammar, missing, operation, meaning) TT_STORE_CALL(operation);
#include "traderbase/base/config/settingkeys.def"
    TT_STORE_CALL(useRegistIPORules);
    TT_STORE_CALL(useNewBondRules);
    TT_STORE_CALL(useNewShangHaiLoanRules);
    TT_STORE_CALL(getUseNewIPOFrozenCalcMethod);
    TT_STORE_CALL(isCrtFundTransferUseCreditDetail);
    TT_STORE_CALL(isNeedUseETFOneCode);
    TT_STORE_CALL(getQuoterAdress);
}

void addRuntimeCalls(CallTable& table) {
    TT_STORE_CALL(setAutoSplitOrderAuth);
    TT_STORE_CALL(hasAutoSplitOrderAuth);
    TT_STORE_CALL(setDelayPushTime);
    TT_STORE_CALL(getDelayPushTime);
    TT_STORE_CALL(setNeedDelayPushExternOrder);
    TT_STORE_CALL(isNeedDelayPushExternOrder);
    TT_STORE_CALL(setNeedRemoveExportFile);
    TT_STORE_CALL(isNeedRemoveExportFile);
    TT_STORE_CALL(setGadrafClientMode);
    TT_STORE_CALL(isGadrafClientMode);
    TT_STORE_CALL(setNoNeedCalcAccountDetail);
    TT_STORE_CALL(isNeedCalcAccountDetail);
    TT_STORE_CALL(setUseOrderIdFunction);
    TT_STORE_CALL(useOrderIdFunction);
    TT_STORE_CALL(setHKUseCustRate);
    TT_STORE_CALL(setHKRateType);
    TT_STORE_CALL(getHKUseCustRateType);
    TT_STORE_CALL(setHideModel);
    TT_STORE_CALL(getHideModel);
    TT_STORE_CALL(setLocalDiskPathHash);
    TT_STORE_CALL(getLocalDiskPathHash);
    TT_STORE_CALL(setLocalInfoFormat);
    TT_STORE_CALL(getLocalInfoFormat);
    TT_STORE_CALL(setQeTsConfig);
    TT_STORE_CALL(getQeTsConfigStr);
}

}  // namespace

void addStoreCalls(CallTable& table) {
    TT_STORE_CALL(readConfig);
    TT_STORE_CALL(getOriginalStr);
    addSwitchCalls(table);
    addKeyCalls(table);
    addRuntimeCalls(table);
}

}  // namespace ttconfig
