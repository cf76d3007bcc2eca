#pragma once

#include <set>
#include <string>
#include <utility>
#include <vector>

namespace ttservice::internal {

struct AlgorithmTypeState {
    std::set<std::string> types;
    std::set<std::string> buySellHideTypes;
    std::vector<std::pair<std::string, std::string>> t0Strategies;
    std::vector<std::string> notQueryAlgoPermKeys;  // not used in any answer; the switch of the same name decides
};

}  // namespace ttservice::internal
