#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include <boost/thread/shared_mutex.hpp>

namespace ttservice::internal {

struct MoneyFundState {
    std::map<int, std::vector<std::string>> sloBalanceFirst;
    boost::shared_mutex fixedPriceMutex;
    std::map<std::string, std::set<std::string>> fixedPrice;  // by market; guarded by fixedPriceMutex
};

}  // namespace ttservice::internal
