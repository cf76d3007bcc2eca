#pragma once

#include <ttplatform/ratelimitrecords.h>

#include <vector>

#include "fuzz/support/samenumber.h"
#include "tests/support/slowcatalogues.h"
#include "traderbase/base/config/contractinfo.h"
#include "traderbase/base/config/shfixincomelimit.h"

namespace fuzz {

inline bool isSameContract(const ttservice::ContractInfo& record, const tests::SlowContract& slow) {
    return record.productId == slow.product && record.textValue == slow.text && record.isCredit == slow.isCredit &&
           record.intValue == slow.integer && record.longValue == slow.wide && isSame(record.doubleValue, slow.decimal);
}

// The members of a record in the order of the row's fields.

inline std::vector<double> numbersOf(const ttservice::SHFixIncomeLimit& limit) {
    return {limit.doubleValue,
            static_cast<double>(limit.intValue1),
            static_cast<double>(limit.intValue2),
            static_cast<double>(limit.intValue3),
            static_cast<double>(limit.intValue4),
            static_cast<double>(limit.intValue5),
            static_cast<double>(limit.intValue6)};
}

inline std::vector<double> numbersOf(const CStkExchangeRateLimit& rates) {
    return {
        rates.rate1, rates.rate2, rates.rate3, rates.rate4, rates.rate5, rates.rate6, static_cast<double>(rates.count)};
}

// A record of the Shanghai or Shenzhen connect.
template <typename ConnectRecord>
std::vector<double> numbersOf(const ConnectRecord& rates) {
    return {rates.rate1, rates.rate2, rates.rate3,  rates.rate4,  rates.rate5,  rates.rate6,  rates.rate7,
            rates.rate8, rates.rate9, rates.rate10, rates.rate11, rates.rate12, rates.rate13, rates.rate14};
}

}  // namespace fuzz
