#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace ttconfig {

// The name that a misspelt one most likely means, ignoring letter case; empty when none is near.
std::string_view nearestName(std::string_view misspelt, const std::vector<std::string_view>& names);

// The same with at most mostSlips slips: letters added, left out, replaced, or swapped with a neighbour.
std::string_view nearestName(std::string_view misspelt, const std::vector<std::string_view>& names,
                             std::size_t mostSlips);

// "; did you mean NAME?", or nothing when no name is near.
std::string didYouMean(std::string_view misspelt, const std::vector<std::string_view>& names);

}  // namespace ttconfig
