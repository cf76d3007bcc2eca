#pragma once

#include <map>
#include <string>

namespace tests {

// The public operations that the text of a header declares, by name, with the number of their overloads. Constructors,
// destructors, operators and deleted operations do not count.

// Those of a class; rows of tables that the class includes are not seen.
std::map<std::string, int> publicOperations(const std::string& header, const std::string& className);

// The free functions that carry the mark.
std::map<std::string, int> markedFunctions(const std::string& header, const std::string& mark);

}  // namespace tests
