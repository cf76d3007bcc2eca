// Calls: limits and rates of orders, bonds and credit.
// Entry points: addLimitCalls().
// Covered by tests/tools/ttconfig/calls/calltable_test.cpp and the golden sessions.

#include "ttconfig/calls/binding.h"
#include "ttconfig/calls/storerecords.h"

namespace ttconfig {

void addLimitCalls(CallTable& table) {
    // orders and block trades
    TT_STORE_CALL(getOrderLimit);
    TT_STORE_CALL(getDazongOrderNumLimit);
    TT_STORE_CALL(getDazongOrderTradeAmountLimit);

    // rates
    TT_STORE_CALL(getRateLimitPtr);
    TT_STORE_CALL(getHGTExchangeRateLimitPtr);
    TT_STORE_CALL(getSgtExchangeRateLimitPtr);

    // bonds
    TT_STORE_CALL(getSHFixIncomeLimit);
    TT_STORE_CALL(getStandardBondUseLimit);

    // credit
    TT_STORE_CALL(isUseConcentrationRatioPts);
    TT_STORE_CALL(isRepayDebtByCollateralSell);
    TT_STORE_CALL(getisSetavailable);
    TT_STORE_CALL(isSetavailable);
    TT_STORE_CALL(getSpecailEnableVolStkExchangeRate);
    TT_STORE_CALL(isUseSpecialEnableBalCalcVolume);
    TT_STORE_CALL(getFinEnableBailRatio);
    TT_STORE_CALL(isUseFinEnableBailRatio);
}

}  // namespace ttconfig
