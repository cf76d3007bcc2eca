#pragma once

#include <string>
#include <vector>

#include "traderbase/base/config/internal/products/contractcatalogue.h"

namespace ttservice::internal {

struct ContractState {
    ContractCatalogue catalogue;
    std::vector<std::string> httpProductIds;
};

}  // namespace ttservice::internal
