#pragma once

#include <map>
#include <string>

namespace tests {

// The public operations that a header declares, by name, with the number of their overloads. Leaves out constructors,
// destructors, operators and deleted operations.

// The operations of a class, without rows of tables that the class includes.
std::map<std::string, int> publicOperations(const std::string& header, const std::string& className);

// The free functions that carry the mark.
std::map<std::string, int> markedFunctions(const std::string& header, const std::string& mark);

}  // namespace tests
