// Fixed-income values: answers which order parameters a value gives.
// Doors: fixedIncomeLimit().
// Owns: nothing.
// Covered by tests/config/bondlimits_test.cpp.

#include "traderbase/base/config/internal/limits/fixedincome.h"

#include <boost/make_shared.hpp>

#include "traderbase/base/config/internal/limits/limitrows.h"
#include "traderbase/base/config/internal/text/strictnumbers.h"

namespace ttservice::internal {

boost::shared_ptr<SHFixIncomeLimit> fixedIncomeLimit(std::string_view value) {
    LimitFields<decltype(kFixedIncomeRow)> fields;
    if (!piecesExactly(value, ',', fields)) return {};
    auto limit = boost::make_shared<SHFixIncomeLimit>();
    limit->doubleValue = looseDouble(fields[0]);
    limit->intValue1 = looseInt(fields[1]);
    limit->intValue2 = looseInt(fields[2]);
    limit->intValue3 = looseInt(fields[3]);
    limit->intValue4 = looseInt(fields[4]);
    limit->intValue5 = looseInt(fields[5]);
    limit->intValue6 = looseInt(fields[6]);
    return limit;
}

}  // namespace ttservice::internal
