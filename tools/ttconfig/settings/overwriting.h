#pragma once

#include <optional>
#include <string>
#include <vector>

namespace ttconfig {

// Throws Fault (kExitUsage, "OPTION FILE: that file is read here; ...") when the file to write is one of the inputs,
// under any name or link. Inputs that were not given or do not exist are ignored. Call this after -C has been carried
// out and before the file is opened.
void refuseToOverwrite(const std::string& option, const std::string& written,
                       const std::vector<std::optional<std::string>>& inputs);

}  // namespace ttconfig
