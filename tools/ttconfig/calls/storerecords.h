#pragma once

#include <ttplatform/ratelimitrecords.h>

#include "traderbase/base/config/contractinfo.h"
#include "traderbase/base/config/shfixincomelimit.h"
#include "ttconfig/calls/jsonvalues.h"

// The members of the store's records, as they appear in answers and explanations.

namespace ttconfig {

template <>
struct RecordMembers<ttservice::ContractInfo> {
    static void write(const ttservice::ContractInfo& record, Answer& object, Records& /*records*/) {
        object["intValue"] = record.intValue;
        object["doubleValue"] = record.doubleValue;
        object["longValue"] = record.longValue;
        object["productId"] = record.productId;
        object["textValue"] = record.textValue;
        object["isCredit"] = record.isCredit;
    }
};

template <>
struct RecordMembers<CStkExchangeRateLimit> {
    static void write(const CStkExchangeRateLimit& record, Answer& object, Records& /*records*/) {
        object["fields"] = {record.rate1, record.rate2, record.rate3, record.rate4,
                            record.rate5, record.rate6, record.count};
    }
};

// Both connect records have the same fourteen members.
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

}  // namespace ttconfig
