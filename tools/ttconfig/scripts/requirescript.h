#pragma once

#include <string>

namespace ttconfig {

// Throws Fault, with a remedy, for a script that cannot be read.
void requireScript(const std::string& path);

}  // namespace ttconfig
