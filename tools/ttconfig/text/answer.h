#pragma once

#include <nlohmann/json.hpp>

namespace ttconfig {

// What is passed to an operation: members sorted by name, found in logarithmic time.
using Argument = nlohmann::json;
// What an operation answers: members in the order in which they were added.
using Answer = nlohmann::ordered_json;

}  // namespace ttconfig
