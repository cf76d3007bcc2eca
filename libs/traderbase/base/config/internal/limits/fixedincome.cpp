// Fixed-income values: reads the order parameters in a value.
// Entry points: fixedIncomeLimit().
// Covered by tests/config/bondlimits_test.cpp.

#include "traderbase/base/config/internal/limits/fixedincome.h"

#include <boost/make_shared.hpp>

#include "traderbase/base/config/internal/limits/limittables.h"

namespace ttservice::internal {

boost::shared_ptr<SHFixIncomeLimit> fixedIncomeLimit(std::string_view value) {
    LimitFieldTexts fields;
    if (splitLimitFields(value, fields) != kFixedIncomeRow.size()) return {};
    auto limit = boost::make_shared<SHFixIncomeLimit>();
    readLimitFields<kFixedIncomeRow>(fields, limit->doubleValue, limit->intValue1, limit->intValue2, limit->intValue3,
                                     limit->intValue4, limit->intValue5, limit->intValue6);
    return limit;
}

}  // namespace ttservice::internal
