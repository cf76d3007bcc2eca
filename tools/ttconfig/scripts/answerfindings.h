#pragma once

#include <string>
#include <vector>

namespace ttconfig {

// Findings about the texts that scripts answer, one sentence each: what the client ignores or misreads, and what it
// accepts although it is not JSON. Empty for a text without problems.

// A market list. When the client can read it, its names are stored in markets, in their order.
std::vector<std::string> marketListFindings(const std::string& text, std::vector<std::string>& markets);

// The session text of one market.
std::vector<std::string> sessionTextFindings(const std::string& text);

// A vendor's answer.
std::vector<std::string> vendorTextFindings(const std::string& text);

}  // namespace ttconfig
