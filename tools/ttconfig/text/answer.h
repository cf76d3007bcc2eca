#pragma once

#include <nlohmann/json.hpp>

namespace ttconfig {

// The arguments of an operation: members sorted by name, found in logarithmic time.
using Argument = nlohmann::json;
// The answer of an operation: members in the order in which they were added.
using Answer = nlohmann::ordered_json;

}  // namespace ttconfig
