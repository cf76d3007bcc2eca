#pragma once

#include <string>
#include <vector>

namespace ttconfig {

// What is wrong with the texts that scripts answer, one sentence each: what the client passes over or takes for
// something else, and what it takes although it is no JSON. Empty for a text that means what it says.

// A market list; its names, in their order, go to markets when the client can read it.
std::vector<std::string> marketListFindings(const std::string& text, std::vector<std::string>& markets);

// The session text of one market.
std::vector<std::string> sessionTextFindings(const std::string& text);

// A vendor's answer.
std::vector<std::string> vendorTextFindings(const std::string& text);

}  // namespace ttconfig
