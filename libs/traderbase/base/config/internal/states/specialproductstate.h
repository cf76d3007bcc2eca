#pragma once

#include <map>
#include <string>
#include <vector>

#include "traderbase/base/config/internal/products/producttables.h"

namespace ttservice::internal {

struct SpecialProductState {
    std::map<std::string, double> subscriptionFees;
    CombinationTables combinations;
    std::string etfBrokerClientTag;
    std::vector<std::string> etfBrokerClientQueryTimes;
};

}  // namespace ttservice::internal
