#pragma once

#include <string>
#include <vector>

namespace ttconfig {

// The markets in the order in which a market-time script lists them, without duplicates; empty when the script lists
// none or cannot be read.
std::vector<std::string> listedMarkets(const std::string& path);

}  // namespace ttconfig
