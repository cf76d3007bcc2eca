#pragma once

#include <string>
#include <vector>

namespace ttconfig {

// The markets in the order in which a market-time script lists them, each once; none for a script that lists none or
// cannot be read.
std::vector<std::string> listedMarkets(const std::string& path);

}  // namespace ttconfig
