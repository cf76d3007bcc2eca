// Calls: limits and rates of orders, bonds and credit.
// Doors: addLimitCalls().
// Owns: nothing.
// Covered by tests/tools/ttconfig/calltable_test.cpp and the golden sessions.

#include <ttplatform/ratelimitrecords.h>

#include "traderbase/base/config/shfixincomelimit.h"
#include "ttconfig/calls/binding.h"

namespace ttconfig {

template <>
struct RecordMembers<CStkExchangeRateLimit> {
    static void write(const CStkExchangeRateLimit& record, Answer& object, Records& /*records*/) {
        object["fields"] = {record.rate1, record.rate2, record.rate3, record.rate4,
                            record.rate5, record.rate6, record.count};
    }
};

// Both connects have the same fourteen members.
template <typename Record>
void writeConnectRates(const Record& record, Answer& object) {
    object["fields"] = {record.rate1,  record.rate2,  record.rate3,  record.rate4, record.rate5,
                        record.rate6,  record.rate7,  record.rate8,  record.rate9, record.rate10,
                        record.rate11, record.rate12, record.rate13, record.rate14};
}

template <>
struct RecordMembers<CCustomHGTExchangeRateLimit> {
    static void write(const CCustomHGTExchangeRateLimit& record, Answer& object, Records& /*records*/) {
        writeConnectRates(record, object);
    }
};

template <>
struct RecordMembers<CCustomSgtExchangeRateLimit> {
    static void write(const CCustomSgtExchangeRateLimit& record, Answer& object, Records& /*records*/) {
        writeConnectRates(record, object);
    }
};

template <>
struct RecordMembers<ttservice::SHFixIncomeLimit> {
    static void write(const ttservice::SHFixIncomeLimit& record, Answer& object, Records& /*records*/) {
        object["doubleValue"] = record.doubleValue;
        object["intValue1"] = record.intValue1;
        object["intValue2"] = record.intValue2;
        object["intValue3"] = record.intValue3;
        object["intValue4"] = record.intValue4;
        object["intValue5"] = record.intValue5;
        object["intValue6"] = record.intValue6;
    }
};

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
    TT_STORE_CALL(isNeedCheckAssureEnbuyBalancePts);
}

}  // namespace ttconfig
