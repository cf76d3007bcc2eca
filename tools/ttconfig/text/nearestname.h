#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace ttconfig {

// The name that a misspelt one was most likely meant to be, letter case aside; empty when none is near.
std::string_view nearestName(std::string_view misspelt, const std::vector<std::string_view>& names);

// "; did you mean NAME?", or nothing when no name is near.
std::string didYouMean(std::string_view misspelt, const std::vector<std::string_view>& names);

}  // namespace ttconfig
