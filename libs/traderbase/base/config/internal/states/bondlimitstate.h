#pragma once

#include <map>
#include <string>

#include <boost/shared_ptr.hpp>

#include "traderbase/base/config/shfixincomelimit.h"

namespace ttservice::internal {

struct BondLimitState {
    std::map<int, boost::shared_ptr<SHFixIncomeLimit>> fixedIncome;  // by bond trade type
    std::map<std::string, double> standardBondUse;
};

}  // namespace ttservice::internal
